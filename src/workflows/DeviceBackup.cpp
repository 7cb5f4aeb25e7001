#include "workflows/DeviceBackup.h"

#include "data/AQDataSource.h"
#include "data/RegularFile.h"
#include "lamp/HeldDay.h"
#include "lamp/ProgramCopy.h"
#include "lamp/Transfers.h"
#include "workflows/DocumentCommands.h"
#include "workflows/Prompts.h"

#include <QFileInfo>

DeviceBackup::DeviceBackup(AQDataSource& data, Transfers& transfers, DocumentCommands& documents,
                           Prompts& prompts, QObject* parent)
    : QObject(parent), m_data(data), m_transfers(transfers), m_documents(documents),
      m_prompts(prompts) {}

void DeviceBackup::menuBackup() {
    if (m_transfers.isReading())
        return;
    m_transfers.read(Transfers::Read::Program,
                     [this](const TransferResult& result, const StoredProgram& program) {
                         onRead(result, program);
                     });
}

void DeviceBackup::onRead(const TransferResult& result, const StoredProgram& program) {
    if (!result.isOk()) {
        m_prompts.alert(tr("Could not load settings from device!"), result.description(),
                        Prompts::Severity::Critical);
        return;
    }
    const QFileInfo open(m_documents.openFilePath());
    const auto day = heldAcclimationDay(m_data, program);
    // The program that it was scaled from is not in the lamp.
    const QString name = day ? tr("Lamp at %1 %.sq").arg(percentOn(*day)) : tr("Lamp.sq");
    m_documents.askWhereToWrite(
        m_documents.openFilePath().isEmpty() ? name : open.absolutePath() + u'/' + name,
        [this, program, device = m_data.device()](const QString& path) {
            save(path, program, device);
        });
}

int DeviceBackup::percentOn(int acclimationDay) const {
    const Acclimation& acclimation = *m_data.acclimation();
    return acclimation.percentOn(acclimation.firstDay.addDays(acclimationDay - 1));
}

void DeviceBackup::save(const QString& path, const StoredProgram& program,
                        const std::optional<DeviceInfo>& device) {
    const QString& open = m_documents.openFilePath();
    if (!open.isEmpty() && RegularFile::isSame(path, open)) {
        // The program in the window would be in no file any more.
        m_prompts.alert(tr("The open file was not replaced!"),
                        tr("%1 is the file of the program in the window. Choose another name for "
                           "what the lamp holds.")
                            .arg(QFileInfo(path).fileName()),
                        Prompts::Severity::Information);
        return;
    }
    const QString fault = ProgramCopy::save(path, program, device);
    if (!fault.isEmpty()) {
        m_documents.tellNotSaved(path, fault);
        return;
    }
    Q_EMIT savedTo(path);
    const ProgramComparison comparison = ProgramCopy::givenBack(program);
    if (!comparison.isEqual())
        m_prompts.alert(tr("Not all levels can be given back exactly!"),
                        tr("%1 was saved. Sent to the device again, it stores levels "
                           "that are near to those of now: %2.")
                            .arg(QFileInfo(path).fileName(), comparison.change()),
                        Prompts::Severity::Information);
}

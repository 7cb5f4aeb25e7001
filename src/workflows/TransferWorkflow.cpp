#include "workflows/TransferWorkflow.h"

#include "lamp/LampContents.h"
#include "lamp/Transfers.h"
#include "workflows/DocumentCommands.h"
#include "workflows/Prompts.h"

namespace {

QString saveFirst() {
    return TransferWorkflow::tr("Save changes before loading settings");
}

} // namespace

TransferWorkflow::TransferWorkflow(Transfers& transfers, const LampContents& lamp,
                                   DocumentCommands& documents, Prompts& prompts, QObject* parent)
    : QObject(parent), m_transfers(transfers), m_lamp(lamp), m_documents(documents),
      m_prompts(prompts) {
    connect(&transfers, &Transfers::disturbed, this, &TransferWorkflow::onDisturbed);
    connect(&transfers, &Transfers::loaded, this, &TransferWorkflow::loadResult);
    connect(&transfers, &Transfers::sent, this, &TransferWorkflow::sendResult);
}

void TransferWorkflow::onBttnLoadFromDevice() {
    // While one is on its way, the question comes at its end.
    if (m_transfers.isLoading())
        m_transfers.load();
    else
        askBeforeLoad([this] { m_transfers.load(); });
}

void TransferWorkflow::onDisturbed() {
    askBeforeLoad([this] { m_transfers.replaceDocument(); });
}

void TransferWorkflow::askBeforeLoad(const std::function<void()>& goOn) {
    m_documents.askAboutChanges(saveFirst(), [this, goOn] {
        if (!m_transfers.endsAcclimation()) {
            goOn();
            return;
        }
        m_prompts.confirm(
            tr("Loading ends the acclimation!"),
            tr("The device holds the light of one day. Are you sure you want to continue?"),
            Prompts::Answer::No, [goOn](bool yes) {
                if (yes)
                    goOn();
            });
    });
}

void TransferWorkflow::loadResult(const TransferResult& result, bool isOther) {
    if (!result.isOk())
        m_prompts.alert(tr("Could not load settings from device!"), result.description(),
                        Prompts::Severity::Critical);
    else if (isOther)
        m_documents.noteOtherContents();
}

void TransferWorkflow::onBttnSaveToDevice() {
    m_prompts.confirmWithNote(
        tr("The device settings will be overwritten!"), tr("Are you sure you want to continue?"),
        m_lamp.changeBySending(), Prompts::Answer::Yes,
        [this, asked = m_transfers.portPath(), day = m_transfers.today()](bool yes) {
            // The link may have gone to another lamp meanwhile, or the day to another light; of a
            // link that is lost, the send itself tells.
            const std::string now = m_transfers.portPath();
            if (yes && !now.empty() && (now != asked || day != m_transfers.today()))
                onBttnSaveToDevice();
            else if (yes)
                m_transfers.send();
        });
}

void TransferWorkflow::sendResult(const TransferResult& result, const QString& difference) {
    if (!result.isOk()) {
        m_prompts.alert(tr("Could not send settings to device!"), result.description(),
                        Prompts::Severity::Critical);
        return;
    }
    if (m_telling == Tell::Everything)
        m_prompts.alert(tr("Upload was successfull!"),
                        tr("Your settings have been applied to the device."),
                        Prompts::Severity::Information);
    if (m_telling != Tell::Nothing && !difference.isEmpty())
        m_prompts.alert(tr("The device stored something else!"), difference,
                        Prompts::Severity::Critical);
}

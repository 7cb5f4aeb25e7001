#include "workflows/DeviceComparison.h"

#include "data/AQDataSource.h"
#include "lamp/LampContents.h"
#include "lamp/Transfers.h"
#include "workflows/ComparePanel.h"
#include "workflows/DocumentCommands.h"
#include "workflows/Prompts.h"
#include "yprotocoll/link/YMessageController.h"

#include <algorithm>

DeviceComparison::DeviceComparison(const Context& context) : m_context(context) {}

DeviceComparison::~DeviceComparison() = default;

void DeviceComparison::menuCompare() {
    if (m_context.transfers.isReading())
        return;
    m_context.transfers.read(Transfers::Read::AndMode,
                             [this](const TransferResult& result, const StoredProgram& program) {
                                 onRead(result, program);
                             });
}

void DeviceComparison::onRead(const TransferResult& result, const StoredProgram& program) {
    // Lists that make no program can be told of, too.
    if (program.image.channels.empty()) {
        m_context.prompts.alert(tr("Could not compare with the device!"), result.description(),
                                Prompts::Severity::Critical);
        return;
    }
    Q_EMIT arrived();
    m_read = program;
    if (!m_panel)
        makePanel();
    Q_EMIT ghostChanged(ghostOf(program));
    m_panel->run(ProgramComparison(m_context.data.contentsToday(), program).differences(),
                 notesOn(program),
                 program.contents ? ComparePanel::Lamps::Whole : ComparePanel::Lamps::Incomplete);
}

QStringList DeviceComparison::notesOn(const StoredProgram& program) const {
    QStringList notes;
    const auto read = static_cast<int>(program.image.channels.size());
    const auto& device = m_context.controller.device();
    const int all = device ? device->channelCount.value_or(read) : read;
    if (read < all)
        notes << tr("Of the %1 channels of this controller the first %2 are read and "
                    "compared.")
                     .arg(all)
                     .arg(read);
    if (!program.contents)
        notes << tr("It cannot be taken or shown as a curve. Send Mine stores the whole program.");
    if (m_context.lamp.state() == LampContents::State::analogInput)
        notes << tr("At present the lamp follows its analog input.");
    if (const auto& acclimation = m_context.data.acclimation()) {
        notes << tr("Compared in today's light: acclimation %1.")
                     .arg(acclimation->textOn(m_context.data.today()));
        if (program.contents)
            notes << tr("Taking the lamp's ends the acclimation.");
    }
    return notes;
}

std::optional<std::vector<AQTimePoint>> DeviceComparison::ghostOf(const StoredProgram& program) {
    if (!program.contents)
        return {};
    auto points = program.contents->points; // in the controller's order
    std::ranges::stable_sort(points, {}, [](const auto& p) { return p.time.minuteOfDay(); });
    return points;
}

void DeviceComparison::makePanel() {
    m_panel = std::make_unique<ComparePanel>(m_context.window);
    // A load that was on its way may replace the program under it.
    connect(&m_context.data.notifications(), &NotificationCenter::dataLoaded, m_panel.get(),
            &QDialog::reject);
    connect(&m_context.data.notifications(), &NotificationCenter::dayChanged, m_panel.get(),
            &QDialog::reject); // it compared another light
    connect(m_panel.get(), &QDialog::finished, this, [this] { Q_EMIT ghostChanged(std::nullopt); });
    connect(m_panel.get(), &ComparePanel::takeRequested, this, &DeviceComparison::take);
    connect(m_panel.get(), &ComparePanel::sendRequested, this, &DeviceComparison::sendRequested);
}

void DeviceComparison::take() {
    m_context.transfers.take(m_read, tr("Take the Lamp's Program"));
    m_context.documents.noteOtherContents();
}

void DeviceComparison::setConnected(bool isConnected) {
    if (m_panel)
        m_panel->setConnected(isConnected);
}

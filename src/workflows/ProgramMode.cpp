#include "workflows/ProgramMode.h"

#include "controls/window/AQSwitchButton.h"
#include "data/AQDataSource.h"
#include "yprotocoll/YAnswers.h"
#include "yprotocoll/YCommands.h"
#include "yprotocoll/link/YMessageController.h"

namespace {

constexpr std::uint8_t programModeByte = 1;
constexpr std::uint8_t analogModeByte = 0;

} // namespace

ProgramMode::ProgramMode(AQDataSource& data, YMessageController& controller,
                         AQSwitchButton& bttnSwitchProgMode, QObject* parent)
    : QObject(parent), m_data(data), m_controller(controller), m_switch(bttnSwitchProgMode) {
    // The signal is not `clicked`, because screen readers toggle a switch without a click.
    connect(&m_switch, &QAbstractButton::toggled, this, &ProgramMode::onSwitched);
    connect(&data.notifications(), &NotificationCenter::dataLoaded, this, &ProgramMode::refresh);
    connect(&data.notifications(), &NotificationCenter::programModeChanged, this,
            &ProgramMode::onModeChanged);
    refresh();
}

void ProgramMode::onSwitched(bool isProgramMode) {
    if (isProgramMode == m_data.isProgramMode())
        return; // the switch follows the document
    m_data.setIsProgramMode(isProgramMode);
    m_data.noteStep();
    Q_EMIT m_data.notifications().programModeChanged(this);
}

void ProgramMode::onModeChanged() {
    if (m_controller.isConnected()) {
        m_controller.send(
            CmdSetDeviceMode(m_data.isProgramMode() ? programModeByte : analogModeByte),
            [this](const YAnswer& answer) {
                if (const auto* mode = dynamic_cast<const AnswerDeviceMode*>(&answer))
                    Q_EMIT modeTold(mode->isProgramMode());
            });
        Q_EMIT modeSent();
    }
    refresh();
}

void ProgramMode::refresh() {
    m_switch.setChecked(m_data.isProgramMode());
    Q_EMIT changed(m_data.isProgramMode());
}

#include "workflows/ConnectionWorkflow.h"

#include "workflows/LinkTexts.h"
#include "workflows/Prompts.h"
#include "workflows/SelectDevicePanel.h"

#include <spdlog/spdlog.h>

ConnectionWorkflow::ConnectionWorkflow(YMessageController& controller, Prompts& prompts,
                                       SelectDevicePanel& panel, QObject* parent)
    : QObject(parent), m_controller(controller), m_prompts(prompts), m_panel(panel) {
    m_controller.setDelegate(this);
}

ConnectionWorkflow::~ConnectionWorkflow() {
    m_controller.setDelegate(nullptr);
}

void ConnectionWorkflow::menuOpenDevice() {
    m_panel.run(m_controller.availablePorts());
}

void ConnectionWorkflow::openDevice(const std::string& path) {
    m_controller.openWithPath(path);
    // A controller that was refused or silent has ended discovery, without which the one that was
    // chosen now would not be found again after a pulled cable.
    m_controller.run();
    // The controller before was let go without a report, and this one may never answer.
    if (m_isConnected && !m_controller.isConnected())
        setConnected(false);
}

void ConnectionWorkflow::setConnected(bool isConnected) {
    m_isConnected = isConnected;
    Q_EMIT connectedChanged(isConnected);
}

void ConnectionWorkflow::messageControllerDidOpen() {
    SPDLOG_DEBUG("Aquelon device opened");
    Q_EMIT portProblemChanged({}, {});
    setConnected(true);
}

void ConnectionWorkflow::messageControllerFoundPorts(std::size_t count) {
    if (count == 0)
        Q_EMIT portProblemChanged({}, {});
    else if (count > 1)
        Q_EMIT portProblemChanged(
            tr("%1 controllers: choose one with Device | Open Device...").arg(count), {});
}

void ConnectionWorkflow::messageControllerGotError(const YMessageError& error) {
    SPDLOG_ERROR(fmt::format("{}", error.description()));
    const auto* const portError = error.get<YMessageError::PortError>();
    if (portError && !m_isConnected)
        Q_EMIT portProblemChanged(tr("port error: %1").arg(LinkTexts::shown(portError->text)),
                                  LinkTexts::shown(portError->help), portError->remedies);
    else if (error.is<YMessageError::DeviceVersion>())
        Q_EMIT portProblemChanged(LinkTexts::shown(error), {});
    if (!error.is<YMessageError::PortClosedError>())
        return;
    // The port could be used, and the alert tells what went wrong then.
    Q_EMIT portProblemChanged({}, {});
    setConnected(false);
    m_prompts.alert(tr("Device Error!"), tr("Error: %1.").arg(LinkTexts::shown(error)),
                    Prompts::Severity::Critical);
}

#pragma once

#include "yprotocoll/link/YMessageController.h"

#include <QObject>

#include <string>
#include <vector>

class Prompts;
class SelectDevicePanel;

/// The link as the person sees it: connected or not, the choice among several controllers, and the
/// one alert when the link is lost.
class ConnectionWorkflow : public QObject, public YMessageControllerDelegate {
    Q_OBJECT

public:
    /// Becomes the controller's delegate. All must outlive this.
    ConnectionWorkflow(YMessageController& controller, Prompts& prompts, SelectDevicePanel& panel,
                       QObject* parent = nullptr);
    ~ConnectionWorkflow() override;

    /// Lets the person choose; the panel tells what was chosen.
    void menuOpenDevice();
    /// Lets go of the present link, if any, and looks for `path` from now on.
    void openDevice(const std::string& path);
    /// As shown in the window; follows the link's reports, not its inner state.
    bool isConnected() const { return m_isConnected; }

    void messageControllerDidOpen() override;
    void messageControllerFoundPorts(std::size_t count) override;
    void messageControllerGotError(const YMessageError& error) override;

Q_SIGNALS:
    void connectedChanged(bool isConnected);
    /// A controller is there but cannot be used: why, in a few words, and what helps, which may be
    /// empty, and in commands. All are empty when that is over.
    void portProblemChanged(const QString& problem, const QString& help,
                            const std::vector<YMessageError::PortRemedy>& remedies = {});

private:
    void setConnected(bool isConnected);

    YMessageController& m_controller;
    Prompts& m_prompts;
    SelectDevicePanel& m_panel;
    bool m_isConnected = false;
};

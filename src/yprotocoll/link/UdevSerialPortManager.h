#pragma once

#include "yprotocoll/link/SerialPort.h"

#include <QObject>

#include <memory>

class QSocketNotifier;

/// The serial ports of this computer, from the device registry of the system (udev).
///
/// Lists the ports of hardware, not the consoles. Arrivals and removals are told as soon as the
/// registry knows them, which is after the permissions of a new device have been set. Without a
/// registry there are no ports and no news, and no error.
class UdevSerialPortManager : public QObject, public SerialPortManager {
    Q_OBJECT

public:
    explicit UdevSerialPortManager(QObject* parent = nullptr);
    ~UdevSerialPortManager() override;

    std::vector<SerialPortInfo> availablePorts() override;
    /// The port is closed, with the right report, when its device is removed.
    std::unique_ptr<SerialPort> port(const SerialPortInfo& info) override;
    void setDelegate(SerialPortManagerDelegate* delegate) override { m_delegate = delegate; }

Q_SIGNALS:
    /// The device file `path` has gone from the system.
    void deviceRemoved(const std::string& path);

private:
    void onMonitorReadable();

    struct Handles;
    std::unique_ptr<Handles> m_handles;
    std::unique_ptr<QSocketNotifier> m_notifier;
    SerialPortManagerDelegate* m_delegate = nullptr;
};

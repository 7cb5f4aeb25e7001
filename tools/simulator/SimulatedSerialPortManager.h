#pragma once

#include "simulator/SimulatedSerialPort.h"

#include <QObject>

#include <memory>
#include <string>
#include <vector>

/// The system's serial ports as a test wants them, with simulated controllers behind them and no
/// tty anywhere. Arrivals, removals and everything a port reports come from the event loop.
class SimulatedSerialPortManager : public QObject, public SerialPortManager {
    Q_OBJECT

public:
    /// The log must outlive the manager.
    explicit SimulatedSerialPortManager(WireLog& log) : m_log(log) {}

    std::vector<SerialPortInfo> availablePorts() override;
    std::unique_ptr<SerialPort> port(const SerialPortInfo& info) override;
    void setDelegate(SerialPortManagerDelegate* delegate) override { m_delegate = delegate; }

    /// Plugs a controller in as /dev/<name>. Controller and faults stay the test's; they must
    /// outlive the manager or be unplugged before.
    SimulatedSerialDevice& plug(const std::string& name, SimulatedController& controller,
                                FaultPlan& faults, bool paced = false);
    /// Plugs another serial device in, one without a USB device behind it when `usb` is none.
    SimulatedSerialDevice& plugForeign(const std::string& name, std::optional<UsbIdentity> usb);
    /// Pulls the cable: the port is gone from the list and, when open, reports its removal.
    void unplug(const std::string& name);
    /// The open port closes by itself while the device stays listed.
    void hangUp(const std::string& name);
    /// Null when nothing of that name is plugged in.
    SimulatedSerialDevice* device(const std::string& name);

    /// How often the list was asked for.
    int listings() const { return m_listings; }

private:
    std::shared_ptr<SimulatedSerialDevice> addDevice(const std::string& name,
                                                     std::optional<UsbIdentity> usb);
    std::shared_ptr<SimulatedSerialDevice> find(const std::string& path) const;
    void reportChange();

    WireLog& m_log;
    std::vector<std::shared_ptr<SimulatedSerialDevice>> m_devices;
    SerialPortManagerDelegate* m_delegate = nullptr;
    int m_listings = 0;
};

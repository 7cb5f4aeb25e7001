#pragma once

#include "simulator/FaultPlan.h"
#include "simulator/MockBus.h"
#include "simulator/PtyController.h"
#include "simulator/SimulatedController.h"
#include "simulator/WireLog.h"

#include <QObject>

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// One device that can be plugged into the mock bus, in or out. A controller keeps its memory while
/// it is out: the lamp has a power supply of its own.
struct SimulatedDevice {
    std::unique_ptr<SimulatedController> controller; ///< none for foreign devices
    std::optional<UsbIdentity> usb;
    FaultPlan faults;
    std::string name;                   ///< the port it has, had, or is to have
    std::unique_ptr<PtyController> pty; ///< while it is plugged in

    bool isPlugged() const { return pty != nullptr; }
};

/// All devices of a run and their cables.
class SimulatedDevices : public QObject {
    Q_OBJECT

public:
    /// Bus and log must outlive the devices.
    SimulatedDevices(MockBus& bus, WireLog& log, bool paced)
        : m_bus(bus), m_log(log), m_paced(paced) {}

    SimulatedDevice& addController(const ControllerConfig& config, const std::string& name);
    SimulatedDevice& addForeign(std::optional<UsbIdentity> usb, const std::string& name);

    const std::vector<std::unique_ptr<SimulatedDevice>>& all() const { return m_devices; }
    /// The device that has this port, or else had it or is to have it; with an empty name the first
    /// one that is plugged in, or else the first. Null when there is none.
    SimulatedDevice* find(const std::string& name) const;

    /// Nothing happens when it is plugged in already. Throws std::runtime_error when the name is
    /// taken.
    void plug(SimulatedDevice& device, const std::string& name = {});
    void unplug(SimulatedDevice& device);
    /// The tty ends while the bus still shows the device; a later `unplug` takes it off the bus.
    void hangUp(SimulatedDevice& device);
    /// The bus reports the removal, but the tty stays until `unplug`.
    void vanish(SimulatedDevice& device);

private:
    /// For the event loop: stays out, with a line in the log, when it cannot be plugged in.
    void plugAgain(SimulatedDevice& device);

    MockBus& m_bus;
    WireLog& m_log;
    bool m_paced;
    std::vector<std::unique_ptr<SimulatedDevice>> m_devices;
};

#include "simulator/SimulatedDevices.h"

#include <QTimer>

#include <stdexcept>

SimulatedDevice& SimulatedDevices::addController(const ControllerConfig& config,
                                                 const std::string& name) {
    SimulatedDevice& device = addForeign(aquelonUsbIdentity, name);
    device.controller = std::make_unique<SimulatedController>(config);
    return device;
}

SimulatedDevice& SimulatedDevices::addForeign(std::optional<UsbIdentity> usb,
                                              const std::string& name) {
    auto device = std::make_unique<SimulatedDevice>();
    device->usb = usb;
    device->name = name;
    m_devices.push_back(std::move(device));
    return *m_devices.back();
}

SimulatedDevice* SimulatedDevices::find(const std::string& name) const {
    for (const bool plugged : {true, false}) {
        for (const auto& device : m_devices)
            if (device->isPlugged() == plugged && (name.empty() || device->name == name))
                return device.get();
    }
    return nullptr;
}

void SimulatedDevices::plug(SimulatedDevice& device, const std::string& name) {
    if (device.isPlugged())
        return;
    const std::string port = name.empty() ? device.name : name;
    if (m_bus.has(port))
        throw std::runtime_error(port + " is taken");
    device.name = port;
    device.pty = std::make_unique<PtyController>(device.controller.get(), device.faults, m_log,
                                                 device.name, m_paced);
    const auto pull = [this, &device](std::chrono::milliseconds back) {
        unplug(device);
        if (back.count() > 0)
            QTimer::singleShot(back, this, [this, &device] { plugAgain(device); });
    };
    connect(device.pty.get(), &PtyController::unplugRequested, this, pull, Qt::QueuedConnection);
    m_log.note(device.name, "plugged");
    m_bus.add(device.name, device.usb, device.pty->path());
}

void SimulatedDevices::plugAgain(SimulatedDevice& device) {
    try {
        plug(device);
    } catch (const std::exception& error) {
        m_log.note(device.name, error.what());
    }
}

// As with a real adapter, the program's open tty is hung up, and the system's event comes at once.
void SimulatedDevices::unplug(SimulatedDevice& device) {
    if (!device.isPlugged())
        return;
    m_log.note(device.name, "unplugged");
    m_bus.remove(device.name);
    device.pty.reset();
}

void SimulatedDevices::hangUp(SimulatedDevice& device) {
    if (!device.isPlugged())
        return;
    m_log.note(device.name, "hung up");
    device.pty->hangUp();
}

void SimulatedDevices::vanish(SimulatedDevice& device) {
    if (!device.isPlugged())
        return;
    m_log.note(device.name, "vanished");
    m_bus.remove(device.name);
}

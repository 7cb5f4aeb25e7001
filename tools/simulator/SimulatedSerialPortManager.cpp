#include "simulator/SimulatedSerialPortManager.h"

#include <QTimer>

#include <algorithm>

namespace {

std::string pathOf(const std::string& name) {
    return "/dev/" + name;
}

} // namespace

std::vector<SerialPortInfo> SimulatedSerialPortManager::availablePorts() {
    ++m_listings;
    std::vector<SerialPortInfo> ports;
    for (const auto& device : m_devices)
        ports.push_back(device->info);
    return ports;
}

std::unique_ptr<SerialPort> SimulatedSerialPortManager::port(const SerialPortInfo& info) {
    return std::make_unique<SimulatedSerialPort>(info, find(info.path));
}

std::shared_ptr<SimulatedSerialDevice>
SimulatedSerialPortManager::find(const std::string& path) const {
    const auto found =
        std::ranges::find_if(m_devices, [&](const auto& d) { return d->info.path == path; });
    return found == m_devices.end() ? nullptr : *found;
}

SimulatedSerialDevice* SimulatedSerialPortManager::device(const std::string& name) {
    return find(pathOf(name)).get();
}

std::shared_ptr<SimulatedSerialDevice>
SimulatedSerialPortManager::addDevice(const std::string& name, std::optional<UsbIdentity> usb) {
    auto device = std::make_shared<SimulatedSerialDevice>();
    device->info = {name, pathOf(name), usb};
    m_devices.push_back(device);
    m_log.note(name, "plugged");
    reportChange();
    return device;
}

SimulatedSerialDevice& SimulatedSerialPortManager::plug(const std::string& name,
                                                        SimulatedController& controller,
                                                        FaultPlan& faults, bool paced) {
    const auto device = addDevice(name, aquelonUsbIdentity);
    SimulatedSerialDevice& plugged = *device;
    const auto deliver = [&plugged](std::span<const std::uint8_t> bytes) {
        if (plugged.openPort)
            plugged.openPort->arrive(bytes);
    };
    device->line =
        std::make_unique<ControllerLine>(controller, faults, m_log, name, paced, deliver);
    const auto plugAgain = [this, name, &controller, &faults, paced] {
        plug(name, controller, faults, paced);
    };
    const auto pull = [this, name, plugAgain](std::chrono::milliseconds back) {
        unplug(name);
        if (back.count() > 0)
            QTimer::singleShot(back, this, plugAgain);
    };
    connect(device->line.get(), &ControllerLine::unplugRequested, this, pull, Qt::QueuedConnection);
    return plugged;
}

SimulatedSerialDevice& SimulatedSerialPortManager::plugForeign(const std::string& name,
                                                               std::optional<UsbIdentity> usb) {
    return *addDevice(name, usb);
}

void SimulatedSerialPortManager::unplug(const std::string& name) {
    const auto device = find(pathOf(name));
    if (!device)
        return;
    std::erase(m_devices, device);
    if (device->openPort)
        device->openPort->end(true);
    m_log.note(name, "unplugged");
    QMetaObject::invokeMethod(
        this,
        [this, path = pathOf(name)] {
            if (m_delegate)
                m_delegate->serialPortLeft(path);
        },
        Qt::QueuedConnection);
    reportChange();
}

void SimulatedSerialPortManager::hangUp(const std::string& name) {
    const auto device = find(pathOf(name));
    if (!device || !device->openPort)
        return;
    device->openPort->end(false);
    m_log.note(name, "hung up");
}

void SimulatedSerialPortManager::reportChange() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_delegate)
                m_delegate->serialPortsChanged();
        },
        Qt::QueuedConnection);
}

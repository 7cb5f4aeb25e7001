#pragma once

#include "yprotocoll/SerialPort.h"
#include "yprotocoll/YMessage.h"

#include <QObject>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// A controller on a serial line in memory: it answers each command from the event loop as `reply`
/// says, and keeps a record of what it got. Spoil it by replacing `reply` or by its faults.
class ScriptedDevice : public QObject {
public:
    using Bytes = std::vector<std::uint8_t>;

    explicit ScriptedDevice(const std::string& name = "ttyUSB0",
                            std::optional<UsbIdentity> usb = aquelonUsbIdentity)
        : info{name, "/dev/" + name, usb} {}

    SerialPortInfo info;
    Bytes version{1, 4, 17, 5};
    Bytes sequenceInfo{2, 20, 3};

    /// The payload that answers a command, none for silence.
    std::function<std::optional<Bytes>(const YMessage& command)> reply =
        [this](const YMessage& command) { return standardReply(command); };

    std::string openFailure; ///< the system's text; empty: opens
    bool isStalled = false;  ///< holds answers back until the port is asked for pending bytes

    std::vector<std::string> got; ///< every command in order: "46 02"
    int timesOpened = 0;          ///< tries, the failed ones too

    std::optional<Bytes> standardReply(const YMessage& command) const {
        const Bytes& data = command.data();
        switch (command.id()) {
        case 1:
            return version;
        case 46:
            return data.empty() ? sequenceInfo : Bytes{data[0], 8, 0, 100};
        case 42:
        case 48:
            return Bytes{1, 0, 0};
        case 50:
            return Bytes{5, 0, 254, 254, 2};
        default:
            return data;
        }
    }

    /// Bytes from the device, at once.
    void emitBytes(const Bytes& bytes) {
        if (m_delegate)
            m_delegate->serialPortDidReceive(*m_port, bytes);
    }
    void emitAnswer(std::uint8_t id, Bytes payload) {
        emitBytes(YMessage("Answer", id, std::move(payload)).frame());
    }
    void emitError(const std::string& text) {
        m_delegate->serialPortDidEncounterError(*m_port, text);
    }
    /// The link breaks, the device file stays.
    void hangUp() { endLink(&SerialPortDelegate::serialPortWasClosed); }
    void disappear() { endLink(&SerialPortDelegate::serialPortWasRemovedFromSystem); }
    bool isOpen() const { return m_isOpen; }

    /// A port object for the device, which must outlive it.
    class Port;

private:
    void endLink(void (SerialPortDelegate::*report)(SerialPort&)) {
        if (std::exchange(m_isOpen, false) && m_delegate)
            (m_delegate->*report)(*m_port);
    }

    void receive(const Bytes& frame) {
        const YMessage command = YMessage::fromFrame("Command", frame);
        std::string text = std::to_string(command.id());
        for (const std::uint8_t byte : command.data())
            text += ' ' + std::to_string(byte);
        got.push_back(text);
        const auto payload = reply(command);
        if (!payload)
            return;
        const auto id = static_cast<std::uint8_t>(command.id() + 1);
        const Bytes answer = YMessage("Answer", id, *payload).frame();
        m_pending.insert(m_pending.end(), answer.begin(), answer.end());
        if (!isStalled)
            QMetaObject::invokeMethod(this, &ScriptedDevice::deliver, Qt::QueuedConnection);
    }

    void deliver() {
        if (m_isOpen && !m_pending.empty())
            emitBytes(std::exchange(m_pending, {}));
    }

    SerialPort* m_port = nullptr;
    SerialPortDelegate* m_delegate = nullptr;
    bool m_isOpen = false;
    Bytes m_pending;
};

class ScriptedDevice::Port : public SerialPort {
public:
    explicit Port(ScriptedDevice& device) : m_device(device) {}
    ~Port() override {
        if (m_device.m_port == this) {
            m_device.m_port = nullptr;
            m_device.m_delegate = nullptr;
            m_device.m_isOpen = false;
        }
    }

    void setDelegate(SerialPortDelegate* delegate) override {
        m_delegate = delegate;
        if (m_device.m_port == this)
            m_device.m_delegate = delegate;
    }
    const SerialPortInfo& info() const override { return m_device.info; }

    void open() override {
        ++m_device.timesOpened;
        if (!m_device.openFailure.empty()) {
            m_delegate->serialPortDidEncounterError(*this, m_device.openFailure);
            return;
        }
        m_device.m_port = this;
        m_device.m_delegate = m_delegate;
        m_device.m_isOpen = true;
        m_device.m_pending.clear();
        m_delegate->serialPortWasOpened(*this);
    }
    void close() override {
        if (m_device.m_port == this)
            m_device.endLink(&SerialPortDelegate::serialPortWasClosed);
    }
    void send(std::span<const std::uint8_t> bytes) override {
        if (m_device.m_port == this && m_device.m_isOpen)
            m_device.receive({bytes.begin(), bytes.end()});
    }
    void deliverPending() override {
        if (m_device.m_port == this)
            m_device.deliver();
    }

private:
    ScriptedDevice& m_device;
    SerialPortDelegate* m_delegate = nullptr;
};

/// The list of ports in a test: plug and unplug scripted devices.
class ScriptedPortManager : public SerialPortManager {
public:
    std::vector<SerialPortInfo> availablePorts() override {
        std::vector<SerialPortInfo> infos;
        for (const ScriptedDevice* device : m_devices)
            infos.push_back(device->info);
        return infos;
    }
    std::unique_ptr<SerialPort> port(const SerialPortInfo& info) override {
        for (ScriptedDevice* device : m_devices)
            if (device->info.path == info.path)
                return std::make_unique<ScriptedDevice::Port>(*device);
        return nullptr;
    }
    void setDelegate(SerialPortManagerDelegate* delegate) override { m_delegate = delegate; }

    /// `device` must outlive the manager's user. `silently`: as if the system told nothing.
    void plug(ScriptedDevice& device, bool silently = false) {
        m_devices.push_back(&device);
        if (m_delegate && !silently)
            m_delegate->serialPortsChanged();
    }
    void unplug(ScriptedDevice& device) {
        std::erase(m_devices, &device);
        device.disappear();
        if (m_delegate)
            m_delegate->serialPortsChanged();
    }

private:
    std::vector<ScriptedDevice*> m_devices;
    SerialPortManagerDelegate* m_delegate = nullptr;
};

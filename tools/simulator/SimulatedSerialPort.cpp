#include "simulator/SimulatedSerialPort.h"

#include <utility>

SimulatedSerialPort::SimulatedSerialPort(SerialPortInfo info,
                                         std::weak_ptr<SimulatedSerialDevice> device)
    : m_info(std::move(info)), m_device(std::move(device)) {}

SimulatedSerialPort::~SimulatedSerialPort() {
    close();
}

void SimulatedSerialPort::open() {
    close();
    const int opening = ++m_opening;
    QMetaObject::invokeMethod(
        this,
        [this, opening] {
            if (opening == m_opening)
                reportOpening();
        },
        Qt::QueuedConnection);
}

void SimulatedSerialPort::reportOpening() {
    const auto device = m_device.lock();
    const auto failed = [this](const std::string& text) {
        if (m_delegate)
            m_delegate->serialPortDidEncounterError(*this, {text, {}});
    };
    if (!device)
        return failed("No such file or directory");
    if (device->openPort)
        return failed("Device or resource busy");
    if (device->opening == SimulatedSerialDevice::Opening::Fails)
        return failed(device->openError);
    if (device->opening == SimulatedSerialDevice::Opening::Never)
        return;
    m_open = true;
    device->openPort = this;
    ++device->openCount;
    if (m_delegate)
        m_delegate->serialPortWasOpened(*this);
}

void SimulatedSerialPort::close() {
    ++m_opening;
    m_open = false;
    m_incoming.clear();
    if (const auto device = m_device.lock(); device && device->openPort == this)
        device->openPort = nullptr;
}

void SimulatedSerialPort::send(std::span<const std::uint8_t> bytes) {
    const auto device = m_device.lock();
    if (m_open && device && device->line)
        device->line->receive(bytes);
}

void SimulatedSerialPort::arrive(std::span<const std::uint8_t> bytes) {
    m_incoming.insert(m_incoming.end(), bytes.begin(), bytes.end());
    QMetaObject::invokeMethod(
        this, [this] { deliverPending(); }, Qt::QueuedConnection);
}

void SimulatedSerialPort::deliverPending() {
    // What has gone over the wire would lie in the system's buffer, however late the event loop is.
    if (const auto device = m_device.lock(); m_open && device && device->line)
        device->line->catchUp();
    if (!m_open || m_incoming.empty() || !m_delegate)
        return;
    const auto bytes = std::exchange(m_incoming, {});
    m_delegate->serialPortDidReceive(*this, bytes);
}

void SimulatedSerialPort::end(bool removed) {
    const auto report = [this, removed, opening = m_opening] {
        if (opening != m_opening)
            return; // the program has closed it meanwhile
        close();
        if (!m_delegate)
            return;
        if (removed)
            m_delegate->serialPortWasRemovedFromSystem(*this);
        else
            m_delegate->serialPortWasClosed(*this);
    };
    QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
}

void SimulatedSerialPort::fail(const std::string& text) {
    const auto report = [this, text] {
        if (m_open && m_delegate)
            m_delegate->serialPortDidEncounterError(*this, {text, {}});
    };
    QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
}

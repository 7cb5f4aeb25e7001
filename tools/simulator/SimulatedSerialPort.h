#pragma once

#include "simulator/ControllerLine.h"
#include "yprotocoll/link/SerialPort.h"

#include <QObject>

#include <memory>
#include <string>
#include <vector>

class SimulatedSerialPort;

/// A device that is plugged into a `SimulatedSerialPortManager`, and how its port behaves.
struct SimulatedSerialDevice {
    enum class Opening {
        Succeeds,
        Fails, ///< with `openError`
        Never, ///< neither success nor error is reported
    };

    SerialPortInfo info;
    std::unique_ptr<ControllerLine> line; ///< none for foreign devices
    SimulatedSerialPort* openPort = nullptr;
    Opening opening = Opening::Succeeds;
    std::string openError = "Permission denied";
    int openCount = 0; ///< successful openings
};

/// A serial port without a tty: bytes go straight to the simulated controller, and everything it
/// says comes from the event loop, never from inside a call. Made by `SimulatedSerialPortManager`.
class SimulatedSerialPort : public QObject, public SerialPort {
    Q_OBJECT

public:
    SimulatedSerialPort(SerialPortInfo info, std::weak_ptr<SimulatedSerialDevice> device);
    ~SimulatedSerialPort() override;

    void setDelegate(SerialPortDelegate* delegate) override { m_delegate = delegate; }
    const SerialPortInfo& info() const override { return m_info; }
    void open() override;
    void close() override;
    void send(std::span<const std::uint8_t> bytes) override;
    void deliverPending() override;

    bool isOpen() const { return m_open; }
    /// Bytes from the device; delivered by the event loop.
    void arrive(std::span<const std::uint8_t> bytes);
    /// The port ends by itself: removed from the system, or closed with the device still there.
    void end(bool removed);
    /// A failure that does not end the link.
    void fail(const std::string& text);

private:
    void reportOpening();

    SerialPortInfo m_info;
    std::weak_ptr<SimulatedSerialDevice> m_device;
    SerialPortDelegate* m_delegate = nullptr;
    bool m_open = false;
    int m_opening =
        0; ///< distinguishes an opening from later ones, so that late events are dropped
    std::vector<std::uint8_t> m_incoming;
};

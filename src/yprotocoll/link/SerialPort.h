#pragma once

#include "yprotocoll/YMessageError.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

class SerialPort;

/// Receiver of a port's events, all on the thread of the event loop.
///
/// The end of a link is told once: after `serialPortWasClosed` or `serialPortWasRemovedFromSystem`
/// the port says nothing more until it is opened again.
class SerialPortDelegate {
public:
    virtual void serialPortWasOpened(SerialPort& port) = 0;
    virtual void serialPortWasClosed(SerialPort& port) = 0;
    virtual void serialPortWasRemovedFromSystem(SerialPort& port) = 0;
    /// A failure that does not end the link, or a failure to open.
    virtual void serialPortDidEncounterError(SerialPort& port,
                                             const YMessageError::PortError& error) = 0;
    virtual void serialPortDidReceive(SerialPort& port, std::span<const std::uint8_t> bytes) = 0;

protected:
    ~SerialPortDelegate() = default;
};

/// The two numbers by which USB devices are told apart.
struct UsbIdentity {
    int vendor = 0;
    int product = 0;
    bool operator==(const UsbIdentity&) const = default;
};

/// The controller's USB identity.
constexpr UsbIdentity aquelonUsbIdentity{0x7A51, 0x0C24};

/// A serial port that the system lists now.
struct SerialPortInfo {
    std::string name; ///< shown to the person: "ttyUSB0"
    std::string path; ///< the device file, by which the same port is known again
    /// Numbers of the nearest USB ancestor that has both; none for built-in and virtual ports.
    std::optional<UsbIdentity> usb;

    bool isAquelonDevice() const { return usb == aquelonUsbIdentity; }
    bool operator==(const SerialPortInfo&) const = default;
};

/// One serial port, 115200 baud, 8 data bits, no parity, 1 stop bit, no flow control.
class SerialPort {
public:
    virtual ~SerialPort() = default;

    /// Receiver of the events below; null drops them. The delegate must outlive the port.
    virtual void setDelegate(SerialPortDelegate* delegate) = 0;
    virtual const SerialPortInfo& info() const = 0;

    /// Ends in `serialPortWasOpened` or `serialPortDidEncounterError`, before it returns or later.
    /// Bytes that arrived before the opening are thrown away.
    virtual void open() = 0;
    /// Drops unsent output instead of waiting for it. Harmless on a closed port.
    virtual void close() = 0;
    /// Hands the bytes to the system before it returns.
    virtual void send(std::span<const std::uint8_t> bytes) = 0;
    /// Delivers bytes that the system holds already, through `serialPortDidReceive`. For a time-out
    /// that must not count while the answer waits in the buffer.
    virtual void deliverPending() = 0;
};

/// Receiver of arrivals and removals in the system's list of ports.
class SerialPortManagerDelegate {
public:
    /// The list may have changed; asks for nothing more than a look at `availablePorts()`.
    virtual void serialPortsChanged() = 0;
    /// The device at `path` has left the bus; another one may be there already.
    virtual void serialPortLeft(const std::string& path) = 0;

protected:
    ~SerialPortManagerDelegate() = default;
};

/// The system's serial ports.
class SerialPortManager {
public:
    virtual ~SerialPortManager() = default;
    /// All serial ports present now, the controller's or not. Costs a few registry reads.
    virtual std::vector<SerialPortInfo> availablePorts() = 0;
    /// A closed port object for a listed port.
    virtual std::unique_ptr<SerialPort> port(const SerialPortInfo& info) = 0;
    virtual void setDelegate(SerialPortManagerDelegate* delegate) = 0;
};

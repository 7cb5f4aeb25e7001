#pragma once

#include "yprotocoll/YMessageError.h"
#include "yprotocoll/link/PausingTimer.h"
#include "yprotocoll/link/SerialPort.h"

#include <QObject>

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Looks for the controller's port, opens it and holds it until `close()`.
///
/// Signals come within the port's own event, or within the call that caused them.
class PortFinder : public QObject, private SerialPortDelegate, private SerialPortManagerDelegate {
    Q_OBJECT

public:
    struct Intervals {
        std::chrono::milliseconds scan;
        std::chrono::milliseconds open;
        std::chrono::milliseconds arrival;
    };

    /// `ports` and `pause` must outlive the finder.
    PortFinder(SerialPortManager& ports, ModalPause& pause, Intervals intervals);
    ~PortFinder() override;

    std::vector<SerialPortInfo> availablePorts() const; ///< the controllers'
    std::vector<SerialPortInfo> allPorts() const { return m_ports.availablePorts(); }
    /// The port that is held; null when there is none.
    SerialPort* port() const { return m_port.get(); }

    /// Looks at once and then again and again.
    void run();
    /// Looks no more.
    void stop();
    void open(const SerialPortInfo& port);
    void openWithPath(const std::string& path);
    void lookFor(const std::string& path);
    /// The device on the port has proved fit: its time for that no longer runs.
    void accept();
    /// The device is unfit: it is not looked for any more, and `found(0)` tells when it has gone.
    void refuse();
    /// Lets go of the port; no signal follows.
    void close();

Q_SIGNALS:
    /// At every look: how many there are, only the one asked for by its path being counted.
    void found(std::size_t count);
    /// What was at this path has left the bus, held or not; may come more than once.
    void left(const std::string& path);
    /// `port` is held from now on; its opening follows.
    void opening(SerialPort& port);
    void opened();
    void received(std::span<const std::uint8_t> bytes);
    /// Something failed that does not concern the port that is held, or does not end it.
    void failed(const YMessageError& error);
    /// The port that is held is of no use any more; `reason` is none when it was told before.
    void ended(const std::optional<YMessageError>& reason);
    /// The device was not accepted in time.
    void timedOut();

private:
    struct OpenFailure {
        std::string path;
        YMessageError::PortError error;
        bool operator==(const OpenFailure&) const = default;
    };

    void look();
    void onLookTimer();
    void onOpenTimeout();
    bool hasArrivals(const std::vector<SerialPortInfo>& ports);
    void openPort(const SerialPortInfo& port);
    void openPath(const std::string& path);
    void tellFound(std::size_t count);

    void serialPortWasOpened(SerialPort& port) override;
    void serialPortWasClosed(SerialPort& port) override;
    void serialPortWasRemovedFromSystem(SerialPort& port) override;
    void serialPortDidEncounterError(SerialPort& port,
                                     const YMessageError::PortError& error) override;
    void serialPortDidReceive(SerialPort& port, std::span<const std::uint8_t> bytes) override;
    void serialPortsChanged() override;
    void serialPortLeft(const std::string& path) override { Q_EMIT left(path); }

    SerialPortManager& m_ports;
    const Intervals m_intervals;
    std::unique_ptr<SerialPort> m_port;
    bool m_isOpen = false;
    bool m_isAccepted = false;
    std::optional<std::string> m_pathWeAreLookingFor;
    std::optional<std::string> m_refusedPath; ///< looking has ended with the device at this one
    std::optional<OpenFailure> m_reportedOpenFailure;
    std::optional<std::vector<std::string>> m_seenPaths; ///< at the last look; none before it

    PausingTimer m_scanTimer;
    PausingTimer m_arrivalTimer;
    PausingTimer m_openTimer;
    /// Closed ports wait here for the event loop: one of their reports may have closed them.
    std::vector<std::unique_ptr<SerialPort>> m_closedPorts;
};

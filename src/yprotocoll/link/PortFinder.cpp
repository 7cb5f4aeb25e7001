#include "yprotocoll/link/PortFinder.h"

#include <spdlog/spdlog.h>

#include <algorithm>

namespace {

std::string describe(const SerialPortInfo& port) {
    return port.name + " (" + port.path + ")";
}

bool contains(const std::vector<SerialPortInfo>& ports, const std::string& path) {
    return std::ranges::find(ports, path, &SerialPortInfo::path) != ports.end();
}

} // namespace

PortFinder::PortFinder(SerialPortManager& ports, ModalPause& pause, Intervals intervals)
    : m_ports(ports), m_intervals(intervals), m_scanTimer(pause, Qt::CoarseTimer),
      m_arrivalTimer(pause, Qt::PreciseTimer), m_openTimer(pause, Qt::PreciseTimer) {
    connect(&m_scanTimer, &PausingTimer::timeout, this, &PortFinder::onLookTimer);
    connect(&m_arrivalTimer, &PausingTimer::timeout, this, &PortFinder::onLookTimer);
    connect(&m_openTimer, &PausingTimer::timeout, this, &PortFinder::onOpenTimeout);
    m_ports.setDelegate(this);
}

PortFinder::~PortFinder() {
    m_ports.setDelegate(nullptr);
    if (m_port) {
        m_port->setDelegate(nullptr);
        m_port->close();
    }
}

std::vector<SerialPortInfo> PortFinder::availablePorts() const {
    std::vector<SerialPortInfo> ports = m_ports.availablePorts();
    std::erase_if(ports, [](const SerialPortInfo& port) { return !port.isAquelonDevice(); });
    return ports;
}

// Looking

void PortFinder::run() {
    m_refusedPath.reset();
    look();
    m_scanTimer.start(m_intervals.scan, false);
}

void PortFinder::stop() {
    m_scanTimer.stop();
    m_arrivalTimer.stop();
}

void PortFinder::look() {
    if (m_port)
        return;
    if (m_pathWeAreLookingFor) {
        openPath(*m_pathWeAreLookingFor);
        return;
    }
    const auto ports = availablePorts();
    tellFound(ports.size());
    if (hasArrivals(ports))
        m_arrivalTimer.start(m_intervals.arrival, true);
    if (ports.size() == 1 && !m_arrivalTimer.isActive())
        openPort(ports.front());
}

/// Two controllers that are plugged in together, with a hub, arrive one after the other: the first
/// must not be opened as if it were the only one. What is there at the first look has not arrived.
bool PortFinder::hasArrivals(const std::vector<SerialPortInfo>& ports) {
    const auto before = std::exchange(m_seenPaths, std::vector<std::string>());
    for (const SerialPortInfo& port : ports)
        m_seenPaths->push_back(port.path);
    // The bus has told it already, where somebody listens to it.
    for (const std::string& path : before.value_or(std::vector<std::string>()))
        if (!contains(ports, path))
            Q_EMIT left(path);
    return before && std::ranges::any_of(*m_seenPaths, [&](const std::string& path) {
               return std::ranges::find(*before, path) == before->end();
           });
}

void PortFinder::onLookTimer() {
    // The loss of a link is told before it is looked for again, and who is told may show a dialog:
    // a link opened just before would stand behind it with its answers overdue.
    if (!m_closedPorts.empty())
        m_scanTimer.expire(); // comes again behind the report
    else
        look();
}

void PortFinder::serialPortsChanged() {
    m_scanTimer.expire();
    if (m_refusedPath && !contains(availablePorts(), *m_refusedPath)) {
        m_refusedPath.reset();
        tellFound(0);
    }
}

void PortFinder::tellFound(std::size_t count) {
    if (count == 0)
        m_reportedOpenFailure.reset();
    Q_EMIT found(count);
}

// Opening

void PortFinder::open(const SerialPortInfo& port) {
    // Who asks by hand wants to hear the reason again.
    m_reportedOpenFailure.reset();
    openPort(port);
}

void PortFinder::lookFor(const std::string& path) {
    // No port has an empty path: looking for it alone would end discovery for the rest of the run.
    if (!path.empty())
        m_pathWeAreLookingFor = path;
}

void PortFinder::openWithPath(const std::string& path) {
    if (path.empty())
        return;
    lookFor(path);
    m_reportedOpenFailure.reset();
    openPath(path);
}

void PortFinder::openPath(const std::string& path) {
    const auto ports = availablePorts();
    const auto port = std::ranges::find(ports, path, &SerialPortInfo::path);
    tellFound(port != ports.end() ? 1 : 0);
    if (port != ports.end())
        openPort(*port);
    else
        Q_EMIT left(path);
}

void PortFinder::openPort(const SerialPortInfo& port) {
    if (!port.isAquelonDevice()) {
        Q_EMIT failed(YMessageError::PortWrongType{port.name});
        return;
    }
    if (m_port) {
        if (m_port->info().path == port.path) {
            SPDLOG_INFO(fmt::format("Aquelon device {} is already open!", describe(port)));
            return;
        }
        Q_EMIT ended(std::nullopt);
    }
    const bool isRetry = m_reportedOpenFailure && m_reportedOpenFailure->path == port.path;
    spdlog::log(isRetry ? spdlog::level::trace : spdlog::level::info,
                fmt::format("opening Aquelon device {}", describe(port)));
    m_port = m_ports.port(port);
    m_port->setDelegate(this);
    Q_EMIT opening(*m_port);
    m_port->open();
    // A port that failed at once is not held any more.
    if (m_port && !m_isAccepted)
        m_openTimer.start(m_intervals.open, true);
}

void PortFinder::serialPortWasOpened(SerialPort& port) {
    if (&port != m_port.get())
        return;
    m_isOpen = true;
    m_reportedOpenFailure.reset();
    Q_EMIT opened();
}

void PortFinder::accept() {
    m_isAccepted = true;
    m_openTimer.stop();
}

void PortFinder::onOpenTimeout() {
    if (!m_port)
        return;
    // The event loop may have been held up, not the device.
    m_port->deliverPending();
    if (m_port && !m_isAccepted && !m_openTimer.isActive())
        Q_EMIT timedOut();
}

void PortFinder::refuse() {
    if (m_port)
        m_refusedPath = m_port->info().path;
    stop();
}

// The end

void PortFinder::close() {
    m_openTimer.stop();
    if (!m_port)
        return;
    SPDLOG_TRACE("closing port...");
    SerialPort* const port = m_closedPorts.emplace_back(std::move(m_port)).get();
    m_isOpen = false;
    m_isAccepted = false;
    port->close();
    port->setDelegate(nullptr);
    QMetaObject::invokeMethod(
        this, [this] { m_closedPorts.clear(); }, Qt::QueuedConnection);
}

void PortFinder::serialPortWasClosed(SerialPort& port) {
    SPDLOG_INFO("port was closed");
    if (&port == m_port.get())
        Q_EMIT ended(YMessageError::portClosed(YMessageError::PortClosedUnexpectedly{}));
}

void PortFinder::serialPortWasRemovedFromSystem(SerialPort& port) {
    if (&port != m_port.get())
        return;
    const std::string path = port.info().path;
    Q_EMIT ended(YMessageError::portClosed(YMessageError::PortRemoved{}));
    Q_EMIT left(path);
}

void PortFinder::serialPortDidEncounterError(SerialPort& port,
                                             const YMessageError::PortError& error) {
    if (&port != m_port.get())
        return;
    if (m_isOpen) {
        Q_EMIT failed(error);
        return;
    }
    // Not opened: let go, so that the next look tries again, and say each reason once.
    OpenFailure failure{port.info().path, error};
    if (m_reportedOpenFailure == failure) {
        Q_EMIT ended(std::nullopt);
        return;
    }
    m_reportedOpenFailure = std::move(failure);
    Q_EMIT ended(YMessageError(error));
}

void PortFinder::serialPortDidReceive(SerialPort& port, std::span<const std::uint8_t> bytes) {
    if (&port == m_port.get())
        Q_EMIT received(bytes);
}

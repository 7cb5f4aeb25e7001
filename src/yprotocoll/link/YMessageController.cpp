#include "yprotocoll/link/YMessageController.h"

#include "yprotocoll/YAnswers.h"
#include "yprotocoll/YCommands.h"

#include <spdlog/spdlog.h>

#include <algorithm>

namespace {

constexpr int supportedEntrySize = 3;

bool isSupported(DeviceVersion version) {
    return version.major > 1 || (version.major == 1 && version.minor >= 1);
}

std::string describe(const SerialPortInfo& port) {
    return port.name + " (" + port.path + ")";
}

void traceBytes(std::span<const std::uint8_t> bytes) {
    if (!spdlog::should_log(spdlog::level::trace))
        return;
    SPDLOG_TRACE("[");
    int index = 0;
    for (const std::uint8_t byte : bytes)
        SPDLOG_TRACE("    {:2}: {:3}", index++, byte);
    SPDLOG_TRACE("]");
}

/// The answers about all channels have one number. A second answer about the channel before, as
/// comes of a command repeated too early, would stand for one that may never have arrived.
bool isAboutAnotherChannel(const YAnswer& answer, const YCommand& command) {
    const auto* const sequence = dynamic_cast<const AnswerSequenceData*>(&answer);
    return sequence && !command.data().empty() && command.data().front() != sequence->channel;
}

} // namespace

/// One `sendCommands`.
struct YMessageController::ListTransfer {
    std::deque<YCommand> commands; ///< still to send
    std::vector<AnswerPtr> answers;
    AnswersCallback callback;
};

YMessageController::YMessageController(SerialPortManager& ports, ModalPause& pause)
    : YMessageController(ports, pause, Intervals{}) {}

YMessageController::YMessageController(SerialPortManager& ports, ModalPause& pause,
                                       Intervals intervals)
    : m_ports(ports), m_pause(pause), m_intervals(intervals), m_scanTimer(pause, Qt::CoarseTimer),
      m_sendTimer(pause, Qt::PreciseTimer), m_openTimer(pause, Qt::PreciseTimer) {
    m_streamTimer.setSingleShot(true);
    m_streamTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_scanTimer, &PausingTimer::timeout, this, &YMessageController::onScanTimeout);
    connect(&m_sendTimer, &PausingTimer::timeout, this, &YMessageController::onSendTimeout);
    connect(&m_openTimer, &PausingTimer::timeout, this, &YMessageController::onOpenTimeout);
    connect(&m_streamTimer, &QTimer::timeout, this, &YMessageController::onStreamTimer);
    m_parser.setDelegate(this);
    m_ports.setDelegate(this);
}

YMessageController::~YMessageController() {
    m_ports.setDelegate(nullptr);
    if (m_port) {
        m_port->setDelegate(nullptr);
        m_port->close();
    }
}

// Discovery

std::vector<SerialPortInfo> YMessageController::availablePorts() const {
    std::vector<SerialPortInfo> ports = m_ports.availablePorts();
    std::erase_if(ports, [](const SerialPortInfo& port) { return !port.isAquelonDevice(); });
    return ports;
}

void YMessageController::run() {
    onScanTimer();
    m_scanTimer.start(m_intervals.scan, false);
}

void YMessageController::stop() {
    m_scanTimer.stop();
    close();
}

void YMessageController::onScanTimer() {
    if (m_port)
        return;
    if (m_pathWeAreLookingFor) {
        openPath(*m_pathWeAreLookingFor);
        return;
    }
    const auto ports = availablePorts();
    foundPorts(ports.size());
    if (ports.size() == 1)
        openPort(ports.front());
}

void YMessageController::onScanTimeout() {
    // The loss of a link is told before it is looked for again, and who is told may show a dialog:
    // a link opened just before would stand behind it with its answers overdue.
    if (m_lossesToTell > 0)
        m_scanTimer.expire(); // comes again behind the report
    else
        onScanTimer();
}

void YMessageController::serialPortsChanged() {
    m_scanTimer.expire();
}

// Opening

void YMessageController::open(const SerialPortInfo& port) {
    // Who asks by hand wants to hear the reason again.
    m_reportedOpenFailure.reset();
    openPort(port);
}

void YMessageController::openWithPath(const std::string& path) {
    // No port has an empty path: looking for it alone would end discovery for the rest of the run.
    if (path.empty())
        return;
    m_reportedOpenFailure.reset();
    m_pathWeAreLookingFor = path;
    openPath(path);
}

void YMessageController::openPath(const std::string& path) {
    const auto ports = availablePorts();
    const auto port = std::ranges::find(ports, path, &SerialPortInfo::path);
    foundPorts(port != ports.end() ? 1 : 0);
    if (port != ports.end())
        openPort(*port);
}

void YMessageController::foundPorts(std::size_t count) {
    if (count == 0)
        m_reportedOpenFailure.reset();
    later([this, count] {
        if (m_delegate)
            m_delegate->messageControllerFoundPorts(count);
    });
}

void YMessageController::openPort(const SerialPortInfo& port) {
    if (!port.isAquelonDevice()) {
        report(YMessageError::PortWrongType{port.name});
        return;
    }
    if (m_port) {
        if (m_port->info().path == port.path) {
            SPDLOG_INFO("Aquelon device {} is already open!", describe(port));
            return;
        }
        close();
    }
    const bool isRetry = m_reportedOpenFailure && m_reportedOpenFailure->path == port.path;
    spdlog::log(isRetry ? spdlog::level::trace : spdlog::level::info, "opening Aquelon device {}",
                describe(port));
    m_port = m_ports.port(port);
    m_parser.reset();
    m_port->setDelegate(this);
    m_port->open();
    // A port that failed at once is not held any more.
    if (m_port && !m_isConnected)
        m_openTimer.start(m_intervals.open, true);
}

void YMessageController::serialPortWasOpened(SerialPort& port) {
    if (&port != m_port.get())
        return;
    m_portIsOpen = true;
    m_reportedOpenFailure.reset();
    SPDLOG_TRACE("checking device version");
    enqueue(CmdGetVersion(), [this](const AnswerPtr& answer) { gotVersion(*answer); });
}

void YMessageController::gotVersion(const YAnswer& answer) {
    const auto* const version = dynamic_cast<const AnswerVersion*>(&answer);
    if (!version)
        return;
    const auto [major, minor] = version->version;
    if (!isSupported(version->version)) {
        refuse(YMessageError::DeviceVersion{major, minor});
        return;
    }
    SPDLOG_INFO("device version {}.{}", major, minor);
    m_device = DeviceInfo{version->version, version->build, version->deviceType, 0, 0};
    enqueue(CmdGetSequenceDataInfo(),
            [this](const AnswerPtr& info) { gotSequenceDataInfo(*info); });
}

void YMessageController::gotSequenceDataInfo(const YAnswer& answer) {
    const auto* const info = dynamic_cast<const AnswerSequenceDataInfo*>(&answer);
    if (!m_port || !m_device || !info)
        return;
    if (info->sizeOfEntry != supportedEntrySize) {
        refuse(YMessageError::portClosed(YMessageError::SequenceDataFormat{}));
        return;
    }
    m_device->channelCount = info->channelCount;
    m_device->maxPointsInSeq = info->maxPoints;
    m_openTimer.stop();
    m_isConnected = true;
    later([this] {
        // Lost again in between: the loss alone is told.
        if (m_delegate && m_isConnected)
            m_delegate->messageControllerDidOpen();
    });
}

void YMessageController::onOpenTimeout() {
    if (!m_port)
        return;
    // The event loop may have been held up, not the device.
    m_port->deliverPending();
    if (m_port && !m_isConnected && !m_openTimer.isActive())
        refuse(YMessageError::portClosed(YMessageError::OpenTimeout{}));
}

/// Ends the link to a device that discovery would only find unfit again.
void YMessageController::refuse(const YMessageError& error) {
    m_scanTimer.stop();
    close();
    report(error);
}

void YMessageController::close() {
    m_device.reset();
    m_sendQueue.clear();
    m_openTimer.stop();
    m_sendTimer.stop();
    // The answer that would carry the stream on will not come.
    m_streamTimer.stop();
    m_streamIsRunning = false;
    if (!m_port)
        return;
    SPDLOG_TRACE("closing port...");
    SerialPort* const port = m_closedPorts.emplace_back(std::move(m_port)).get();
    m_portIsOpen = false;
    m_isConnected = false;
    port->close();
    port->setDelegate(nullptr);
    later([this] { m_closedPorts.clear(); });
}

// Sending

void YMessageController::send(YCommand command, AnswerCallback callback) {
    enqueue(std::move(command), [this, callback = std::move(callback)](const AnswerPtr& answer) {
        if (callback)
            later([callback, answer] { callback(*answer); });
    });
}

void YMessageController::enqueue(YCommand command, DirectCallback onAnswer) {
    if (!m_port) {
        report(YMessageError::PortClosedSend{});
        return;
    }
    m_sendQueue.push_back({std::move(command), std::move(onAnswer)});
    if (m_sendQueue.size() == 1)
        sendFirstCmdInQueue();
}

void YMessageController::sendFirstCmdInQueue() {
    if (!m_port || m_sendQueue.empty())
        return;
    const YCommand& command = m_sendQueue.front().command;
    if (spdlog::should_log(spdlog::level::trace))
        SPDLOG_TRACE("--> {}", command.description());
    const std::uint64_t thisWrite = ++m_writeCount;
    m_port->send(command.frame());
    // A port may deliver the answer, and so the next command, before it returns.
    if (m_port && m_writeCount == thisWrite && !m_sendQueue.empty())
        m_sendTimer.start(m_intervals.answer, true);
}

void YMessageController::onSendTimeout() {
    if (!m_port || m_sendQueue.empty())
        return;
    const std::uint64_t lastWrite = m_writeCount;
    m_port->deliverPending();
    if (!m_port || m_sendQueue.empty() || m_writeCount != lastWrite)
        return;
    ++m_timeoutCount;
    report(YMessageError::AnswerTimeout{m_timeoutCount, m_sendQueue.front().command.id()});
    if (m_timeoutCount < m_intervals.maxTimeouts) {
        sendFirstCmdInQueue();
        return;
    }
    close();
    report(YMessageError::portClosed(YMessageError::AnswerTooManyTimeouts{}));
}

void YMessageController::sendCommands(std::vector<YCommand> commands, AnswersCallback callback) {
    if (commands.empty()) {
        if (callback)
            callback({});
        return;
    }
    sendNextOfList(std::make_shared<ListTransfer>(ListTransfer{
        {std::make_move_iterator(commands.begin()), std::make_move_iterator(commands.end())},
        {},
        std::move(callback)}));
}

void YMessageController::sendNextOfList(const std::shared_ptr<ListTransfer>& transfer) {
    if (transfer->commands.empty()) {
        if (transfer->callback)
            later([transfer] { transfer->callback(transfer->answers); });
        return;
    }
    YCommand command = std::move(transfer->commands.front());
    transfer->commands.pop_front();
    enqueue(std::move(command), [this, transfer](const AnswerPtr& answer) {
        transfer->answers.push_back(answer);
        sendNextOfList(transfer);
    });
}

void YMessageController::sendStream(YCommand command, std::chrono::milliseconds interval,
                                    AnswerCallback callback) {
    if (!m_port) {
        m_nextStreamCmd.reset();
        return;
    }
    m_nextStreamCmd =
        StreamCommand{std::move(command), ++m_streamSerial, interval, std::move(callback)};
    if (m_streamIsRunning)
        return;
    m_streamIsRunning = true;
    enqueue(m_nextStreamCmd->command, [this, stream = *m_nextStreamCmd](const AnswerPtr& answer) {
        m_answeredStreamSerial = stream.serial;
        m_streamTimer.start(stream.interval);
        if (stream.callback)
            later([callback = stream.callback, answer] { callback(*answer); });
    });
}

void YMessageController::dropWaitingStream() {
    m_nextStreamCmd.reset();
}

void YMessageController::onStreamTimer() {
    m_streamIsRunning = false;
    const auto newest = std::exchange(m_nextStreamCmd, std::nullopt);
    if (newest && newest->serial != m_answeredStreamSerial)
        sendStream(newest->command, newest->interval, newest->callback);
}

// Receiving

void YMessageController::serialPortDidReceive(SerialPort& port,
                                              std::span<const std::uint8_t> bytes) {
    traceBytes(bytes);
    if (&port == m_port.get())
        m_parser.receivedData(bytes);
}

void YMessageController::answerParserGotAnswer(AnswerPtr answer) {
    // Answers behind the one that closed the link.
    if (!m_port)
        return;
    if (spdlog::should_log(spdlog::level::trace))
        SPDLOG_TRACE("<-- {}", answer->description());
    if (m_sendQueue.empty()) {
        report(YMessageError::AnswerUnexpected{answer->id()});
        return;
    }
    const std::uint8_t expected = m_sendQueue.front().command.expectedAnswer();
    if (answer->id() != expected) {
        report(YMessageError::AnswerWrongId{expected, answer->id()});
        return;
    }
    if (isAboutAnotherChannel(*answer, m_sendQueue.front().command)) {
        report(YMessageError::AnswerUnexpected{answer->id()});
        return;
    }
    answer->logVerbose();
    m_timeoutCount = 0;
    m_sendTimer.stop();
    const DirectCallback onAnswer = std::move(m_sendQueue.front().onAnswer);
    m_sendQueue.pop_front();
    sendFirstCmdInQueue();
    if (onAnswer)
        onAnswer(answer);
}

void YMessageController::answerParserGotError(const YMessageError& error) {
    report(error);
}

// Loss of the port

void YMessageController::serialPortWasClosed(SerialPort& port) {
    if (&port == m_port.get()) {
        close();
        report(YMessageError::portClosed(YMessageError::PortClosedUnexpectedly{}));
    }
    SPDLOG_INFO("port was closed");
}

void YMessageController::serialPortWasRemovedFromSystem(SerialPort& port) {
    if (&port != m_port.get())
        return;
    close();
    report(YMessageError::portClosed(YMessageError::PortRemoved{}));
}

void YMessageController::serialPortDidEncounterError(SerialPort& port, const std::string& error) {
    if (&port != m_port.get())
        return;
    if (m_portIsOpen) {
        report(YMessageError::PortError{error});
        return;
    }
    // Not opened: let go, so that the next scan tries again, and say each reason once.
    const OpenFailure failure{port.info().path, error};
    close();
    if (m_reportedOpenFailure == failure)
        return;
    m_reportedOpenFailure = failure;
    report(YMessageError::PortError{error});
}

// Reports

void YMessageController::later(std::function<void()> call) {
    QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection);
}

void YMessageController::report(const YMessageError& error) {
    const int losses = error.is<YMessageError::PortClosedError>() ? 1 : 0;
    m_lossesToTell += losses;
    later([this, error, losses] {
        m_lossesToTell -= losses;
        if (m_delegate)
            m_delegate->messageControllerGotError(error);
    });
}

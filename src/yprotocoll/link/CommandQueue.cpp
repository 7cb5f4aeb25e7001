#include "yprotocoll/link/CommandQueue.h"

#include "yprotocoll/YAnswers.h"
#include "yprotocoll/link/SerialPort.h"

#include <spdlog/spdlog.h>

namespace {

using namespace std::chrono_literals;

void traceBytes(std::span<const std::uint8_t> bytes) {
    if (!spdlog::should_log(spdlog::level::trace))
        return;
    SPDLOG_TRACE("[");
    int index = 0;
    for (const std::uint8_t byte : bytes)
        SPDLOG_TRACE(fmt::format("    {:2}: {:3}", index++, byte));
    SPDLOG_TRACE("]");
}

} // namespace

/// One `sendCommands`.
struct CommandQueue::ListTransfer {
    std::deque<YCommand> commands; ///< still to send
    std::vector<AnswerPtr> answers;
    AnswersCallback callback;
    AnswerCallback onEach;
};

CommandQueue::CommandQueue(ModalPause& pause, std::chrono::milliseconds answerTime, int maxTimeouts)
    : m_answerTime(answerTime), m_maxTimeouts(maxTimeouts), m_sendTimer(pause, Qt::PreciseTimer) {
    m_streamTimer.setSingleShot(true);
    m_streamTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_sendTimer, &PausingTimer::timeout, this, &CommandQueue::onSendTimeout);
    connect(&m_streamTimer, &QTimer::timeout, this, &CommandQueue::onStreamTimer);
    m_parser.setDelegate(this);
}

void CommandQueue::start(SerialPort& port) {
    m_port = &port;
    m_parser.reset();
    m_linkNamesChannels = true;
    m_lastChannelAnswer.reset();
}

void CommandQueue::stop() {
    m_port = nullptr;
    m_sendQueue.clear();
    m_sendTimer.stop();
    // The answer that would carry the stream on will not come.
    m_streamTimer.stop();
    m_streamIsRunning = false;
    m_isStreamHurried = false;
}

// Sending

void CommandQueue::send(YCommand command, AnswerCallback callback) {
    enqueue(std::move(command), [this, callback = std::move(callback)](const AnswerPtr& answer) {
        if (callback)
            later([callback, answer] { callback(*answer); });
    });
}

void CommandQueue::enqueue(YCommand command, DirectCallback onAnswer) {
    if (!m_port) {
        Q_EMIT failed(YMessageError::PortClosedSend{});
        return;
    }
    m_sendQueue.push_back({std::move(command), std::move(onAnswer)});
    if (m_sendQueue.size() == 1)
        sendFirstCmdInQueue();
}

void CommandQueue::sendFirstCmdInQueue() {
    if (!m_port || m_sendQueue.empty())
        return;
    QueuedCommand& first = m_sendQueue.front();
    if (spdlog::should_log(spdlog::level::trace))
        SPDLOG_TRACE(fmt::format("--> {}", first.command.description()));
    ++first.writes;
    const std::uint64_t thisWrite = ++m_writeCount;
    const auto frame = first.command.frame();
    Q_EMIT written(first.command.name(), frame);
    m_port->send(frame);
    // A port may deliver the answer, and so the next command, before it returns.
    if (m_port && m_writeCount == thisWrite && !m_sendQueue.empty())
        m_sendTimer.start(m_answerTime, true);
}

void CommandQueue::onSendTimeout() {
    if (!m_port || m_sendQueue.empty())
        return;
    const std::uint64_t lastWrite = m_writeCount;
    m_port->deliverPending();
    if (!m_port || m_sendQueue.empty() || m_writeCount != lastWrite)
        return;
    ++m_timeoutCount;
    Q_EMIT failed(YMessageError::AnswerTimeout{m_timeoutCount, m_sendQueue.front().command.id()});
    if (m_timeoutCount < m_maxTimeouts)
        sendFirstCmdInQueue();
    else
        Q_EMIT gaveUp();
}

void CommandQueue::sendCommands(std::vector<YCommand> commands, AnswersCallback callback,
                                AnswerCallback onEach) {
    if (commands.empty()) {
        if (callback)
            callback({});
        return;
    }
    sendNextOfList(std::make_shared<ListTransfer>(ListTransfer{
        {std::make_move_iterator(commands.begin()), std::make_move_iterator(commands.end())},
        {},
        std::move(callback),
        std::move(onEach)}));
}

void CommandQueue::sendNextOfList(const std::shared_ptr<ListTransfer>& transfer) {
    if (transfer->commands.empty()) {
        if (transfer->callback)
            later([transfer] { transfer->callback(transfer->answers); });
        return;
    }
    YCommand command = std::move(transfer->commands.front());
    transfer->commands.pop_front();
    enqueue(std::move(command), [this, transfer](const AnswerPtr& answer) {
        transfer->answers.push_back(answer);
        if (transfer->onEach)
            later([transfer, answer] { transfer->onEach(*answer); });
        sendNextOfList(transfer);
    });
}

void CommandQueue::sendStream(YCommand command, std::chrono::milliseconds interval,
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
        m_streamTimer.start(std::exchange(m_isStreamHurried, false) ? 0ms : stream.interval);
        if (stream.callback)
            later([callback = stream.callback, answer] { callback(*answer); });
    });
}

void CommandQueue::hurryStream() {
    if (m_streamTimer.isActive())
        m_streamTimer.start(0ms);
    else
        m_isStreamHurried = m_streamIsRunning;
}

void CommandQueue::onStreamTimer() {
    m_streamIsRunning = false;
    const auto newest = std::exchange(m_nextStreamCmd, std::nullopt);
    if (newest && newest->serial != m_answeredStreamSerial)
        sendStream(newest->command, newest->interval, newest->callback);
}

// Receiving

void CommandQueue::receive(std::span<const std::uint8_t> bytes) {
    traceBytes(bytes);
    m_parser.receivedData(bytes);
}

void CommandQueue::answerParserGotAnswer(AnswerPtr answer) {
    // Answers behind the one that closed the link.
    if (!m_port)
        return;
    if (spdlog::should_log(spdlog::level::trace))
        SPDLOG_TRACE(fmt::format("<-- {}", answer->description()));
    if (m_sendQueue.empty()) {
        Q_EMIT failed(YMessageError::AnswerUnexpected{answer->id()});
        return;
    }
    const std::uint8_t expected = m_sendQueue.front().command.expectedAnswer();
    if (answer->id() != expected) {
        Q_EMIT failed(YMessageError::AnswerWrongId{expected, answer->id()});
        return;
    }
    if (isDouble(*answer)) {
        Q_EMIT failed(YMessageError::AnswerUnexpected{answer->id()});
        return;
    }
    answer->logVerbose();
    m_timeoutCount = 0;
    m_sendTimer.stop();
    const QueuedCommand answered = std::move(m_sendQueue.front());
    m_sendQueue.pop_front();
    if (const auto* sequence = dynamic_cast<const AnswerSequenceData*>(answer.get()))
        m_lastChannelAnswer = {answer->id(), sequence->channel, answered.writes};
    sendFirstCmdInQueue();
    if (answered.onAnswer)
        answered.onAnswer(answer);
}

bool CommandQueue::isDouble(const YAnswer& answer) {
    const auto* const sequence = dynamic_cast<const AnswerSequenceData*>(&answer);
    QueuedCommand& inFlight = m_sendQueue.front();
    const auto& payload = inFlight.command.data();
    if (!m_linkNamesChannels || !sequence || payload.empty() ||
        payload.front() == sequence->channel)
        return false;
    if (!m_lastChannelAnswer || m_lastChannelAnswer->number != answer.id() ||
        m_lastChannelAnswer->channel != sequence->channel)
        return false;
    if (inFlight.writes < 2 || inFlight.doubles < m_lastChannelAnswer->writes) {
        ++inFlight.doubles;
        return true;
    }
    SPDLOG_WARN("the controller does not tell which channel it means");
    m_linkNamesChannels = false;
    return false;
}

void CommandQueue::answerParserGotError(const YMessageError& error) {
    Q_EMIT failed(error);
}

void CommandQueue::later(std::function<void()> call) {
    QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection);
}

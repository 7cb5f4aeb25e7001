#pragma once

#include "yprotocoll/YAnswerParser.h"
#include "yprotocoll/YCommand.h"
#include "yprotocoll/YMessageError.h"
#include "yprotocoll/link/PausingTimer.h"

#include <QTimer>

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class SerialPort;
class YAnswer;

/// Sends commands one at a time, writes again what is not answered in time, and finds out which
/// answer belongs to which command.
///
/// An answer belongs to the command in flight when it has the number that goes with it. All answers
/// about channels share one number, and one that comes twice would be taken for the next channel's:
/// therefore an answer that names the channel of the command before is dropped as often as that
/// command was written. Controllers that do not tell which channel they mean are known by what they
/// answer once the command was written again; from then on the link goes by numbers alone.
class CommandQueue : public QObject, private YAnswerParserDelegate {
    Q_OBJECT

public:
    using AnswerPtr = std::shared_ptr<const YAnswer>;
    using AnswerCallback = std::function<void(const YAnswer&)>;
    using AnswersCallback = std::function<void(const std::vector<AnswerPtr>&)>;
    using DirectCallback = std::function<void(const AnswerPtr&)>;

    /// `pause` must outlive the queue. The `maxTimeouts`th time-out in a row, counted over all
    /// links, is the last.
    CommandQueue(ModalPause& pause, std::chrono::milliseconds answerTime, int maxTimeouts);

    /// Commands go to `port` until `stop()`.
    void start(SerialPort& port);
    /// Drops all commands; their callbacks are never called.
    void stop();
    /// To be told of everything that comes from the port.
    void receive(std::span<const std::uint8_t> bytes);

    /// `onAnswer` is called within the answer's arrival, after the next command was written.
    void enqueue(YCommand command, DirectCallback onAnswer);
    // The callbacks of these come from the event loop.
    void send(YCommand command, AnswerCallback callback);
    void sendCommands(std::vector<YCommand> commands, AnswersCallback callback,
                      AnswerCallback onEach);
    void sendStream(YCommand command, std::chrono::milliseconds interval, AnswerCallback callback);
    void dropWaitingStream() { m_nextStreamCmd.reset(); }
    void hurryStream();

Q_SIGNALS:
    void failed(const YMessageError& error);
    /// These bytes are going to the port now.
    void written(const std::string& command, std::span<const std::uint8_t> bytes);
    /// There were too many time-outs.
    void gaveUp();

private:
    struct QueuedCommand {
        YCommand command;
        DirectCallback onAnswer;
        int writes = 0;
        int doubles = 0; ///< dropped answers to the command before, while this one was in flight
    };
    /// The last answer about a channel.
    struct ChannelAnswer {
        std::uint8_t number;
        std::uint8_t channel;
        int writes; ///< of its command
    };
    struct ListTransfer;
    struct StreamCommand {
        YCommand command;
        std::uint64_t serial = 0; ///< tells one command from another with the same bytes
        std::chrono::milliseconds interval{};
        AnswerCallback callback;
    };

    void onSendTimeout();
    void onStreamTimer();
    void sendFirstCmdInQueue();
    void sendNextOfList(const std::shared_ptr<ListTransfer>& transfer);
    bool isDouble(const YAnswer& answer);
    void answerParserGotAnswer(AnswerPtr answer) override;
    void answerParserGotError(const YMessageError& error) override;
    void later(std::function<void()> call);

    const std::chrono::milliseconds m_answerTime;
    const int m_maxTimeouts;
    SerialPort* m_port = nullptr;
    YAnswerParser m_parser;
    std::deque<QueuedCommand> m_sendQueue; ///< the first one is in flight
    std::uint64_t m_writeCount = 0;
    int m_timeoutCount = 0;
    bool m_linkNamesChannels = true;
    std::optional<ChannelAnswer> m_lastChannelAnswer;

    std::optional<StreamCommand> m_nextStreamCmd;
    std::uint64_t m_streamSerial = 0;
    std::uint64_t m_answeredStreamSerial = 0;
    bool m_streamIsRunning = false; ///< a stream command is in flight or its interval runs
    bool m_isStreamHurried = false; ///< no interval follows the stream command in flight

    PausingTimer m_sendTimer;
    QTimer m_streamTimer;
};

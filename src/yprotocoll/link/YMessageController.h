#pragma once

#include "yprotocoll/DeviceInfo.h"
#include "yprotocoll/YAnswerParser.h"
#include "yprotocoll/YCommand.h"
#include "yprotocoll/YMessageError.h"
#include "yprotocoll/link/ModalPause.h"
#include "yprotocoll/link/PausingTimer.h"
#include "yprotocoll/link/SerialPort.h"

#include <QObject>

#include <QTimer>

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class YAnswer;

/// Receiver of what happens to the link. Called from the event loop, never from inside a call into
/// the controller or a port's event, so that it may open a dialog. Reports come in the order in
/// which things happened; before a report that the link was closed, it has been closed.
class YMessageControllerDelegate {
public:
    /// The controller is open, its version and data format accepted.
    virtual void messageControllerDidOpen() = 0;
    virtual void messageControllerGotError(const YMessageError& error) = 0;
    /// At every look for a controller: how many there are, only the one asked for by its path being
    /// counted. More than one are left to the person.
    virtual void messageControllerFoundPorts(std::size_t /*count*/) {}

protected:
    ~YMessageControllerDelegate() = default;
};

/// Owns the one serial link to the lamp's controller: finds it, opens it, proves that it speaks a
/// supported version, and carries commands one at a time with time-outs and answer matching.
///
/// Main thread only. Failures go to the delegate as `YMessageError`; nothing here opens a dialog.
/// Callbacks are called at most once, from the event loop, in the order of the reports; the
/// callback of a command whose link is lost is never called.
class YMessageController : public QObject,
                           private SerialPortDelegate,
                           private SerialPortManagerDelegate,
                           private YAnswerParserDelegate {
    Q_OBJECT

public:
    struct Intervals {
        std::chrono::milliseconds scan{2000};
        std::chrono::milliseconds open{4000};
        std::chrono::milliseconds answer{200};
        int maxTimeouts = 5; ///< consecutive ones, the last of which closes the link
    };
    using AnswerPtr = std::shared_ptr<const YAnswer>;
    using AnswerCallback = std::function<void(const YAnswer&)>;
    using AnswersCallback = std::function<void(const std::vector<AnswerPtr>&)>;

    /// `ports` and `pause` must outlive the controller.
    YMessageController(SerialPortManager& ports, ModalPause& pause, Intervals intervals);
    YMessageController(SerialPortManager& ports, ModalPause& pause);
    ~YMessageController() override;

    /// The controller of the running program, once `main` has shared it. Only who composes the
    /// program asks for it.
    static YMessageController& sharedInstance() { return *s_sharedInstance; }
    static void share(YMessageController& controller) { s_sharedInstance = &controller; }

    /// What the controller's timers obey; the program says there when a modal window is shown.
    ModalPause& modalPause() const { return m_pause; }

    /// What the open sequence learnt; none while no device is open.
    const std::optional<DeviceInfo>& device() const { return m_device; }
    /// True only after the whole open sequence succeeded.
    bool isConnected() const { return m_isConnected; }
    /// The present ports that are the controller's.
    std::vector<SerialPortInfo> availablePorts() const;
    void setDelegate(YMessageControllerDelegate* delegate) { m_delegate = delegate; }

    /// Starts discovery: a scan at once, then one every `Intervals::scan`, and one when the system
    /// reports that the ports changed. A scan opens the only controller present, or the path asked
    /// for.
    void run();
    /// Stops discovery and closes the link.
    void stop();
    /// Opens this port, after closing another one. Reports PortWrongType for a port that is not the
    /// controller's. When the port cannot be opened this is reported as PortError; discovery tries
    /// again and reports only what is new.
    void open(const SerialPortInfo& port);
    /// Opens the controller at this device file, now or once it is plugged in; from then on
    /// discovery looks for no other.
    void openWithPath(const std::string& path);
    /// Drops the link and everything in flight; reports nothing.
    void close();

    /// Queues a command. Without an open port: reports PortClosedSend and drops the command.
    void send(YCommand command, AnswerCallback callback = {});
    /// Sends the commands one after another and delivers all answers at once, in command order. An
    /// empty list is delivered before this returns.
    void sendCommands(std::vector<YCommand> commands, AnswersCallback callback);
    /// For values that change faster than the controller answers: one command at most is in flight,
    /// the newest goes out last, and after each answer the next waits `interval`.
    /// Dropped silently without an open port. `callback` gets the answer, unless a newer command
    /// takes this one's place before it goes out.
    void sendStream(YCommand command, std::chrono::milliseconds interval,
                    AnswerCallback callback = {});
    /// Forgets the stream's command that waits for its turn, if any. What is in flight stays so,
    /// and the interval behind it goes on.
    void dropWaitingStream();

private:
    using DirectCallback = std::function<void(const AnswerPtr&)>;
    struct QueuedCommand {
        YCommand command;
        DirectCallback onAnswer; ///< called within the answer's arrival
    };
    struct ListTransfer;
    struct StreamCommand {
        YCommand command;
        std::uint64_t serial = 0; ///< tells one command from another with the same bytes
        std::chrono::milliseconds interval{};
        AnswerCallback callback;
    };
    struct OpenFailure {
        std::string path;
        std::string text;
        bool operator==(const OpenFailure&) const = default;
    };

    // timers
    void onScanTimer();
    void onScanTimeout();
    void onOpenTimeout();
    void onSendTimeout();
    void onStreamTimer();

    // opening
    void foundPorts(std::size_t count);
    void openPort(const SerialPortInfo& port);
    void openPath(const std::string& path);
    void gotVersion(const YAnswer& answer);
    void gotSequenceDataInfo(const YAnswer& answer);
    void refuse(const YMessageError& error);

    // sending
    void enqueue(YCommand command, DirectCallback onAnswer);
    void sendFirstCmdInQueue();
    void sendNextOfList(const std::shared_ptr<ListTransfer>& transfer);

    // reports, all from the event loop
    void later(std::function<void()> call);
    void report(const YMessageError& error);

    void serialPortWasOpened(SerialPort& port) override;
    void serialPortWasClosed(SerialPort& port) override;
    void serialPortWasRemovedFromSystem(SerialPort& port) override;
    void serialPortDidEncounterError(SerialPort& port, const std::string& error) override;
    void serialPortDidReceive(SerialPort& port, std::span<const std::uint8_t> bytes) override;
    void serialPortsChanged() override;
    void answerParserGotAnswer(AnswerPtr answer) override;
    void answerParserGotError(const YMessageError& error) override;

    static inline YMessageController* s_sharedInstance = nullptr;

    SerialPortManager& m_ports;
    ModalPause& m_pause;
    const Intervals m_intervals;
    YMessageControllerDelegate* m_delegate = nullptr;

    std::optional<DeviceInfo> m_device;
    std::unique_ptr<SerialPort> m_port; ///< held from `open()` to `close()`
    bool m_portIsOpen = false;
    bool m_isConnected = false;
    YAnswerParser m_parser;
    std::deque<QueuedCommand> m_sendQueue; ///< the first one is in flight
    std::uint64_t m_writeCount = 0;
    int m_timeoutCount = 0;
    int m_lossesToTell = 0; ///< reports on their way to the delegate
    std::optional<std::string> m_pathWeAreLookingFor;
    std::optional<OpenFailure> m_reportedOpenFailure;

    std::optional<StreamCommand> m_nextStreamCmd;
    std::uint64_t m_streamSerial = 0;
    std::uint64_t m_answeredStreamSerial = 0;
    bool m_streamIsRunning = false; ///< a stream command is in flight or its interval runs

    PausingTimer m_scanTimer;
    PausingTimer m_sendTimer;
    PausingTimer m_openTimer;
    QTimer m_streamTimer;
    /// Closed ports wait here for the event loop: one of their reports may have closed them.
    std::vector<std::unique_ptr<SerialPort>> m_closedPorts;
};

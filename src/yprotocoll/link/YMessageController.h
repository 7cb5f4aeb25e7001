#pragma once

#include "yprotocoll/DeviceInfo.h"
#include "yprotocoll/YCommand.h"
#include "yprotocoll/YMessageError.h"
#include "yprotocoll/link/CommandQueue.h"
#include "yprotocoll/link/ModalPause.h"
#include "yprotocoll/link/PortFinder.h"
#include "yprotocoll/link/SerialPort.h"

#include <QObject>

#include <chrono>
#include <functional>
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

struct LinkIntervals {
    std::chrono::milliseconds scan{2000};
    std::chrono::milliseconds open{4000};
    std::chrono::milliseconds answer{200};
    /// What arrives is left alone for so long, in case another one arrives with it.
    std::chrono::milliseconds arrival{300};
    int maxTimeouts = 5; ///< consecutive ones, the last of which closes the link
};

/// Owns the one serial link to the lamp's controller: finds it, opens it, proves that it speaks a
/// supported version, and carries commands one at a time with time-outs and answer matching.
///
/// Main thread only. Failures go to the delegate as `YMessageError`; nothing here opens a dialog.
/// Callbacks are called at most once, from the event loop, in the order of the reports; the
/// callback of a command whose link is lost is never called.
///
///     YMessageController controller(ports, pause);
///     controller.setDelegate(&window); // hears messageControllerDidOpen(), then may send:
///     controller.run();                // looks for the controller from now on
///     controller.send(CmdGetTaskMode(), [](const YAnswer& answer) { show(answer); });
///     controller.sendCommands({CmdGetSequenceData(0, controller.device()),
///                              CmdGetSequenceData(1, controller.device())},
///                             [](const auto& answers) { show(answers); }); // all at once
///     controller.sendStream(CmdSetDemoModeLevels(254, 254), 1s); // while a slider moves
class YMessageController : public QObject {
    Q_OBJECT

public:
    using Intervals = LinkIntervals;
    using AnswerPtr = CommandQueue::AnswerPtr;
    using AnswerCallback = CommandQueue::AnswerCallback;
    using AnswersCallback = CommandQueue::AnswersCallback;

    /// `ports` and `pause` must outlive the controller.
    YMessageController(SerialPortManager& ports, ModalPause& pause, Intervals intervals = {});

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
    std::vector<SerialPortInfo> availablePorts() const { return m_finder.availablePorts(); }
    /// All serial ports of the system.
    std::vector<SerialPortInfo> allPorts() const { return m_finder.allPorts(); }
    /// The device file of the port that is open or being opened; empty when there is none.
    std::string portPath() const;
    void setDelegate(YMessageControllerDelegate* delegate) { m_delegate = delegate; }

    /// Starts discovery: a scan at once, then one every `Intervals::scan`, and one when the system
    /// reports that the ports changed. A scan opens the only controller present, or the path asked
    /// for. A controller that arrives is opened after `Intervals::arrival`, unless it was asked
    /// for.
    void run() { m_finder.run(); }
    /// Stops discovery and closes the link.
    void stop();
    /// Opens this port, after closing another one. Reports PortWrongType for a port that is not the
    /// controller's. When the port cannot be opened this is reported as PortError; discovery tries
    /// again and reports only what is new.
    void open(const SerialPortInfo& port) { m_finder.open(port); }
    /// Opens the controller at this device file, now or once it is plugged in; from then on
    /// discovery looks for no other.
    void openWithPath(const std::string& path) { m_finder.openWithPath(path); }
    /// As `openWithPath()`, but the present link goes on until it is closed or lost.
    void lookFor(const std::string& path) { m_finder.lookFor(path); }
    /// Drops the link and everything in flight; reports nothing.
    void close();

    /// Queues a command. Without an open port: reports PortClosedSend and drops the command.
    void send(YCommand command, AnswerCallback callback = {}) {
        m_queue.send(std::move(command), std::move(callback));
    }
    /// Sends the commands one after another and delivers all answers at once, in command order. An
    /// empty list is delivered before this returns. `onEach` gets each answer as it comes.
    void sendCommands(std::vector<YCommand> commands, AnswersCallback callback,
                      AnswerCallback onEach = {}) {
        m_queue.sendCommands(std::move(commands), std::move(callback), std::move(onEach));
    }
    /// For values that change faster than the controller answers: one command at most is in flight,
    /// the newest goes out last, and after each answer the next waits `interval`.
    /// Dropped silently without an open port. `callback` gets the answer, unless a newer command
    /// takes this one's place before it goes out.
    void sendStream(YCommand command, std::chrono::milliseconds interval,
                    AnswerCallback callback = {}) {
        m_queue.sendStream(std::move(command), interval, std::move(callback));
    }
    /// Forgets the stream's command that waits for its turn, if any. What is in flight stays so,
    /// and the interval behind it goes on.
    void dropWaitingStream() { m_queue.dropWaitingStream(); }
    /// The stream's command that waits for its turn goes out as soon as the line is free, without
    /// the interval before it.
    void hurryStream() { m_queue.hurryStream(); }

Q_SIGNALS:
    // What goes over the line, as it goes; for who only looks on.
    void written(const std::string& command, std::span<const std::uint8_t> bytes);
    void received(std::span<const std::uint8_t> bytes);
    /// The device at this path has left the bus, whatever the link was doing and whether or not
    /// there was one. In order with the delegate's reports, behind that of the link's end.
    void portLeft(const std::string& path);

private:
    void onFound(std::size_t count);
    void onOpened();
    void gotVersion(const YAnswer& answer);
    void gotSequenceDataInfo(const YAnswer& answer);
    void refuse(const YMessageError& error);
    void report(const YMessageError& error);
    void later(std::function<void()> call);

    static inline YMessageController* s_sharedInstance = nullptr;

    ModalPause& m_pause;
    YMessageControllerDelegate* m_delegate = nullptr;
    std::optional<DeviceInfo> m_device;
    bool m_isConnected = false;
    PortFinder m_finder;
    CommandQueue m_queue;
};

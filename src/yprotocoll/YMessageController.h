#pragma once

#include "yprotocoll/DeviceInfo.h"
#include "yprotocoll/PausingTimer.h"
#include "yprotocoll/SerialPort.h"
#include "yprotocoll/YAnswerParser.h"
#include "yprotocoll/YCommand.h"
#include "yprotocoll/YMessageError.h"

#include <QObject>

#include <chrono>
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
    void open(const SerialPortInfo& port);
    /// Opens the controller at this device file, now or once it is plugged in; from then on
    /// discovery looks for no other.
    void openWithPath(const std::string& path);
    /// Drops the link and everything in flight; reports nothing.
    void close();

    /// Queues a command. Without an open port: reports PortClosedSend and drops the command.
    void send(YCommand command, AnswerCallback callback = {});
    /// Sends the commands one after another and delivers all answers at once, in command order.
    void sendCommands(std::vector<YCommand> commands, AnswersCallback callback);
    /// For values that change faster than the controller answers: one command at most is in flight,
    /// the newest goes out last, and after each answer the next waits `interval`.
    /// Dropped silently without an open port.
    void sendStream(YCommand command, std::chrono::milliseconds interval);
};

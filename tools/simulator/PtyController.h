#pragma once

#include "simulator/ControllerLine.h"
#include "simulator/PtyPair.h"

#include <QObject>

#include <memory>
#include <string>

class QSocketNotifier;

/// A simulated controller at the other end of a real tty, from the moment it is plugged in until
/// its cable is pulled. Needs a running event loop.
class PtyController : public QObject {
    Q_OBJECT

public:
    /// Without a controller (null) the device says nothing, but what it receives is logged: some
    /// other serial device. Everything handed in must outlive it. Throws std::system_error.
    PtyController(SimulatedController* controller, FaultPlan& faults, WireLog& log,
                  const std::string& name, bool paced);
    ~PtyController() override;

    /// The tty that a program opens.
    const std::string& path() const { return m_pty.slavePath(); }
    /// True while a program has it open.
    bool isInUse() const { return m_users > 0; }

    /// Ends the tty: a program that has it open gets a hang-up. There is no way back.
    void hangUp();

Q_SIGNALS:
    void unplugRequested(std::chrono::milliseconds pluggedInAgainAfter);

private:
    void readMaster();
    void write(std::span<const std::uint8_t> bytes);
    void writePending();
    void watchUsers();
    void readUsers();

    PtyPair m_pty;
    WireLog& m_log;
    std::string m_name;
    std::vector<std::uint8_t> m_pending; ///< not yet taken by the tty, whose buffer is 4 KiB
    QSocketNotifier* m_readable = nullptr;
    QSocketNotifier* m_writable = nullptr;
    QSocketNotifier* m_usage = nullptr;
    int m_inotify = -1;
    int m_users = 0;
    std::unique_ptr<ControllerLine> m_line;
};

#include "simulator/PtyController.h"

#include <QSocketNotifier>

#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstddef>

PtyController::PtyController(SimulatedController* controller, FaultPlan& faults, WireLog& log,
                             const std::string& name, bool paced)
    : m_log(log), m_name(name) {
    if (controller) {
        m_line = std::make_unique<ControllerLine>(
            *controller, faults, log, name, paced,
            [this](std::span<const std::uint8_t> bytes) { write(bytes); });
        connect(m_line.get(), &ControllerLine::unplugRequested, this,
                &PtyController::unplugRequested);
    }
    m_readable = new QSocketNotifier(m_pty.master(), QSocketNotifier::Read, this);
    connect(m_readable, &QSocketNotifier::activated, this, &PtyController::readMaster);
    m_writable = new QSocketNotifier(m_pty.master(), QSocketNotifier::Write, this);
    m_writable->setEnabled(false);
    connect(m_writable, &QSocketNotifier::activated, this, &PtyController::writePending);
    watchUsers();
}

PtyController::~PtyController() {
    hangUp();
}

void PtyController::hangUp() {
    if (!m_pty.isOpen())
        return;
    m_readable->setEnabled(false);
    m_writable->setEnabled(false);
    m_pending.clear();
    m_pty.close();
    m_usage->setEnabled(false);
    ::close(m_inotify);
    m_inotify = -1;
    m_users = 0;
}

void PtyController::readMaster() {
    std::array<std::uint8_t, 4096> buffer{};
    const auto count = ::read(m_pty.master(), buffer.data(), buffer.size());
    if (count <= 0)
        return;
    const auto bytes = std::span(buffer).first(static_cast<std::size_t>(count));
    if (m_line)
        m_line->receive(bytes);
    else
        m_log.received(m_name, bytes, "foreign");
}

void PtyController::write(std::span<const std::uint8_t> bytes) {
    m_pending.insert(m_pending.end(), bytes.begin(), bytes.end());
    writePending();
}

void PtyController::writePending() {
    if (!m_pty.isOpen())
        return;
    const auto count = ::write(m_pty.master(), m_pending.data(), m_pending.size());
    if (count > 0)
        m_pending.erase(m_pending.begin(), m_pending.begin() + count);
    m_writable->setEnabled(!m_pending.empty());
}

// Openings and closings are seen through inotify, because our own slave descriptor keeps the master
// from noticing them.
void PtyController::watchUsers() {
    m_inotify = inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
    if (m_inotify < 0 || inotify_add_watch(m_inotify, path().c_str(), IN_OPEN | IN_CLOSE) < 0)
        throw std::system_error(errno, std::generic_category(), "inotify");
    m_usage = new QSocketNotifier(m_inotify, QSocketNotifier::Read, this);
    connect(m_usage, &QSocketNotifier::activated, this, &PtyController::readUsers);
}

void PtyController::readUsers() {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    const auto count = ::read(m_inotify, buffer.data(), buffer.size());
    for (std::ptrdiff_t at = 0; at < count;) {
        inotify_event event{};
        std::copy_n(buffer.data() + at, sizeof event, reinterpret_cast<char*>(&event));
        at += static_cast<std::ptrdiff_t>(sizeof event + event.len);
        const bool opened = (event.mask & IN_OPEN) != 0;
        m_users += opened ? 1 : -1;
        m_log.note(m_name, opened ? "opened" : "closed");
        if (m_users == 0) {
            // As the driver of a real adapter does at the last close: nothing is kept for the next
            // opening, and exclusive use has ended.
            tcflush(m_pty.slave(), TCIOFLUSH);
            ioctl(m_pty.slave(), TIOCNXCL);
        }
    }
}

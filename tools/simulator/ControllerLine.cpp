#include "simulator/ControllerLine.h"

#include <QSocketNotifier>

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

using namespace std::chrono_literals;
using Steady = std::chrono::steady_clock;

namespace {

std::chrono::nanoseconds lineTime(std::size_t bytes) {
    return ControllerLine::byteTime * static_cast<std::int64_t>(bytes);
}

} // namespace

ControllerLine::ControllerLine(SimulatedController& controller, FaultPlan& faults, WireLog& log,
                               std::string name, bool paced, Deliver deliver)
    : m_controller(controller), m_faults(faults), m_log(log), m_name(std::move(name)),
      m_paced(paced), m_deliver(std::move(deliver)),
      m_timer(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)) {
    if (m_timer < 0)
        throw std::system_error(errno, std::generic_category(), "timerfd_create");
    m_notifier = new QSocketNotifier(m_timer, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        std::uint64_t expirations = 0;
        [[maybe_unused]] const auto count = ::read(m_timer, &expirations, sizeof expirations);
        catchUp();
    });
}

ControllerLine::~ControllerLine() {
    m_notifier->setEnabled(false);
    ::close(m_timer);
}

void ControllerLine::receive(std::span<const std::uint8_t> bytes) {
    if (!m_paced) {
        handle({bytes.begin(), bytes.end()});
        return;
    }
    m_receiveEnd = std::max(m_receiveEnd, Steady::now()) + lineTime(bytes.size());
    m_arriving.push_back({m_receiveEnd, {bytes.begin(), bytes.end()}});
    armTimer();
}

void ControllerLine::handle(const Bytes& bytes) {
    if (Steady::now() < m_deafUntil) {
        m_log.received(m_name, bytes, "unheard");
        return;
    }
    for (const auto& received : m_controller.receive(bytes)) {
        if (received.command)
            handleCommand(received);
        else
            m_log.received(m_name, received.bytes, "noise");
    }
}

void ControllerLine::handleCommand(const SimulatedController::Received& received) {
    const YMessage& command = *received.command;
    m_log.received(m_name, received.bytes, command.name());
    const std::vector<Fault> faults = m_faults.take(command.id());
    std::optional<YMessage> answer;
    if (!FaultPlan::preventsExecution(faults))
        answer = m_controller.execute(FaultPlan::misheard(faults, command));
    FaultOutcome outcome = m_faults.apply(faults, command, answer);
    schedule(std::move(outcome.pieces));
    if (outcome.resetFor) {
        m_controller.reset();
        m_deafUntil = Steady::now() + *outcome.resetFor;
        m_log.note(m_name, "reset");
    }
    if (outcome.unplugFor)
        Q_EMIT unplugRequested(*outcome.unplugFor);
}

void ControllerLine::send(const Bytes& bytes, const std::string& label) {
    schedule({LinePiece{bytes, 0ms, label}});
}

void ControllerLine::reset(std::chrono::milliseconds deafFor) {
    m_arriving.clear();
    m_leaving.clear();
    m_controller.reset();
    m_deafUntil = Steady::now() + deafFor;
    m_log.note(m_name, "reset");
}

void ControllerLine::schedule(std::vector<LinePiece> pieces) {
    const Instant now = Steady::now();
    bool first = true;
    for (LinePiece& piece : pieces) {
        const Instant start =
            first ? std::max(m_sendEnd, now + piece.pause) : m_sendEnd + piece.pause;
        first = false;
        m_sendEnd = start + (m_paced ? lineTime(piece.bytes.size()) : 0ns);
        m_leaving.push_back({start, std::move(piece)});
    }
    catchUp();
}

void ControllerLine::catchUp() {
    const Instant now = Steady::now();
    while (!m_arriving.empty() && m_arriving.front().complete <= now) {
        const Bytes bytes = std::move(m_arriving.front().bytes);
        m_arriving.pop_front();
        handle(bytes);
    }
    while (!m_leaving.empty() && deliverFront(Steady::now()))
        m_leaving.pop_front();
    armTimer();
}

bool ControllerLine::deliverFront(Instant now) {
    Leaving& front = m_leaving.front();
    const Bytes& bytes = front.piece.bytes;
    if (now < front.start)
        return false;
    const auto passed = static_cast<std::size_t>((now - front.start) / byteTime);
    const std::size_t due = m_paced ? std::min(passed, bytes.size()) : bytes.size();
    if (due > front.delivered)
        m_deliver(std::span(bytes).subspan(front.delivered, due - front.delivered));
    front.delivered = due;
    if (due < bytes.size())
        return false;
    m_log.sent(m_name, bytes, front.piece.label);
    return true;
}

void ControllerLine::armTimer() {
    Instant next = Instant::max();
    if (!m_arriving.empty())
        next = m_arriving.front().complete;
    if (!m_leaving.empty()) {
        const Leaving& front = m_leaving.front();
        const Instant end = front.start + lineTime(front.piece.bytes.size());
        const Instant step = std::min(end, std::max(front.start, Steady::now()) + 1ms);
        next = std::min(next, m_paced ? step : front.start);
    }
    itimerspec spec{};
    if (next != Instant::max()) {
        // Never 0, which would disarm the timer.
        const auto at = std::max<std::chrono::nanoseconds>(next.time_since_epoch(), 1ns);
        spec.it_value.tv_sec = at / 1s;
        spec.it_value.tv_nsec = (at % 1s).count();
    }
    timerfd_settime(m_timer, TFD_TIMER_ABSTIME, &spec, nullptr);
}

#pragma once

#include "simulator/FaultPlan.h"
#include "simulator/SimulatedController.h"
#include "simulator/WireLog.h"

#include <QObject>

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <span>
#include <string>
#include <vector>

class QSocketNotifier;

/// The wire between a simulated controller and whoever talks to it: when which byte goes over it,
/// and what the faults make of it. Knows neither pty nor port; the owner hands in received bytes
/// and gets those to deliver through a function.
///
/// Paced, every byte takes the 86.8 µs of 115200 baud in both directions: a command is executed
/// when its last byte would have arrived, and an answer's bytes are delivered when they would have
/// arrived, at most 1 ms of them at once. Unpaced, a command is answered before `receive` returns
/// unless a fault delays it.
class ControllerLine : public QObject {
    Q_OBJECT

public:
    using Bytes = std::vector<std::uint8_t>;
    using Deliver = std::function<void(std::span<const std::uint8_t>)>;
    static constexpr std::chrono::nanoseconds byteTime{86806}; ///< 10 bits at 115200 baud

    /// All references must outlive the line. `name` stands in the log.
    ControllerLine(SimulatedController& controller, FaultPlan& faults, WireLog& log,
                   std::string name, bool paced, Deliver deliver);
    ~ControllerLine() override;

    void receive(std::span<const std::uint8_t> bytes);
    /// Bytes that nobody asked for, behind those already on their way.
    void send(const Bytes& bytes, const std::string& label);
    /// As a power cut: forgets what is on its way and what the controller was doing, and hears
    /// nothing for `deafFor`.
    void reset(std::chrono::milliseconds deafFor);
    /// Delivers and executes what is due by now, without waiting for the event loop.
    void catchUp();

Q_SIGNALS:
    /// A fault pulls the cable; zero: it stays out. To be connected queued when the slot destroys
    /// the line.
    void unplugRequested(std::chrono::milliseconds pluggedInAgainAfter);

private:
    using Instant = std::chrono::steady_clock::time_point;

    struct Arriving {
        Instant complete;
        Bytes bytes;
    };
    struct Leaving {
        Instant start;
        LinePiece piece;
        std::size_t delivered = 0;
    };

    void handle(const Bytes& bytes);
    void handleCommand(const SimulatedController::Received& received);
    void schedule(std::vector<LinePiece> pieces);
    /// Delivers what is due of the front piece; true when all of it is.
    bool deliverFront(Instant now);
    void armTimer();

    SimulatedController& m_controller;
    FaultPlan& m_faults;
    WireLog& m_log;
    std::string m_name;
    bool m_paced;
    Deliver m_deliver;
    int m_timer; ///< a timerfd: Qt's timers are a millisecond coarse, a byte takes 87 µs
    QSocketNotifier* m_notifier;
    std::deque<Arriving> m_arriving;
    std::deque<Leaving> m_leaving;
    Instant m_receiveEnd;
    Instant m_sendEnd;
    Instant m_deafUntil;
};

#pragma once

#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <fstream>

/// Watches the event loop of its thread: for how long it was held up, and how often it turned.
///
/// Time that the system gave to other programs while this one was ready to run does not count, so
/// that a busy machine looks no different from an idle one.
class LoopWatch {
    using Nanoseconds = std::chrono::nanoseconds;
    using Milliseconds = std::chrono::milliseconds;

public:
    LoopWatch() {
        m_beat.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_beat, &QTimer::timeout, [this] { beat(); });
        restart();
    }
    /// Forgets what was measured until now.
    void restart() {
        m_longest = {};
        m_last = ownTime();
        m_beat.start(Milliseconds(2));
    }
    /// The longest time since the (re)start in which the loop did not come round; precise to the
    /// beat of 2 ms.
    Milliseconds longestHold() const { return std::chrono::duration_cast<Milliseconds>(m_longest); }

    /// Runs the loop for this long without the beat and counts how often it wakes.
    int turnsDuring(Milliseconds window) {
        beat();
        m_beat.stop();
        int turns = 0;
        QEventLoop loop;
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                         &loop, [&turns] { ++turns; });
        QTimer::singleShot(window, &loop, &QEventLoop::quit);
        loop.exec();
        m_last = ownTime();
        m_beat.start();
        return turns;
    }

private:
    void beat() {
        const Nanoseconds now = ownTime();
        m_longest = std::max(m_longest, now - m_last);
        m_last = now;
    }
    /// Time passed, less the time spent waiting for a processor.
    static Nanoseconds ownTime() {
        long long ran = 0;
        long long waited = 0; // stays 0 where the system does not count it
        std::ifstream("/proc/thread-self/schedstat") >> ran >> waited;
        return std::chrono::steady_clock::now().time_since_epoch() - Nanoseconds(waited);
    }

    QTimer m_beat;
    Nanoseconds m_last{};
    Nanoseconds m_longest{};
};

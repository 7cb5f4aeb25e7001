#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

/// Watches the event loop of its thread: for how long it was held up, and how often it turned.
///
/// Time that the system gave to other programs while this one was ready to run does not count, so
/// that a busy machine looks no different from an idle one.
class LoopWatch : public QObject {
    Q_OBJECT

public:
    LoopWatch();

    /// Forgets what was measured until now.
    void restart();
    /// The longest time since the (re)start in which the loop did not come round; precise to the
    /// beat of 2 ms.
    std::chrono::milliseconds longestHold() const;

    /// Runs the loop for this long without the beat and counts how often it wakes.
    int turnsDuring(std::chrono::milliseconds window);

private:
    using Nanoseconds = std::chrono::nanoseconds;

    void beat();
    /// Time passed, less the time spent waiting for a processor.
    static Nanoseconds ownTime();

    QTimer m_beat;
    Nanoseconds m_last{};
    Nanoseconds m_longest{};
};

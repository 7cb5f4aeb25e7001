#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <chrono>

/// Runs the event loop until `done` holds; false when it does not within the time.
template <class Predicate>
bool runUntil(Predicate done, std::chrono::milliseconds limit = std::chrono::seconds(10)) {
    const QDeadlineTimer deadline(limit);
    QTimer wake; // so that the deadline is noticed
    wake.start(std::chrono::milliseconds(50));
    QEventLoop loop;
    while (!done()) {
        if (deadline.hasExpired())
            return false;
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

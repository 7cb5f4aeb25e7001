#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

class ModalPause;

/// A timer that waits while a modal window is shown and goes on after it.
///
/// A time that runs out during the pause is reported once, from the event loop, when the pause
/// ends; nothing wakes the program meanwhile. Precise to the millisecond when `Qt::PreciseTimer` is
/// set.
class PausingTimer : public QObject {
    Q_OBJECT

public:
    /// `pause` must outlive the timer.
    PausingTimer(ModalPause& pause, Qt::TimerType type, QObject* parent = nullptr);

    /// (Re)starts; a single-shot timer reports once, a repeating one until `stop()`.
    void start(std::chrono::milliseconds interval, bool singleShot);
    void stop();
    /// Lets the time of an active timer run out now; it is reported from the event loop as ever.
    void expire();
    /// True from `start()` until `stop()` or the single shot has been reported.
    bool isActive() const { return m_timer.isActive() || m_overdue; }

Q_SIGNALS:
    void timeout();

private:
    void onTimeout();
    void reportLater();
    void reportOverdue();

    ModalPause& m_pause;
    QTimer m_timer;
    bool m_overdue = false; ///< ran out, not yet reported
};

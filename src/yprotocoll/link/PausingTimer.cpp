#include "yprotocoll/link/PausingTimer.h"

#include "yprotocoll/link/ModalPause.h"

PausingTimer::PausingTimer(ModalPause& pause, Qt::TimerType type, QObject* parent)
    : QObject(parent), m_pause(pause) {
    m_timer.setTimerType(type);
    connect(&m_timer, &QTimer::timeout, this, &PausingTimer::onTimeout);
    connect(&m_pause, &ModalPause::ended, this, &PausingTimer::reportLater);
}

void PausingTimer::start(std::chrono::milliseconds interval, bool singleShot) {
    m_overdue = false;
    m_timer.setSingleShot(singleShot);
    m_timer.start(interval);
}

void PausingTimer::stop() {
    m_overdue = false;
    m_timer.stop();
}

void PausingTimer::expire() {
    if (!isActive())
        return;
    m_timer.stop();
    m_overdue = true;
    reportLater();
}

void PausingTimer::onTimeout() {
    if (!m_pause.isActive()) {
        Q_EMIT timeout();
        return;
    }
    m_timer.stop();
    m_overdue = true;
}

void PausingTimer::reportLater() {
    if (m_overdue && !m_pause.isActive())
        QMetaObject::invokeMethod(this, &PausingTimer::reportOverdue, Qt::QueuedConnection);
}

void PausingTimer::reportOverdue() {
    // Between the call and its delivery the timer may have been stopped or a new window shown.
    if (!m_overdue || m_pause.isActive())
        return;
    m_overdue = false;
    if (!m_timer.isSingleShot())
        m_timer.start();
    Q_EMIT timeout();
}

#include "faults/LoopWatch.h"

#include <QAbstractEventDispatcher>
#include <QEventLoop>

#include <fstream>

using namespace std::chrono_literals;

LoopWatch::LoopWatch() {
    m_beat.setTimerType(Qt::PreciseTimer);
    connect(&m_beat, &QTimer::timeout, this, &LoopWatch::beat);
    restart();
}

void LoopWatch::restart() {
    m_longest = {};
    m_last = ownTime();
    m_beat.start(2ms);
}

std::chrono::milliseconds LoopWatch::longestHold() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(m_longest);
}

void LoopWatch::beat() {
    const Nanoseconds now = ownTime();
    m_longest = std::max(m_longest, now - m_last);
    m_last = now;
}

LoopWatch::Nanoseconds LoopWatch::ownTime() {
    long long ran = 0;
    long long waited = 0; // stays 0 where the system does not count it
    std::ifstream("/proc/thread-self/schedstat") >> ran >> waited;
    return std::chrono::steady_clock::now().time_since_epoch() - Nanoseconds(waited);
}

int LoopWatch::turnsDuring(std::chrono::milliseconds window) {
    beat();
    m_beat.stop();
    int turns = 0;
    QEventLoop loop;
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &loop,
            [&turns] { ++turns; });
    QTimer::singleShot(window, &loop, &QEventLoop::quit);
    loop.exec();
    m_last = ownTime();
    m_beat.start();
    return turns;
}

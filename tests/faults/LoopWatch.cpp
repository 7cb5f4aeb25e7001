#include "faults/LoopWatch.h"

#include <QAbstractEventDispatcher>
#include <QEventLoop>

#include <array>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace std::chrono_literals;

LoopWatch::LoopWatch() : m_scheduler(open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC)) {
    m_beat.setTimerType(Qt::PreciseTimer);
    connect(&m_beat, &QTimer::timeout, this, &LoopWatch::beat);
    restart();
}

LoopWatch::~LoopWatch() {
    if (m_scheduler >= 0)
        close(m_scheduler);
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

LoopWatch::Nanoseconds LoopWatch::ownTime() const {
    const Nanoseconds now = std::chrono::steady_clock::now().time_since_epoch();
    std::array<char, 128> text{};
    long long ran = 0;
    long long waited = 0;
    if (m_scheduler < 0 || pread(m_scheduler, text.data(), text.size() - 1, 0) <= 0 ||
        std::sscanf(text.data(), "%lld %lld", &ran, &waited) != 2)
        return now;
    return now - Nanoseconds(waited);
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

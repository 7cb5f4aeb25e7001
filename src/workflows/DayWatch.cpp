#include "workflows/DayWatch.h"

#include "data/AQDataSource.h"

#include <QDateTime>
#include <QSocketNotifier>

#include <sys/timerfd.h>
#include <unistd.h>

#include <cstdint>
#include <utility>

// Qt's timers count on a clock that stands still during a suspend. This one is the wall clock.
DayWatch::DayWatch(AQDataSource& data, QObject* parent)
    : QObject(parent), m_data(data), m_day(data.today()),
      m_timer(::timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC)) {
    connect(&data.notifications(), &NotificationCenter::acclimationChanged, this,
            &DayWatch::restart);
    connect(&data.notifications(), &NotificationCenter::dataLoaded, this, &DayWatch::restart);
    if (m_timer < 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_timer, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &DayWatch::onWoken);
    restart();
}

DayWatch::~DayWatch() {
    m_notifier.reset();
    if (m_timer >= 0)
        ::close(m_timer);
}

void DayWatch::look() {
    const QDate today = m_data.today();
    if (std::exchange(m_day, today) != today && m_data.acclimation())
        Q_EMIT m_data.notifications().dayChanged();
    restart();
}

void DayWatch::restart() {
    const auto& acclimation = m_data.acclimation();
    m_day = m_data.today();
    wakeAtMidnight(acclimation && !acclimation->isOverOn(m_day));
}

void DayWatch::wakeAtMidnight(bool isWanted) {
    itimerspec when{};
    if (isWanted)
        when.it_value.tv_sec = QDate::currentDate().addDays(1).startOfDay().toSecsSinceEpoch();
    if (m_timer >= 0)
        ::timerfd_settime(m_timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &when, nullptr);
}

void DayWatch::onWoken() {
    // Fails when the clock was set, which is as good a reason to look.
    std::uint64_t expirations = 0;
    [[maybe_unused]] const auto length = ::read(m_timer, &expirations, sizeof expirations);
    look();
}

#include "simulator/DeviceClock.h"

using namespace std::chrono;

namespace {

sys_seconds toSeconds(const ClockFields& f) {
    const year_month_day date{year{2000 + f.year}, month{f.month}, day{f.day}};
    return sys_days{date} + hours{f.hour} + minutes{f.minute} + seconds{f.second};
}

std::uint8_t byte(auto value) {
    return static_cast<std::uint8_t>(value);
}

} // namespace

bool ClockFields::isValid() const {
    const year_month_day date{std::chrono::year{2000 + year}, std::chrono::month{month},
                              std::chrono::day{day}};
    return year < 100 && hour < 24 && minute < 60 && second < 60 && date.ok();
}

void DeviceClock::set(const ClockFields& fields, Instant now) {
    m_set = fields;
    m_setAt = now;
}

ClockFields DeviceClock::at(Instant now) const {
    if (!m_set.isValid())
        return m_set;
    const sys_seconds time = toSeconds(m_set) + duration_cast<seconds>(now - m_setAt);
    const sys_days midnight = floor<days>(time);
    const year_month_day date{midnight};
    const hh_mm_ss clock{time - midnight};
    return {.second = byte(clock.seconds().count()),
            .minute = byte(clock.minutes().count()),
            .hour = byte(clock.hours().count()),
            .day = byte(static_cast<unsigned>(date.day())),
            .month = byte(static_cast<unsigned>(date.month())),
            .year = byte(static_cast<int>(date.year()) - 2000)};
}

double DeviceClock::minuteOfDay(Instant now) const {
    const ClockFields fields = at(now);
    if (!fields.isValid())
        return 0.0;
    return fields.hour * 60.0 + fields.minute + fields.second / 60.0;
}

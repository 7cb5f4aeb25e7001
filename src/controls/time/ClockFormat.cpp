#include "controls/time/ClockFormat.h"

#include "data/TimeText.h"
#include "data/TypedValue.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr int hoursPerDay = 24;

int wrapped(int value, int count) {
    return ((value % count) + count) % count;
}

} // namespace

QString ClockFormat::text(const AQTime& time) const {
    return timeText(time.hour, time.minute);
}

QString ClockFormat::widestText() const {
    return QStringLiteral("00:00");
}

std::optional<AQTime> ClockFormat::parse(const QString& text) const {
    return clockTime(text).value;
}

AQTime ClockFormat::stepped(const AQTime& time, int section, int steps) const {
    if (section == 0)
        return {wrapped(time.hour + steps, hoursPerDay), time.minute, 0};
    return {time.hour, wrapped(time.minute + steps, AQTime::minutesPerHour), 0};
}

AQTime ClockFormat::limited(const AQTime& time) const {
    return {std::clamp(time.hour, 0, 23), std::clamp(time.minute, 0, 59),
            std::clamp(time.second, 0, 59)};
}

QString ClockFormat::hint() const {
    return QCoreApplication::translate("AQTimeEdit",
                                       "Type a time from 00:00 to 23:59, for example 07:30.");
}

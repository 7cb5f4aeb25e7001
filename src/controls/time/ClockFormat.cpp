#include "controls/time/ClockFormat.h"

#include "controls/time/TimeText.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr int hoursPerDay = 24;

std::optional<AQTime> checked(int hour, int minute) {
    const AQTime time{hour, minute, 0};
    return time.isValid() ? std::optional(time) : std::nullopt;
}

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
    static const QRegularExpression separated(
        QStringLiteral("^([0-9]{1,2})\\s*[:.,hH ]\\s*([0-9]{0,2})$"));
    static const QRegularExpression digits(QStringLiteral("^[0-9]{1,4}$"));
    const QString typed = text.trimmed();
    if (const auto match = separated.match(typed); match.hasMatch())
        return checked(match.captured(1).toInt(), match.captured(2).toInt());
    if (!digits.match(typed).hasMatch())
        return std::nullopt;
    const int number = typed.toInt();
    return typed.size() <= 2 ? checked(number, 0) : checked(number / 100, number % 100);
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

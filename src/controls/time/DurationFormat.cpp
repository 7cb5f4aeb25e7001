#include "controls/time/DurationFormat.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr int secondsPerMinute = 60;
constexpr int maximumSeconds = DurationFormat::maximumMinutes * secondsPerMinute + 59;
constexpr int longestShown = AQTime::minutesPerDay * secondsPerMinute - 1;

std::optional<AQTime> checked(int seconds) {
    return seconds <= maximumSeconds ? std::optional(DurationFormat::fromSeconds(seconds))
                                     : std::nullopt;
}

} // namespace

AQTime DurationFormat::fromSeconds(int seconds) {
    const int limited = std::clamp(seconds, 0, longestShown);
    const int minutes = limited / secondsPerMinute;
    return {minutes / AQTime::minutesPerHour, minutes % AQTime::minutesPerHour,
            limited % secondsPerMinute};
}

int DurationFormat::secondsOf(const AQTime& time) {
    // A settings file may hold any number of seconds.
    return time.minuteOfDay() * secondsPerMinute + std::min(time.second, longestShown);
}

QString DurationFormat::text(const AQTime& time) const {
    return QCoreApplication::translate("AQTimeDurationEdit", "%1 min %2 s")
        .arg(time.minuteOfDay())
        .arg(time.second, 2, 10, QLatin1Char('0'));
}

QString DurationFormat::widestText() const {
    return text(fromSeconds(longestShown));
}

std::optional<AQTime> DurationFormat::parse(const QString& text) const {
    static const QRegularExpression both(
        QStringLiteral("^([0-9]{1,3})\\s*(?:m|mins?|:|'|\\s)\\s*([0-9]{1,2})\\s*(?:s|secs?|\")?$"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression minutesOnly(
        QStringLiteral("^([0-9]{1,3})\\s*(?:m|mins?|:|')?$"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression secondsOnly(QStringLiteral("^([0-9]{1,5})\\s*(?:s|secs?|\")$"),
                                                QRegularExpression::CaseInsensitiveOption);
    const QString typed = text.trimmed();
    if (const auto match = both.match(typed); match.hasMatch()) {
        const int seconds = match.captured(2).toInt();
        return seconds < secondsPerMinute
                   ? checked(match.captured(1).toInt() * secondsPerMinute + seconds)
                   : std::nullopt;
    }
    if (const auto match = minutesOnly.match(typed); match.hasMatch())
        return checked(match.captured(1).toInt() * secondsPerMinute);
    if (const auto match = secondsOnly.match(typed); match.hasMatch())
        return checked(match.captured(1).toInt());
    return std::nullopt;
}

AQTime DurationFormat::stepped(const AQTime& time, int section, int steps) const {
    const int seconds = secondsOf(time);
    const int step = section == 0 ? secondsPerMinute : 1;
    // Whole steps only: those of the minutes leave the seconds as they are.
    const int stepsLeft = steps > 0 ? std::max(maximumSeconds - seconds, 0) / step : seconds / step;
    return fromSeconds(seconds + step * std::clamp(steps, -stepsLeft, stepsLeft));
}

AQTime DurationFormat::limited(const AQTime& time) const {
    return fromSeconds(secondsOf(time));
}

QString DurationFormat::hint() const {
    return QCoreApplication::translate(
        "AQTimeDurationEdit", "Type minutes and seconds up to 255 min 59 s, for example 1:30.");
}

#include "data/TypedValue.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr double fullPercent = 100.0;

QString plain(const QString& text) {
    QString result = text.trimmed();
    result.replace(u'\u2212', u'-');
    return result;
}

/// `text` as a fault quotes it: one short line.
QString quoted(const QString& text) {
    constexpr qsizetype longest = 24;
    QString line = text.left(4 * longest).simplified();
    if (line.size() <= longest)
        return line;
    const bool cutsPair = line[longest - 1].isHighSurrogate();
    return line.left(cutsPair ? longest - 1 : longest).trimmed() + u'\u2026';
}

QRegularExpression wholeText(const QString& pattern) {
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern));
}

/// `pattern` has the groups `hour` and `minute`.
TypedValue<AQTime> timeOfDay(const QString& text, const QRegularExpression& pattern) {
    if (text.isEmpty())
        return {{}, QCoreApplication::translate("TypedValue", "The time is missing")};
    const auto match = pattern.match(text);
    const AQTime time{match.captured(QStringLiteral("hour")).toInt(),
                      match.captured(QStringLiteral("minute")).toInt(), 0};
    if (!match.hasMatch() || !time.isValid())
        return {
            {},
            QCoreApplication::translate("TypedValue", "%1 is no time of day").arg(quoted(text))};
    return {time, {}};
}

struct Percent {
    double number;
    bool isSigned;
};

std::optional<Percent> percentFrom(QString text) {
    // A possessive number, so that a long one is read once.
    static const QRegularExpression number(
        wholeText(QStringLiteral("([+-]?)(?:[0-9]++(?:[.,][0-9]+)?|[.,][0-9]+)")));
    if (text.endsWith(u'%'))
        text = text.chopped(1).trimmed();
    const auto match = number.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return Percent{text.replace(u',', u'.').toDouble(), match.capturedLength(1) > 0};
}

} // namespace

TypedValue<AQTime> clockTime(const QString& text) {
    static const QRegularExpression absolute(
        wholeText(QStringLiteral("(?<hour>[0-9]{1,2})(?|\\s*[:.,hH ]\\s*(?<minute>[0-9]{0,2})"
                                 "|(?<minute>[0-9]{2}))?")));
    return timeOfDay(plain(text), absolute);
}

TypedValue<AQTime> typedTime(const QString& text, AQTime present) {
    static const QRegularExpression relative(wholeText(QStringLiteral("[+-][0-9]+")));
    const QString typed = plain(text);
    if (!relative.match(typed).hasMatch())
        return clockTime(typed);

    bool isNumber = false;
    const int way = typed.toInt(&isNumber);
    const bool isWithinADay =
        isNumber && -AQTime::minutesPerDay < way && way < AQTime::minutesPerDay;
    const int minute = isWithinADay ? present.minuteOfDay() + way : -1;
    if (minute < 0 || minute >= AQTime::minutesPerDay)
        return {{},
                QCoreApplication::translate("TypedValue", "%1 leads out of the day, 00:00 to 23:59")
                    .arg(quoted(typed))};
    return {AQTime::fromMinuteOfDay(minute), {}};
}

TypedValue<AQTime> pastedTime(const QString& text) {
    static const QRegularExpression absolute(
        wholeText(QStringLiteral("(?<hour>[0-9]{1,2})(?:(?<separator>[:.,])?(?<minute>[0-9]{2})"
                                 "(?:\\k<separator>[0-5][0-9])?)?")));
    return timeOfDay(plain(text), absolute);
}

TypedValue<double> typedFraction(const QString& text, double present) {
    const auto points = percentFrom(plain(text));
    if (!points || !points->isSigned)
        return pastedFraction(text);
    return {std::clamp(present + points->number / fullPercent, 0.0, 1.0), {}};
}

TypedValue<double> pastedFraction(const QString& text) {
    const QString typed = plain(text);
    if (typed.isEmpty())
        return {{}, QCoreApplication::translate("TypedValue", "The percentage is missing")};
    const auto percent = percentFrom(typed);
    if (!percent || percent->isSigned || percent->number > fullPercent)
        return {{},
                QCoreApplication::translate("TypedValue", "%1 is no percentage from 0 to 100")
                    .arg(quoted(typed))};
    return {percent->number / fullPercent, {}};
}

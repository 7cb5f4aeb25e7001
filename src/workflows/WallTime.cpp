#include "workflows/WallTime.h"

#include "yprotocoll/YAnswers.h"

#include <QLocale>
#include <QStringList>
#include <QTimeZone>

#include <array>
#include <cmath>

namespace WallTime {

QDateTime at(const QDateTime& instant, const QTimeZone& zone) {
    return at(instant, zone.offsetFromUtc(instant));
}

QDateTime at(const QDateTime& instant, int secondsFromUtc) {
    return instant.toUTC().addSecs(secondsFromUtc);
}

std::optional<QDateTime> fromAnswer(const AnswerRTC& answer) {
    const QDate date(answer.year, answer.month, answer.day);
    const QTime time(answer.hour, answer.minute, answer.second);
    if (!date.isValid() || !time.isValid())
        return std::nullopt;
    return QDateTime(date, time, Qt::UTC);
}

QString text(const QDateTime& wallTime) {
    static const QLocale locale(QLocale::English, QLocale::UnitedStates);
    return locale.toString(wallTime, QStringLiteral("MM/dd/yyyy, hh:mm:ss AP"));
}

QString differenceText(double seconds) {
    const qint64 difference = std::llround(seconds);
    if (std::abs(difference) <= 1)
        return QStringLiteral("The controller's clock shows the same time as the computer's.");

    struct Unit {
        qint64 seconds;
        const char16_t* name;
    };
    constexpr std::array<Unit, 4> units{
        {{86400, u"day"}, {3600, u"hour"}, {60, u"minute"}, {1, u"second"}}};
    QStringList parts;
    qint64 rest = std::abs(difference);
    bool isSecondPart = false;
    for (const Unit& unit : units) {
        const qint64 amount = rest / unit.seconds;
        rest %= unit.seconds;
        if (amount > 0)
            parts << QStringLiteral("%1 %2%3").arg(amount).arg(
                QString::fromUtf16(unit.name), amount == 1 ? QString() : QStringLiteral("s"));
        if (isSecondPart)
            break;
        isSecondPart = !parts.isEmpty();
    }
    return QStringLiteral("The controller's clock is %1 %2 the computer's.")
        .arg(parts.join(u' '),
             difference < 0 ? QStringLiteral("behind") : QStringLiteral("ahead of"));
}

} // namespace WallTime

#include "lamp/WallTime.h"

#include "yprotocoll/YAnswers.h"

#include <QCoreApplication>
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
        return QCoreApplication::translate(
            "WallTime", "The controller's clock shows the same time as the computer's.");

    struct Unit {
        qint64 seconds;
        const char* one;
        const char* several;
    };
    constexpr std::array<Unit, 4> units{{
        {86400, QT_TRANSLATE_NOOP("WallTime", "1 day"), QT_TRANSLATE_N_NOOP("WallTime", "%n days")},
        {3600, QT_TRANSLATE_NOOP("WallTime", "1 hour"),
         QT_TRANSLATE_N_NOOP("WallTime", "%n hours")},
        {60, QT_TRANSLATE_NOOP("WallTime", "1 minute"),
         QT_TRANSLATE_N_NOOP("WallTime", "%n minutes")},
        {1, QT_TRANSLATE_NOOP("WallTime", "1 second"),
         QT_TRANSLATE_N_NOOP("WallTime", "%n seconds")},
    }};
    QStringList parts;
    qint64 rest = std::abs(difference);
    bool isSecondPart = false;
    for (const Unit& unit : units) {
        const auto amount = static_cast<int>(rest / unit.seconds);
        rest %= unit.seconds;
        if (amount > 0)
            parts << (amount == 1
                          ? QCoreApplication::translate("WallTime", unit.one)
                          : QCoreApplication::translate("WallTime", unit.several, nullptr, amount));
        if (isSecondPart)
            break;
        isSecondPart = !parts.isEmpty();
    }
    const QString text =
        difference < 0
            ? QCoreApplication::translate("WallTime",
                                          "The controller's clock is %1 behind the computer's.")
            : QCoreApplication::translate("WallTime",
                                          "The controller's clock is %1 ahead of the computer's.");
    return text.arg(parts.join(u' '));
}

} // namespace WallTime

#include "lamp/TimeZones.h"

#include <QDateTime>

#include <algorithm>

namespace TimeZones {

QStringList names() {
    QStringList names;
    for (int index = 0; index < count; ++index) {
        const QString hours = QString::number(hoursAt(index));
        if (index == utcIndex)
            names << QStringLiteral("UTC");
        else if (index < utcIndex)
            names << QStringLiteral("UTC ") + hours + QStringLiteral(":00");
        else
            names << QStringLiteral("UTC +") + hours + QStringLiteral(":00");
    }
    return names;
}

int indexOfOffset(int secondsFromUtc) {
    constexpr int secondsPerHour = 3600;
    return std::clamp(secondsFromUtc / secondsPerHour + utcIndex, 0, count - 1);
}

bool observesDaylightSaving(const QTimeZone& zone, const QDateTime& instant) {
    const QTimeZone::OffsetData next = zone.nextTransition(instant);
    // Qt ends the transitions of some zones by one that changes nothing.
    return next.atUtc.isValid() && next.offsetFromUtc != zone.offsetFromUtc(instant);
}

} // namespace TimeZones

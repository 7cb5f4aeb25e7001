#include "data/Acclimation.h"

#include "data/ProgramChanges.h"

#include <algorithm>

bool Acclimation::isValid() const {
    return start >= leastStart && start <= mostStart && days >= leastDays && days <= mostDays &&
           firstDay.isValid();
}

int Acclimation::dayOn(QDate date) const {
    return static_cast<int>(std::clamp<qint64>(firstDay.daysTo(date) + 1, 1, days));
}

int Acclimation::percentOn(QDate date) const {
    // Whole numbers, so that a half is one and is rounded up.
    const int steps = days - 1;
    const int rise = (mostStart - start) * (dayOn(date) - 1);
    return start + (2 * rise + steps) / (2 * steps);
}

bool Acclimation::isOverOn(QDate date) const {
    return firstDay.daysTo(date) >= days;
}

QString Acclimation::textOn(QDate date) const {
    return tr("day %1 of %2: %3 %").arg(dayOn(date)).arg(days).arg(percentOn(date));
}

std::vector<AQTimePoint> lightOn(QDate date, std::vector<AQTimePoint> points,
                                 const std::optional<Acclimation>& acclimation) {
    constexpr double percent = 100.0;
    return acclimation ? ProgramChanges::scaledIntensity(std::move(points),
                                                         acclimation->percentOn(date) / percent)
                       : points;
}

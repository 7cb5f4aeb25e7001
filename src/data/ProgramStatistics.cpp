#include "data/ProgramStatistics.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <vector>

QString ProgramStatistics::text() const {
    const auto minutes = static_cast<int>(std::lround(litMinutes));
    return tr("Light %1 h %2 min, %3 h of full light")
        .arg(minutes / AQTime::minutesPerHour)
        .arg(minutes % AQTime::minutesPerHour, 2, 10, QLatin1Char('0'))
        .arg(QLocale().toString(fullLightHours, 'f', 1));
}

ProgramStatistics statisticsOf(std::span<const AQTimePoint> points) {
    if (points.empty())
        return {};
    // A file may hold its points in another order than that of the day.
    std::vector<AQTimePoint> day(points.begin(), points.end());
    std::ranges::stable_sort(day, {},
                             [](const AQTimePoint& point) { return point.time.minuteOfDay(); });

    double litMinutes = 0.0;
    double fullLightMinutes = 0.0;
    const AQTimePoint* from = &day.back();
    int start = from->time.minuteOfDay() - AQTime::minutesPerDay;
    for (const AQTimePoint& to : day) {
        const int end = to.time.minuteOfDay();
        const double length = end - start;
        if (from->brightness > 0.0 || to.brightness > 0.0)
            litMinutes += length;
        fullLightMinutes += length * (from->brightness + to.brightness) / 2.0;
        from = &to;
        start = end;
    }
    return {litMinutes, fullLightMinutes / AQTime::minutesPerHour};
}

#include "data/ProgramInterpolation.h"

#include <algorithm>
#include <tuple>

namespace {

AQTimePoint mix(AQTime time, const AQTimePoint& first, const AQTimePoint& second, double fraction) {
    return {time, first.colorTemp * fraction + second.colorTemp * (1.0 - fraction),
            first.brightness * fraction + second.brightness * (1.0 - fraction)};
}

bool isLater(AQTime first, AQTime second) {
    return std::tie(first.hour, first.minute, first.second) >
           std::tie(second.hour, second.minute, second.second);
}

/// The share of the last point where `elapsed` of the `gap` minutes over midnight have passed.
double shareOfLast(int elapsed, int gap) {
    return gap <= 0 ? 0.0 : 1.0 - static_cast<double>(elapsed) / gap;
}

} // namespace

AQTimePoint lightAt(std::span<const AQTimePoint> points, AQTime time) {
    if (points.empty())
        return {time, 0.0, 0.0};

    const AQTimePoint& first = points.front();
    const AQTimePoint& last = points.back();
    const int minute = time.minuteOfDay();
    const int firstMinute = first.time.minuteOfDay();
    const int lastMinute = last.time.minuteOfDay();
    const int gap = firstMinute + AQTime::minutesPerDay - lastMinute;

    if (minute <= firstMinute)
        return mix(time, last, first,
                   shareOfLast(minute + AQTime::minutesPerDay - lastMinute, gap));
    if (minute >= lastMinute)
        return mix(time, last, first, shareOfLast(minute - lastMinute, gap));

    // The last point is later than `time` here, so there is always a next one.
    const auto next =
        std::find_if(points.begin() + 1, points.end() - 1,
                     [time](const AQTimePoint& point) { return isLater(point.time, time); });
    const AQTimePoint& previous = *(next - 1);
    const int start = previous.time.minuteOfDay();
    const int length = next->time.minuteOfDay() - start;
    const double share = length <= 0 ? 0.0 : static_cast<double>(minute - start) / length;
    return mix(time, *next, previous, share);
}

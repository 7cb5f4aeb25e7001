#include "data/ProgramChanges.h"

#include <algorithm>
#include <bitset>
#include <cstdlib>

namespace {

constexpr int lastMinute = AQTime::minutesPerDay - 1;

using Minutes = std::bitset<AQTime::minutesPerDay>;

int minuteOf(const AQTimePoint& point) {
    return point.time.minuteOfDay();
}

Minutes takenMinutes(std::span<const AQTimePoint> points, AQPointId except = AQPointId::none) {
    Minutes taken;
    for (const AQTimePoint& point : points)
        if (except == AQPointId::none || point.id != except)
            taken.set(static_cast<std::size_t>(minuteOf(point)));
    return taken;
}

/// The end of the day can be reached whatever the snap is.
bool isFree(const Minutes& taken, int minute, int snap) {
    return minute >= 0 && minute <= lastMinute && (minute % snap == 0 || minute == lastMinute) &&
           !taken[static_cast<std::size_t>(minute)];
}

std::optional<int> nearestFree(const Minutes& taken, int wanted, int snap) {
    for (int distance = 0; distance <= lastMinute; ++distance)
        for (const int minute : {wanted - distance, wanted + distance})
            if (isFree(taken, minute, snap))
                return minute;
    return std::nullopt;
}

std::vector<AQTimePoint> inOrder(std::vector<AQTimePoint> points) {
    std::ranges::stable_sort(points, {}, minuteOf);
    return points;
}

} // namespace

std::vector<AQTimePoint> ProgramChanges::shiftedDay(std::vector<AQTimePoint> points, int minutes) {
    if (minutes == 0)
        return points;
    for (AQTimePoint& point : points) {
        const int minute = minuteOf(point) + minutes + AQTime::minutesPerDay;
        const int second = point.time.second;
        point.time = AQTime::fromMinuteOfDay(minute % AQTime::minutesPerDay);
        point.time.second = second;
    }
    return inOrder(std::move(points));
}

std::vector<AQTimePoint> ProgramChanges::scaledIntensity(std::vector<AQTimePoint> points,
                                                         double factor) {
    for (AQTimePoint& point : points)
        point.brightness = std::min(point.brightness * factor, 1.0);
    return points;
}

std::vector<AQTimePoint> ProgramChanges::merged(std::vector<AQTimePoint> points,
                                                std::span<const AQTimePoint> pasted) {
    for (const AQTimePoint& source : pasted) {
        bool isNew = true;
        for (AQTimePoint& point : points) {
            if (minuteOf(point) != minuteOf(source))
                continue;
            point.colorTemp = source.colorTemp;
            point.brightness = source.brightness;
            isNew = false;
        }
        if (isNew)
            points.push_back({source.time, source.colorTemp, source.brightness});
    }
    return inOrder(std::move(points));
}

std::optional<int> ProgramChanges::nearestFreeMinute(std::span<const AQTimePoint> points,
                                                     int minute) {
    return nearestFree(takenMinutes(points), minute, 1);
}

std::optional<int> ProgramChanges::freeMinuteFrom(std::span<const AQTimePoint> points, int minute,
                                                  int step, AQPointId except) {
    const Minutes taken = takenMinutes(points, except);
    const int direction = step < 0 ? -1 : 1;
    for (int next = minute + direction; next >= 0 && next <= lastMinute; next += direction)
        if (isFree(taken, next, std::abs(step)))
            return next;
    return std::nullopt;
}

std::optional<int> ProgramChanges::draggedMinute(std::span<const AQTimePoint> points, AQPointId id,
                                                 int wanted, int snap) {
    return nearestFree(takenMinutes(points, id), std::clamp(wanted, 0, lastMinute), snap);
}

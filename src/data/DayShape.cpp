#include "data/DayShape.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

namespace {

constexpr int minutesPerDay = AQTime::minutesPerDay;
constexpr int straightRamp = 2; ///< points
constexpr int softRamp = 5;
constexpr int longestTransition = 30; ///< minutes, of a break or to the moonlight

/// Two points cannot share a minute.
int rampLength(int minutes) {
    return std::max(minutes, 1);
}

int onClock(int minutes) {
    return (minutes % minutesPerDay + minutesPerDay) % minutesPerDay;
}

int clock(int hour, int minute = 0) {
    return hour * AQTime::minutesPerHour + minute;
}

double mix(double from, double to, double share) {
    return from + (to - from) * share;
}

/// Points by the minutes since the day's start. The first one that comes to a minute stays.
class Offsets {
public:
    void add(int offset, double level, double colorTemp) {
        m_lights.try_emplace(offset, Light{level, colorTemp});
    }
    /// The points inside of a ramp between two lights, in either direction of time.
    void addRamp(int from, int to, int points, AQTimePoint dark, AQTimePoint bright) {
        for (int i = 1; i < points - 1; ++i) {
            const double way = static_cast<double>(i) / (points - 1);
            const double share = (1.0 - std::cos(way * std::numbers::pi)) / 2.0;
            add(static_cast<int>(std::lround(mix(from, to, way))),
                mix(dark.brightness, bright.brightness, share),
                mix(dark.colorTemp, bright.colorTemp, share));
        }
    }
    std::vector<AQTimePoint> onClockFrom(int start) const {
        std::vector<AQTimePoint> points;
        for (const auto& [offset, light] : m_lights)
            points.push_back(
                {AQTime::fromMinuteOfDay(onClock(start + offset)), light.colorTemp, light.level});
        std::ranges::sort(points, {}, [](const AQTimePoint& p) { return p.time.minuteOfDay(); });
        return points;
    }

private:
    struct Light {
        double level;
        double colorTemp;
    };
    std::map<int, Light> m_lights;
};

} // namespace

int DayShape::length() const {
    return onClock(end - start);
}

int DayShape::noonStart() const {
    return onClock(start + rampLength(sunrise));
}

int DayShape::noonEnd() const {
    return onClock(end - rampLength(sunset));
}

std::optional<DayShape::Fault> DayShape::fault(int pointLimit) const {
    const int rise = rampLength(sunrise);
    const int set = rampLength(sunset);
    if (length() == 0)
        return Fault::endsAtItsStart;
    if (rise + set > length())
        return Fault::rampsOverlap;
    if (middayBreak) {
        const int from = onClock(middayBreak->start - start);
        if (middayBreak->length > length())
            return Fault::breakLongerThanDay;
        if (from < rise || from + middayBreak->length > length() - set)
            return Fault::breakBeyondNoon;
    }
    if (std::ssize(pointsWith(straightRamp)) > std::min(pointLimit, mostPoints))
        return Fault::tooManyPoints;
    return std::nullopt;
}

std::vector<AQTimePoint> DayShape::points(int pointLimit) const {
    int inRamp = isSoft ? softRamp : straightRamp;
    auto points = pointsWith(inRamp);
    while (std::ssize(points) > std::min(pointLimit, mostPoints) && inRamp > straightRamp)
        points = pointsWith(--inRamp);
    return points;
}

std::vector<AQTimePoint> DayShape::pointsWith(int pointsInRamp) const {
    const double night = moonlight ? moonlight->level : 0.0;
    const int rise = rampLength(sunrise);
    const int setsFrom = length() - rampLength(sunset);
    const AQTimePoint dawn{{}, dawnColorTemp, night};
    const AQTimePoint noon{{}, noonColorTemp, noonLevel};
    const AQTimePoint dusk{{}, duskColorTemp, night};

    Offsets day;
    day.add(0, night, dawnColorTemp);
    day.add(rise, noonLevel, noonColorTemp);
    day.add(setsFrom, noonLevel, noonColorTemp);
    day.add(length(), night, duskColorTemp);
    if (middayBreak) {
        const int from = onClock(middayBreak->start - start);
        const int to = from + middayBreak->length;
        const int ramp = std::clamp(middayBreak->length / 4, 1, longestTransition);
        day.add(from, noonLevel, noonColorTemp);
        day.add(from + ramp, middayBreak->level, noonColorTemp);
        day.add(to - ramp, middayBreak->level, noonColorTemp);
        day.add(to, noonLevel, noonColorTemp);
    }
    if (moonlight) {
        const int twilight = std::min((minutesPerDay - length()) / 3, longestTransition);
        day.add(length() + twilight, night, moonlight->colorTemp);
        // Of a night of two minutes nothing is left between, and the start stands already.
        if (twilight > 0)
            day.add(minutesPerDay - twilight, night, moonlight->colorTemp);
    }
    day.addRamp(0, rise, pointsInRamp, dawn, noon);
    day.addRamp(length(), setsFrom, pointsInRamp, dusk, noon);
    return day.onClockFrom(start);
}

DayShape UsualDays::reef() {
    return {.start = clock(10),
            .end = clock(21, 30),
            .sunrise = 90,
            .sunset = 90,
            .isSoft = true,
            .noonLevel = 0.9,
            .dawnColorTemp = 0.95,
            .noonColorTemp = 0.65,
            .duskColorTemp = 1.0,
            .moonlight = DayShape::Moonlight{}};
}

DayShape UsualDays::planted() {
    return {.start = clock(12),
            .end = clock(20),
            .sunrise = 30,
            .sunset = 30,
            .noonLevel = 0.7,
            .dawnColorTemp = 0.3,
            .noonColorTemp = 0.45,
            .duskColorTemp = 0.25};
}

DayShape UsualDays::lowLight() {
    return {.start = clock(13),
            .end = clock(20),
            .sunrise = 45,
            .sunset = 45,
            .noonLevel = 0.35,
            .dawnColorTemp = 0.3,
            .noonColorTemp = 0.4,
            .duskColorTemp = 0.25};
}

DayShape UsualDays::siesta() {
    return {.start = clock(8),
            .end = clock(21),
            .sunrise = 30,
            .sunset = 45,
            .noonLevel = 0.75,
            .dawnColorTemp = 0.3,
            .noonColorTemp = 0.5,
            .duskColorTemp = 0.25,
            .middayBreak = DayShape::Break{.start = clock(12, 30), .length = 210, .level = 0.0}};
}

DayShape UsualDays::longSummerDay() {
    return {.start = clock(7),
            .end = clock(21, 30),
            .sunrise = 150,
            .sunset = 150,
            .isSoft = true,
            .noonLevel = 0.8,
            .dawnColorTemp = 0.2,
            .noonColorTemp = 0.55,
            .duskColorTemp = 0.1};
}

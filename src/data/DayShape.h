#pragma once

#include "data/AQTimePoint.h"

#include <optional>
#include <vector>

/// A day as people describe it, and the light program that gives it.
///
/// Times are minutes of the day, 0..1439. The day may go over midnight: it lasts from `start` to
/// the next `end`. Levels and colour temperatures are fractions as those of AQTimePoint.
struct DayShape {
    static constexpr int longestRamp = 180;
    /// More than any day needs.
    static constexpr int mostPoints = 20;

    /// Starts and ends with a ramp of a quarter of it, and of half an hour at most.
    struct Break {
        int start = 12 * 60;
        int length = 180; ///< minutes, 10 or more
        double level = 0.0;
        bool operator==(const Break&) const = default;
    };
    /// All night, from half an hour after the day to half an hour before it; in between the colour
    /// changes.
    struct Moonlight {
        double level = 0.02;
        double colorTemp = 1.0;
        bool operator==(const Moonlight&) const = default;
    };
    /// Why there can be no such day.
    enum class Fault {
        endsAtItsStart,
        rampsOverlap, ///< sunrise and sunset take longer than the day
        breakLongerThanDay,
        breakBeyondNoon, ///< not between the end of the sunrise and the begin of the sunset
        tooManyPoints,
    };

    int start = 10 * 60; ///< of the sunrise
    int end = 20 * 60;   ///< of the sunset
    int sunrise = 60;    ///< minutes, 0..longestRamp; 0 takes one minute, too
    int sunset = 60;
    bool isSoft = false; ///< the ramps follow half a sine, else a straight line
    double noonLevel = 0.8;
    double dawnColorTemp = 0.5;
    double noonColorTemp = 0.5;
    double duskColorTemp = 0.5;
    std::optional<Break> middayBreak = {};
    std::optional<Moonlight> moonlight = {};

    /// Minutes, 0..1439.
    int length() const;
    /// When the sunrise is over, and when the sunset begins.
    int noonStart() const;
    int noonEnd() const;

    /// The first one, for a program of at most `pointLimit` points.
    std::optional<Fault> fault(int pointLimit) const;
    /// In ascending order, one point a minute at most; `fault()` must be none. A straight ramp has
    /// two points, a soft one five, or fewer where the limit or its length leaves no room for them.
    std::vector<AQTimePoint> points(int pointLimit) const;

    bool operator==(const DayShape&) const = default;

private:
    std::vector<AQTimePoint> pointsWith(int pointsInRamp) const;
};

/// Days to begin with.
namespace UsualDays {

/// Blue mornings and evenings, a bright noon, and a little moonlight.
DayShape reef();
/// Eight hours, so that algae do not get more of it than plants.
DayShape planted();
/// For shade plants, and fish that shun the light.
DayShape lowLight();
/// Two blocks of light, between which the carbon dioxide recovers.
DayShape siesta();
/// Long and warm twilights, as far from the equator.
DayShape longSummerDay();

} // namespace UsualDays

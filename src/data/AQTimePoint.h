#pragma once

#include <cstdint>

/// A time of day; the task light uses the same record for its duration.
struct AQTime {
    int hour = 0;   ///< 0..23
    int minute = 0; ///< 0..59
    int second = 0; ///< 0..59; takes no part in ordering

    static constexpr int minutesPerDay = 1440;
    static constexpr int minutesPerHour = 60;

    /// 0..1439 for a valid time: what orders points and what files and the controller store.
    constexpr int minuteOfDay() const { return hour * minutesPerHour + minute; }
    /// `minuteOfDay` is 0..1439.
    static constexpr AQTime fromMinuteOfDay(int minuteOfDay) {
        return {minuteOfDay / minutesPerHour, minuteOfDay % minutesPerHour, 0};
    }
    constexpr bool isValid() const {
        return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
    }
    bool operator==(const AQTime&) const = default;
};

/// Which point of the light program it is, while its values and its place in the day change.
enum class AQPointId : std::uint32_t { none = 0 };

/// One point of the light program.
struct AQTimePoint {
    AQTime time;
    double colorTemp = 0.5;  ///< fraction, 0.0 warmest .. 1.0 coldest
    double brightness = 0.5; ///< fraction, 0.0 dark .. 1.0 full
    /// Given by the sequence when the point comes to it; no file and no controller knows it.
    AQPointId id = AQPointId::none;
    /// The id takes no part: equal points give the same light at the same time.
    bool operator==(const AQTimePoint& other) const {
        return time == other.time && colorTemp == other.colorTemp && brightness == other.brightness;
    }
};

/// A fraction as files and the wire carry it: round(clamp(f, 0, 1) x 255), halves away from zero.
/// What is no number counts as 0.
std::uint8_t byteFromFraction(double fraction);
/// byte / 255.
double fractionFromByte(std::uint8_t byte);

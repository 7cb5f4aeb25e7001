#pragma once

#include <chrono>
#include <cstdint>

/// Date and time as the controller's clock chip keeps them.
struct ClockFields {
    std::uint8_t second = 0;
    std::uint8_t minute = 0;
    std::uint8_t hour = 0;
    std::uint8_t day = 1;
    std::uint8_t month = 1;
    std::uint8_t year = 17; ///< since 2000

    bool isValid() const;
    bool operator==(const ClockFields&) const = default;
};

/// The controller's clock: it has no zone, is set field by field and runs on from there.
/// Impossible dates are kept as they were set and stand still.
class DeviceClock {
public:
    using Instant = std::chrono::nanoseconds; ///< of the simulator's own steady clock

    void set(const ClockFields& fields, Instant now);
    ClockFields at(Instant now) const;
    /// Minutes of the day with their fraction, 0 to below 1440; 0 for an impossible date.
    double minuteOfDay(Instant now) const;

private:
    ClockFields m_set;
    Instant m_setAt{0};
};

#pragma once

#include "simulator/DeviceClock.h"
#include "yprotocoll/SequenceEntry.h"

#include <array>
#include <cstdint>
#include <vector>

/// The maintenance light that the controller's own button switches on.
struct TaskLight {
    std::uint8_t minutes = 15;
    std::uint8_t seconds = 0;
    std::array<std::uint8_t, 2> levels{254, 254};
    std::uint8_t fadeTime = 2;
    bool operator==(const TaskLight&) const = default;
};

/// The 1-10 V input.
struct AnalogMode {
    std::uint8_t fadeTime = 4;
    std::uint8_t minLevel = 85;
    std::uint8_t maxLevel = 254;
    std::uint8_t flags = 0x80;                                       ///< bit 7: logarithmic
    std::array<std::uint16_t, 4> millivolts{900, 1100, 10000, 9900}; ///< off, on, max, 100 %
    bool operator==(const AnalogMode&) const = default;
};

struct DeviceSettings {
    std::array<std::uint8_t, 2> addresses{0x00, 0x02};
    std::uint8_t sequenceFadeTime = 7;
    std::uint8_t minOnOutLevel = 1;
    bool operator==(const DeviceSettings&) const = default;
};

struct DaylightInfo {
    std::uint8_t flags = 0; ///< bit 7: enabled, bit 6: summer time now
    std::int8_t utcOffset = 0;
    bool operator==(const DaylightInfo&) const = default;
};

/// Everything a controller remembers or is doing.
struct ControllerState {
    std::vector<std::vector<SequenceEntry>> sequence; ///< one list per channel
    TaskLight taskLight;
    AnalogMode analog;
    DeviceSettings settings;
    DaylightInfo daylight;
    DeviceClock clock;
    bool programMode = true; ///< false: led by the 1-10 V input
    bool taskActive = false;
    bool demoActive = false;
    std::array<std::uint8_t, 2> demoLevels{0, 0}; ///< kept after the demo mode has ended
};

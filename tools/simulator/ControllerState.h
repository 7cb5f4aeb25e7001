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

struct DaylightInfo {
    std::uint8_t flags = 0; ///< bit 7: enabled, bit 6: summer time now
    std::int8_t utcOffset = 0;
    bool operator==(const DaylightInfo&) const = default;
};

/// Everything a controller remembers or is doing.
struct ControllerState {
    std::vector<std::vector<SequenceEntry>> sequence; ///< one list per channel
    TaskLight taskLight;
    DaylightInfo daylight;
    DeviceClock clock;
    bool programMode = true; ///< false: led by the 1-10 V input
    bool demoActive = false;
    std::array<std::uint8_t, 2> demoLevels{0, 0}; ///< kept after the demo mode has ended
};

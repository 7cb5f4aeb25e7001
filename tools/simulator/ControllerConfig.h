#pragma once

#include <cstdint>

/// What a controller is: fixed for its life. Nothing here is checked, so that a controller with
/// impossible figures (no channels, entries of 4 bytes) can be made as well.
struct ControllerConfig {
    int channels = 2;   ///< output channels, 0 to 255
    int maxPoints = 20; ///< most entries it stores per channel, 0 to 255
    int entrySize = 3;  ///< as told to the computer; entries are always exchanged as 3 bytes
    std::uint8_t versionMajor = 1;
    std::uint8_t versionMinor = 4;
    std::uint8_t build = 17;
    std::uint8_t deviceType = 1;
    bool factoryProgram = true; ///< false: it starts with no entries at all
};

#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

/// What a controller is: fixed for its life. Nothing here is checked, so that a controller with
/// impossible figures (no channels, entries of 4 bytes) can be made as well.
struct ControllerConfig {
    int channels = 2;   ///< output channels, 0 to 255
    int maxPoints = 20; ///< most entries it stores per channel, 0 to 255
    int entrySize = 3;  ///< as told to the computer; entries are always exchanged as 3 bytes
    std::uint8_t versionMajor = 1;
    std::uint8_t versionMinor = 4;
    std::uint8_t build = 17;
    std::optional<std::uint8_t> deviceType = 1; ///< none: the version answer ends before it
    bool factoryProgram = true;                 ///< false: it starts with no entries at all

    /// An enabled demo mode ends by itself after this long without a demo command.
    std::chrono::seconds demoTimeout{60};
    /// What is left of a command that stops arriving is thrown away after this pause.
    std::chrono::milliseconds receiveGap{50};

    std::uint8_t productionWeek = 12;
    std::uint8_t productionYear = 17; ///< since 2000
    std::uint8_t pcbVersion = 2;
    std::uint8_t assemblyVersion = 3;
    std::uint32_t serialNumber = 100234;
    std::uint8_t bufferSize = 64; ///< blocks of the transmit buffer, all of them always free
};

#pragma once

#include <cstdint>

/// Firmware version of the controller.
struct DeviceVersion {
    std::uint8_t major = 0;
    std::uint8_t minor = 0;
    bool operator==(const DeviceVersion&) const = default;
};

/// What the link learnt about the connected controller while it opened it.
struct DeviceInfo {
    DeviceVersion version;
    std::uint8_t build = 0;
    std::uint8_t deviceType = 0;
    int channelCount = 0;   ///< output channels; 0 until the controller has told
    int maxPointsInSeq = 0; ///< most entries per channel; 0 until the controller has told
    /// False between the answer with the version and the one with the two limits.
    bool knowsLimits() const { return channelCount != 0 || maxPointsInSeq != 0; }
    bool operator==(const DeviceInfo&) const = default;
};

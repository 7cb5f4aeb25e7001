#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

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
    // None between the answer with the version and the one with these two.
    std::optional<int> channelCount;   ///< output channels
    std::optional<int> maxPointsInSeq; ///< most entries per channel, as the controller says

    /// What fits into a message of 255 bytes: the channel number and three bytes for each entry.
    static constexpr int maxEntriesPerMessage = 84;
    /// Most points that can be stored; `untold` while the controller has not told.
    int pointLimit(int untold) const {
        return std::min(maxPointsInSeq.value_or(untold), maxEntriesPerMessage);
    }
    bool operator==(const DeviceInfo&) const = default;
};

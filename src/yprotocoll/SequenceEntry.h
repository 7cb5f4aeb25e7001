#pragma once

#include <cstdint>

/// One entry of a channel's sequence as the controller stores it, 3 bytes in this order. The
/// controller fades from each entry to the next.
struct SequenceEntry {
    std::uint8_t hour = 0;   ///< 0...23
    std::uint8_t minute = 0; ///< 0...59
    std::uint8_t level = 0;  ///< 0...255
    bool operator==(const SequenceEntry&) const = default;
};

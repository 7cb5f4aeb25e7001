#pragma once

#include "yprotocoll/SequenceEntry.h"

#include <cstdint>
#include <vector>

/// The light program and the task light as a controller stores them.
struct DeviceImage {
    /// What stands in the task mode.
    struct TaskMode {
        std::uint8_t minutes = 0;
        std::uint8_t seconds = 0;
        std::uint8_t cold = 0; ///< level
        std::uint8_t warm = 0; ///< level
        bool operator==(const TaskMode&) const = default;
    };

    /// One list of entries for each channel; of a program that was read the first four at most.
    std::vector<std::vector<SequenceEntry>> channels;
    TaskMode taskMode;
    bool operator==(const DeviceImage&) const = default;
};

#pragma once

#include <array>
#include <cstddef>

/// The values of a point as the table shows them and as cellChanged names them.
struct PointColumn {
    static constexpr int time = 0;
    static constexpr int colorTemp = 1;
    static constexpr int brightness = 2;
    static constexpr int count = 3;

    /// What the person reads.
    static constexpr const char* title(int column) {
        constexpr std::array titles{"Time", "Colour temperature", "Intensity"};
        return titles.at(static_cast<std::size_t>(column));
    }
};

#pragma once

#include <cstdint>

// How a colour temperature and a brightness become the levels of the lamp's two white outputs and
// back. At colour temperature 0.5 both outputs carry the full brightness; towards 1.0 the warm one
// fades out, towards 0.0 the cold one. Levels are those of yprotocoll/DimmingCurve.h.

/// The levels of the lamp's outputs, 0..254.
struct ChannelLevels {
    std::uint8_t cold = 0; ///< channel 0
    std::uint8_t warm = 0; ///< channel 1
};

/// A light as a person sets it; both are fractions 0.0..1.0.
struct Light {
    double colorTemp = 0.5;
    double brightness = 0.0;
};

/// Values outside 0.0..1.0 are limited. Works in steps of 1/255, as files store the values.
ChannelLevels levelsFromLight(double colorTemp, double brightness);

/// The inverse, as far as rounding allows. Two dark outputs give colour temperature 0.5.
Light lightFromLevels(std::uint8_t cold, std::uint8_t warm);

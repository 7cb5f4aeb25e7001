#pragma once

#include "data/AQTimePoint.h"

#include <vector>

/// As full a light program as a controller takes.
namespace SampleProgram {

constexpr int pointCount = 20;

inline std::vector<AQTimePoint> points() {
    std::vector<AQTimePoint> points;
    for (int i = 0; i < pointCount; ++i)
        points.push_back(
            {AQTime::fromMinuteOfDay(20 + 70 * i), (i % 5) / 4.0, 0.6 + (i % 4) / 10.0});
    return points;
}

} // namespace SampleProgram

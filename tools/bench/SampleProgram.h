#pragma once

#include "data/AQTimePoint.h"

#include <vector>

/// As full a light program as a controller takes.
namespace SampleProgram {

constexpr int pointCount = 20;

/// At most one for each minute of the day.
inline std::vector<AQTimePoint> points(int count = pointCount) {
    std::vector<AQTimePoint> points;
    for (int i = 0; i < count; ++i)
        points.push_back({AQTime::fromMinuteOfDay(AQTime::minutesPerDay * i / count), (i % 5) / 4.0,
                          0.6 + (i % 4) / 10.0});
    return points;
}

} // namespace SampleProgram

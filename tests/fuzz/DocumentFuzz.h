#pragma once

#include "data/AQDataSource.h"

#include "fuzz/Fuzz.h"

/// What holds for a document wherever it came from.
inline void requireValid(const AQDataSource& document) {
    const auto isLight = [](const AQTimePoint& point) {
        return point.colorTemp >= 0.0 && point.colorTemp <= 1.0 && point.brightness >= 0.0 &&
               point.brightness <= 1.0;
    };
    for (const AQTimePoint& point : document.sequence().points()) {
        require(point.time.isValid() && point.time.second == 0, "a point has a minute of the day");
        require(isLight(point), "a point's values are fractions");
    }
    require(isLight(document.taskLight()), "the task light's values are fractions");
    require(!document.isDirty(), "filling a document leaves the dirty flag alone");
}

#pragma once

#include "data/AQTimePoint.h"

#include <vector>

/// Everything a settings file or the controller holds of the document, as a value. The ids of the
/// points take no part in comparing.
struct DocumentContents {
    std::vector<AQTimePoint> points; ///< in the order of the day
    AQTimePoint taskLight;           ///< `time` is the duration
    bool isProgramMode = true;
    bool operator==(const DocumentContents&) const = default;
};

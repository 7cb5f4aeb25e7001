#pragma once

#include "data/AQTimePoint.h"

#include <algorithm>
#include <vector>

/// Everything a settings file or the controller holds of the document, as a value. The ids of the
/// points take no part in comparing.
struct DocumentContents {
    std::vector<AQTimePoint> points; ///< in the order of the day, or a file's own
    AQTimePoint taskLight;           ///< `time` is the duration
    bool isProgramMode = true;
    bool operator==(const DocumentContents&) const = default;
};

/// Whether both are the same points in the same rows, whatever their values.
inline bool haveSameIds(const std::vector<AQTimePoint>& some,
                        const std::vector<AQTimePoint>& others) {
    return std::ranges::equal(some, others, {}, &AQTimePoint::id, &AQTimePoint::id);
}

/// Whether a file or the controller would hold the same bytes of both, which carry less than a
/// fraction does.
bool areStoredAlike(const DocumentContents& some, const DocumentContents& others);

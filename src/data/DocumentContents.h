#pragma once

#include "data/AQTimePoint.h"
#include "data/Acclimation.h"

#include <algorithm>
#include <optional>
#include <vector>

/// Everything a settings file holds of the document, as a value; all but the acclimation is what a
/// controller holds. The ids of the points take no part in comparing.
struct DocumentContents {
    std::vector<AQTimePoint> points; ///< in the order of the day, or a file's own
    AQTimePoint taskLight;           ///< `time` is the duration
    bool isProgramMode = true;
    std::optional<Acclimation> acclimation = {}; ///< valid
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

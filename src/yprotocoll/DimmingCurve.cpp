#include "yprotocoll/DimmingCurve.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double fullLevel = 254.0;
constexpr double levelsPerDecade = 253.0 / 3.0;
constexpr double darkShare = 0.0001;

} // namespace

double shareFromLevel(std::uint8_t level) {
    if (level == 0)
        return 0.0;
    if (level >= fullLevel)
        return 1.0;
    return std::pow(10.0, (level - 1) / levelsPerDecade - 1.0) / 100.0;
}

std::uint8_t levelFromShare(double share) {
    if (!(share > darkShare))
        return 0;
    const double level = std::round((std::log10(share * 100.0) + 1.0) * levelsPerDecade + 1.0);
    return static_cast<std::uint8_t>(std::clamp(level, 0.0, fullLevel));
}

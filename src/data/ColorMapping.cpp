#include "data/ColorMapping.h"

#include "data/AQTimePoint.h"
#include "yprotocoll/DimmingCurve.h"

#include <algorithm>

namespace {

constexpr int fullWeight = 255;
constexpr double fullProduct = 65025.0; // full weight x full brightness

/// 0..255 of the cold output by the byte of the colour temperature: rises to the middle, then full.
int coldWeight(int color) {
    if (color <= 1)
        return color;
    return color <= 127 ? 2 * color - 1 : fullWeight;
}

/// The same of the warm output, which falls from the middle on. Not quite the mirror image: the
/// middle of 0..255 belongs to both outputs, so this side reaches the full weight one step earlier.
int warmWeight(int color) {
    const int distance = fullWeight - color;
    if (distance == 0)
        return 0;
    return distance <= 126 ? 2 * distance + 1 : fullWeight;
}

} // namespace

ChannelLevels levelsFromLight(double colorTemp, double brightness) {
    const int color = byteFromFraction(colorTemp);
    const int light = byteFromFraction(brightness);
    return {levelFromShare(coldWeight(color) * light / fullProduct),
            levelFromShare(warmWeight(color) * light / fullProduct)};
}

Light lightFromLevels(std::uint8_t cold, std::uint8_t warm) {
    if (cold == 0 && warm == 0)
        return {0.5, 0.0};
    const double x = shareFromLevel(cold);
    const double y = shareFromLevel(warm);
    const double brightness = std::max(x, y);
    const double colorTemp = x > y ? 1.0 - 0.5 * y / brightness : 0.5 * x / brightness;
    return {std::clamp(colorTemp, 0.0, 1.0), brightness};
}

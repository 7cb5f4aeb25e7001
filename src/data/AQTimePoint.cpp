#include "data/AQTimePoint.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double byteScale = 255.0;

} // namespace

std::uint8_t byteFromFraction(double fraction) {
    if (std::isnan(fraction))
        return 0;
    return static_cast<std::uint8_t>(std::lround(std::clamp(fraction, 0.0, 1.0) * byteScale));
}

double fractionFromByte(std::uint8_t byte) {
    return byte / byteScale;
}

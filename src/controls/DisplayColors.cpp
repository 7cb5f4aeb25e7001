#include "controls/DisplayColors.h"

#include <algorithm>

namespace DisplayColors {

QColor blend(const QColor& first, const QColor& second, double fraction) {
    const double share = std::clamp(fraction, 0.0, 1.0);
    const auto mix = [share](float from, float to) {
        return static_cast<float>((1.0 - share) * double{from} + share * double{to});
    };
    return QColor::fromRgbF(mix(first.redF(), second.redF()), mix(first.greenF(), second.greenF()),
                            mix(first.blueF(), second.blueF()));
}

QColor displayColor(double colorTemp) {
    return colorTemp <= 0.5 ? blend(warm, neutral, 2.0 * colorTemp)
                            : blend(neutral, cold, 2.0 * colorTemp - 1.0);
}

} // namespace DisplayColors

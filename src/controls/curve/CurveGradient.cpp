#include "controls/curve/CurveGradient.h"

#include "controls/DisplayColors.h"
#include "data/ProgramInterpolation.h"

#include <algorithm>

namespace CurveGradient {

std::vector<Stop> temperatureStops(std::span<const AQTimePoint> points) {
    if (points.empty())
        return {};
    const double midnight = lightAt(points, AQTime{}).colorTemp;
    std::vector<Stop> stops;
    stops.reserve(points.size() + 2);
    stops.push_back({midnight, 0.0});
    for (const AQTimePoint& point : points) {
        stops.push_back({point.colorTemp,
                         static_cast<double>(point.time.minuteOfDay()) / AQTime::minutesPerDay});
    }
    stops.push_back({midnight, 1.0});
    return stops;
}

QGradientStops colorStops(std::span<const Stop> stops) {
    constexpr double neutral = 0.5;
    QGradientStops colors;
    for (std::size_t i = 0; i < stops.size(); ++i) {
        const auto [colorTemp, position] = stops[i];
        colors.append({position, DisplayColors::displayColor(colorTemp)});
        if (i + 1 == stops.size())
            break;
        const auto [nextTemp, nextPosition] = stops[i + 1];
        if ((colorTemp < neutral && neutral < nextTemp) ||
            (colorTemp > neutral && neutral > nextTemp)) {
            const double share = (neutral - colorTemp) / (nextTemp - colorTemp);
            colors.append(
                {(1.0 - share) * position + share * nextPosition, DisplayColors::neutral});
        }
    }
    return colors;
}

QImage rows(const QGradientStops& colors, double start, double end, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    auto* const line = reinterpret_cast<QRgb*>(image.scanLine(0));
    qsizetype stop = 0;
    for (int pixel = 0; pixel < image.width(); ++pixel) {
        const double position = (pixel + 0.5 - start) / (end - start);
        while (stop + 2 < colors.size() && colors[stop + 1].first <= position)
            ++stop;
        const auto& [from, first] = colors[stop];
        const auto& [to, second] = colors[std::min(stop + 1, colors.size() - 1)];
        const double share = to > from ? (position - from) / (to - from) : 0.0;
        line[pixel] = DisplayColors::blend(first, second, share).rgb();
    }
    for (int row = 1; row < image.height(); ++row)
        std::copy_n(line, image.width(), reinterpret_cast<QRgb*>(image.scanLine(row)));
    return image;
}

} // namespace CurveGradient

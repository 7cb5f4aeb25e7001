#pragma once

#include "data/AQTimePoint.h"

#include <QBrush>
#include <QImage>

#include <span>
#include <vector>

/// The colours under the curve.
namespace CurveGradient {

/// A colour temperature at a fraction of the day, 0.0 at midnight and 1.0 at the next.
struct Stop {
    double colorTemp;
    double position;
    bool operator==(const Stop&) const = default;
};

/// One stop per point and one at each midnight; none for an empty program.
std::vector<Stop> temperatureStops(std::span<const AQTimePoint> points);

/// The display colours of the stops, with white added wherever two neighbours lie on either side of
/// colour temperature 0.5: a straight blend of their colours would miss it.
QGradientStops colorStops(std::span<const Stop> stops);

/// A picture, every row the same, of what `colors` look like from position 0.0, at `start` pixels,
/// to position 1.0, at `end`; each pixel has the colour of its middle. Outside, the first and the
/// last colour go on. `colors` must not be empty.
///
/// A QLinearGradient is not exact enough: its steps are rounded and add up from where a row begins,
/// so that rows of different lengths show the same colour up to two pixels apart.
QImage rows(const QGradientStops& colors, double start, double end, QSize size);

} // namespace CurveGradient

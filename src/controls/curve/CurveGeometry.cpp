#include "controls/curve/CurveGeometry.h"

#include "data/AQTimePoint.h"

#include <algorithm>

double CurveGeometry::plotWidth() const {
    return std::max(0.0, m_size.width() - 2.0 * sideMargin);
}

double CurveGeometry::plotHeight() const {
    return std::max(0.0, m_size.height() - 2.0 * verticalMargin);
}

double CurveGeometry::x(double minuteOfDay) const {
    return plotWidth() * minuteOfDay / AQTime::minutesPerDay + sideMargin;
}

double CurveGeometry::minuteAt(double x) const {
    const double width = plotWidth();
    return width > 0.0 ? (x - sideMargin) / width * AQTime::minutesPerDay : 0.0;
}

double CurveGeometry::y(double intensity) const {
    return fromBottom(plotHeight() * intensity + verticalMargin);
}

double CurveGeometry::intensityAt(double y) const {
    const double height = plotHeight();
    if (height <= 0.0)
        return y < bottom() ? 1.0 : 0.0;
    return std::clamp((fromBottom(y) - verticalMargin) / height, 0.0, 1.0);
}

QPointF CurveGeometry::position(const AQTimePoint& point) const {
    return {x(point.time.minuteOfDay()), y(point.brightness)};
}

QRectF CurveGeometry::rectFromBottom(double x, double bottom, double width, double height) const {
    return {x, fromBottom(bottom + height), width, height};
}

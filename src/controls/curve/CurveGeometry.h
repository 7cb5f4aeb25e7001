#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

struct AQTimePoint;

/// Maps minutes of the day and intensities to places in the curve view and back.
///
/// The plot lies within margins of 60 units left and right and 40 units at the bottom and the top.
/// Results are widget coordinates (y grows downwards); lengths that are given from the bottom edge,
/// as all of the axes' are, are turned here and nowhere else. In a view smaller than its margins
/// the plot has no extent and everything falls on its left or bottom edge.
class CurveGeometry {
public:
    static constexpr double sideMargin = 60.0;
    static constexpr double verticalMargin = 40.0;

    CurveGeometry() = default;
    /// `size` is that of the whole view.
    explicit CurveGeometry(QSizeF size) : m_size(size) {}

    double width() const { return m_size.width(); }
    double height() const { return m_size.height(); }

    /// `minuteOfDay` is 0..1440, where 1440 is the next midnight.
    double x(double minuteOfDay) const;
    /// `intensity` is 0.0..1.0.
    double y(double intensity) const;
    /// The minute of the day at a place, below 0 and above 1440 beside the plot.
    double minuteAt(double x) const;
    /// The intensity at a height, limited to 0.0..1.0.
    double intensityAt(double y) const;
    QPointF position(const AQTimePoint& point) const;

    double left() const { return sideMargin; }
    double right() const { return x(1440.0); }
    double top() const { return y(1.0); }
    double bottom() const { return y(0.0); }

    /// The y of a height above the bottom edge.
    double fromBottom(double height) const { return m_size.height() - height; }
    /// The rectangle whose lower left corner is (x, bottom), `bottom` measured from the bottom
    /// edge.
    QRectF rectFromBottom(double x, double bottom, double width, double height) const;

private:
    double plotWidth() const;
    double plotHeight() const;

    QSizeF m_size;
};

#pragma once

#include "controls/curve/CurveGeometry.h"
#include "data/AQTimePoint.h"

#include <QBrush>
#include <QFont>
#include <QPointF>
#include <QRectF>

#include <span>

class QColor;
class QImage;
class QPainter;
class QPolygonF;

/// Paints the parts of the curve view; the view says which and in what order.
///
/// Straight lines and boxes are set on whole device pixels, so that they are sharp at every scale.
/// The painter's origin must lie on one, and it must not be rotated.
class CurvePainter {
public:
    /// `painter` must outlive this. Texts are set in the family of `font`, axis labels
    /// larger where it is large, to at most 14 pixels.
    CurvePainter(QPainter& painter, const CurveGeometry& geometry, const QFont& font);

    /// The ground with its grid, the axes and their labels; the labels are grey unless enabled.
    void drawBackground(bool isEnabled);
    /// The pale lines of each 10 % and each 2 h, as far as they lie above the curve; all of them
    /// without points.
    void drawGrid(std::span<const AQTimePoint> points);
    /// The curve's outline in grey. `points` must not be empty.
    void drawOutline(std::span<const AQTimePoint> points);
    /// The area under the curve in the colours of the light, and the outer half of the outline,
    /// as if the area covered the inner one. `points` must not be empty.
    void drawFill(std::span<const AQTimePoint> points);
    /// The curve of other points as a thin dashed line. `points` must not be empty.
    void drawGhost(std::span<const AQTimePoint> points);
    /// The line over a time of day, its head, and the tag that hides the axis labels under it, with
    /// a grip if it can be dragged.
    void drawTimeMarker(AQTime time, bool isDraggable);
    static QRectF tagRect(const CurveGeometry& geometry, AQTime time);
    /// A line of grey text in the middle of the plot.
    void drawHint(const QString& text);
    /// The discs of the points, none selected.
    void drawPoints(std::span<const AQTimePoint> points);
    /// The disc of the playhead at its time and intensity.
    void drawPlayhead(const AQTimePoint& light);
    /// The frame that shows the keyboard's focus.
    void drawFocusRing();

private:
    /// Fills the part of `plot` under `line`, whose x never falls, with `colorRows`, which are as
    /// wide as `plot` and repeated downwards. In device pixels.
    void fillUnder(const QPolygonF& line, const QRect& plot, const QImage& colorRows);
    /// The same for devices that have no pixels, such as files of vectors; the bottom edge of the
    /// plot at `bottom`.
    void fillUnder(const QPolygonF& line, double bottom, const QGradientStops& colors);
    /// A disc at the place of `light` in its colour.
    void drawDisc(const AQTimePoint& light, double radius);
    /// Grows with the desktop's font as far as the ticks leave room.
    int labelPixelSize() const;
    void drawAxes();
    void drawIntensityTicks();
    void drawHourTicks();
    void drawLabel(const QRectF& box, int alignment, const QString& text);

    /// A width in device pixels: whole ones, at least one.
    double linePixels(double width) const;
    /// Where a line at `y`, one unit thick, begins: its first row of device pixels.
    double topOfHorizontal(double y) const;
    void drawGrip(const QRectF& tag);
    void fillBox(const QRectF& box, const QColor& color);
    void drawHorizontal(double fromX, double toX, double y, const QColor& color);
    void drawVertical(double x, double fromY, double toY, double width, const QColor& color);

    QPainter& m_painter;
    CurveGeometry m_geometry;
    QFont m_font;
    double m_scale; ///< device pixels a unit
};

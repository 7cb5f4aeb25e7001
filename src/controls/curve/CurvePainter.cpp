#include "controls/curve/CurvePainter.h"

#include "controls/DisplayColors.h"
#include "controls/FittingFont.h"
#include "controls/Percent.h"
#include "controls/Strokes.h"
#include "controls/curve/AQCurvePoint.h"
#include "controls/curve/CurveGradient.h"
#include "data/PointColumn.h"
#include "data/ProgramInterpolation.h"
#include "data/TimeText.h"

#include <QFontInfo>
#include <QLineF>
#include <QPaintEngine>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double dashLength = 2.0;
constexpr double tickLength = 10.0;
constexpr int labelHeight = 14;
constexpr int smallestLabel = 11; ///< the size of its font in pixels, beside a desktop's of 13
constexpr int largestLabel = 14;
constexpr QSize titleSize{50, labelHeight};
constexpr QSize percentSize{45, 20};
constexpr QSize tagSize{48, 20};
constexpr QColor gridColor{236, 236, 236};
/// The area under the curve is filled in upright slabs of this many pixels, and in pieces of this
/// many rows: colours are copied from the curve's highest place in the slab downwards, then the
/// blank ground is put back above the curve, and at the end its grid. Filled as a polygon with a
/// brush of colours it takes three times as long, most of it spent on waking and awaiting Qt's pool
/// of threads. Slabs meet at whole pixels and leave no seams.
constexpr int slabWidth = 64;
constexpr int rowsAtOnce = 64;
constexpr QColor ghostColor{150, 150, 150}; ///< stands out on the ground and on the cold light
constexpr double ghostPeriod = 8.0;
constexpr double markerWidth = 2.0;
constexpr double markerHeadRadius = 4.0;
constexpr double gripWidth = 7.0;
constexpr double gripOverlap = 1.0; ///< with the tag, so that no seam shows
constexpr int hintSize = 15;
constexpr double playheadRadius = 10.0;
constexpr double focusRingWidth = 2.0;
/// What the sums of a place may be off a whole device pixel.
constexpr double rounding = 1e-6;

QString intensityTitle() {
    return PointColumn::title(PointColumn::brightness);
}

QPolygonF curveLine(std::span<const AQTimePoint> points, const CurveGeometry& geometry) {
    const double midnight = geometry.y(lightAt(points, AQTime{}).brightness);
    QPolygonF line;
    line.reserve(static_cast<qsizetype>(points.size()) + 4);
    line.append({geometry.left(), midnight});
    for (const AQTimePoint& point : points)
        line.append(geometry.position(point));
    line.append({geometry.right(), midnight});
    return line;
}

/// The upper half of the outline along `segment`, in device pixels.
QPolygonF upperEdge(const QLineF& segment, double lineWidth) {
    QLineF across = segment.normalVector();
    across.setLength(lineWidth / 2.0);
    const QPointF up(across.dx(), across.dy());
    return QPolygonF{segment.p1(), segment.p2(), segment.p2() + up, segment.p1() + up};
}

} // namespace

CurvePainter::CurvePainter(QPainter& painter, const CurveGeometry& geometry, const QFont& font)
    : m_painter(painter), m_geometry(geometry), m_font(font),
      m_scale(painter.deviceTransform().m11()) {
    painter.setRenderHint(QPainter::Antialiasing);
}

void CurvePainter::drawBackground(bool isEnabled) {
    // Past the edges, which the view cuts: at fractional scales what lies under them would show.
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    m_painter.fillRect(QRectF(-1.0, -1.0, m_geometry.width() + 2.0, m_geometry.height() + 2.0),
                       DisplayColors::neutral);
    m_painter.setRenderHint(QPainter::Antialiasing);
    drawGrid({});
    m_painter.setPen(isEnabled ? DisplayColors::line : DisplayColors::disabled);
    m_painter.setFont(fittingFont(m_font, labelPixelSize(), titleSize, intensityTitle()));
    drawAxes();
    m_painter.setFont(fittingFont(m_font, labelPixelSize(), percentSize, percentText(1.0)));
    drawIntensityTicks();
    drawHourTicks();
}

int CurvePainter::labelPixelSize() const {
    const int grown = QFontInfo(m_font).pixelSize() * smallestLabel / 13;
    const int spacing = static_cast<int>((m_geometry.bottom() - m_geometry.top()) / 10.0);
    return std::max(smallestLabel, std::min({grown, spacing, largestLabel}));
}

void CurvePainter::drawGrid(std::span<const AQTimePoint> points) {
    const QPolygonF line = curveLine(points, m_geometry);
    for (int i = 1; i <= 10; ++i) {
        const double y = m_geometry.y(i / 10.0);
        double from = line.first().x();
        for (qsizetype k = 1; k < line.size(); ++k) {
            const QPointF a = line[k - 1];
            const QPointF b = line[k];
            const bool isAbove = a.y() > y;
            if (isAbove == (b.y() > y))
                continue;
            const double crossing = a.x() + (b.x() - a.x()) * (y - a.y()) / (b.y() - a.y());
            if (isAbove)
                drawHorizontal(from, crossing, y, gridColor);
            from = crossing;
        }
        if (line.last().y() > y)
            drawHorizontal(from, line.last().x(), y, gridColor);
    }
    for (int hour = 2; hour <= 24; hour += 2) {
        const double end = m_geometry.y(lightAt(points, AQTime{hour % 24, 0, 0}).brightness);
        drawVertical(m_geometry.x(hour * AQTime::minutesPerHour), m_geometry.top(), end, 1.0,
                     gridColor);
    }
}

void CurvePainter::drawAxes() {
    // Dashes as boxes: a dashed pen cannot be kept on whole device pixels.
    const double left = m_geometry.left();
    const double bottom = m_geometry.bottom();
    for (double x = left; x < m_geometry.right(); x += 2.0 * dashLength)
        drawHorizontal(x, std::min(x + dashLength, m_geometry.right()), bottom,
                       DisplayColors::disabled);
    for (double y = bottom; y > m_geometry.top(); y -= 2.0 * dashLength) {
        drawVertical(left, std::max(y - dashLength, m_geometry.top()), y, 1.0,
                     DisplayColors::disabled);
    }
    drawLabel(
        m_geometry.rectFromBottom(m_geometry.width() - 45.0, 33.0, titleSize.width(), labelHeight),
        Qt::AlignHCenter, PointColumn::title(PointColumn::time));
    drawLabel(
        m_geometry.rectFromBottom(10.0, m_geometry.height() - 25.0, titleSize.width(), labelHeight),
        Qt::AlignHCenter, intensityTitle());
}

void CurvePainter::drawIntensityTicks() {
    const double axis = m_geometry.left();
    for (int i = 0; i <= 10; ++i) {
        const double y = m_geometry.y(i / 10.0);
        drawHorizontal(axis - tickLength, axis, y, DisplayColors::disabled);
        if (i == 0)
            continue;
        drawLabel(QRectF(0.0, y - labelHeight / 2.0, percentSize.width(), labelHeight),
                  Qt::AlignRight, percentText(i / 10.0));
    }
}

void CurvePainter::drawHourTicks() {
    const double axis = m_geometry.bottom();
    for (int hour = 0; hour <= 24; ++hour) {
        const double x = m_geometry.x(hour * AQTime::minutesPerHour);
        drawVertical(x, axis, axis + tickLength, 1.0, DisplayColors::disabled);
        if (hour % 2 != 0)
            continue;
        drawLabel(m_geometry.rectFromBottom(x - 20.0, 11.0, 40.0, labelHeight), Qt::AlignHCenter,
                  timeText(hour, 0));
    }
}

void CurvePainter::drawLabel(const QRectF& box, int alignment, const QString& text) {
    m_painter.drawText(box, alignment | Qt::AlignVCenter | Qt::TextDontClip, text);
}

void CurvePainter::drawOutline(std::span<const AQTimePoint> points) {
    // Line by line: as one polyline this takes fifty times as long at a scale of 2. Square caps
    // close the corners.
    const QPolygonF line = curveLine(points, m_geometry);
    QList<QLineF> segments;
    segments.reserve(line.size());
    for (qsizetype i = 1; i < line.size(); ++i)
        segments.append({line[i - 1], line[i]});
    m_painter.setPen(QPen(DisplayColors::disabled, 1.0, Qt::SolidLine, Qt::SquareCap));
    m_painter.drawLines(segments);
}

void CurvePainter::drawFill(std::span<const AQTimePoint> points) {
    // In device pixels, where a picture is copied instead of scaled; the plot's edges on whole
    // ones, the lower one in the middle of the axis as it is drawn: nothing of the area shows where
    // the light is off.
    QPolygonF line = QTransform::fromScale(m_scale, m_scale).map(curveLine(points, m_geometry));
    const double left = std::round(line.first().x());
    const double right = std::round(line.last().x());
    for (QPointF& place : line)
        place.setX(std::clamp(place.x(), left, right));
    line.first().setX(left);
    line.last().setX(right);
    const double bottom = topOfHorizontal(m_geometry.bottom()) + std::floor(linePixels(1.0) / 2.0);
    line.translate(0.0, bottom - m_geometry.bottom() * m_scale);
    const QRect plot(static_cast<int>(left), 0, static_cast<int>(right - left),
                     static_cast<int>(bottom));
    if (plot.isEmpty())
        return;
    const auto colors = CurveGradient::colorStops(CurveGradient::temperatureStops(points));
    m_painter.save();
    m_painter.scale(1.0 / m_scale, 1.0 / m_scale);
    m_painter.setPen(Qt::NoPen);
    if (m_painter.paintEngine()->type() == QPaintEngine::Raster)
        fillUnder(line, plot,
                  CurveGradient::rows(colors, m_geometry.left() * m_scale - plot.left(),
                                      m_geometry.right() * m_scale - plot.left(),
                                      {plot.width(), rowsAtOnce}));
    else
        fillUnder(line, bottom, colors);
    m_painter.restore();

    drawGrid(points);
    m_painter.save();
    m_painter.scale(1.0 / m_scale, 1.0 / m_scale);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(DisplayColors::disabled);
    for (qsizetype i = 1; i < line.size(); ++i)
        m_painter.drawPolygon(upperEdge({line[i - 1], line[i]}, m_scale));
    m_painter.restore();
}

void CurvePainter::fillUnder(const QPolygonF& line, const QRect& plot, const QImage& colorRows) {
    m_painter.setBrush(DisplayColors::neutral);
    qsizetype next = 1;
    QPointF from = line.first();
    while (next < line.size()) {
        const int start = static_cast<int>(from.x());
        const int end = std::min(start + slabWidth, plot.right() + 1);
        QPolygonF above{from};
        while (next < line.size() && line[next].x() <= end)
            above.append(line[next++]);
        if (next < line.size()) {
            const QLineF segment(line[next - 1], line[next]);
            from = segment.pointAt((end - segment.x1()) / segment.dx());
            from.setX(end);
            above.append(from);
        }
        const double highest = std::floor(std::ranges::min(above, {}, &QPointF::y).y());
        for (int y = static_cast<int>(highest); y <= plot.bottom(); y += colorRows.height()) {
            const QRect part(start - plot.left(), 0, end - start,
                             std::min(colorRows.height(), plot.bottom() + 1 - y));
            m_painter.drawImage(QPoint(start, y), colorRows, part);
        }
        above.append({static_cast<double>(end), highest});
        above.append({static_cast<double>(start), highest});
        m_painter.drawPolygon(above);
    }
}

void CurvePainter::fillUnder(const QPolygonF& line, double bottom, const QGradientStops& colors) {
    QLinearGradient gradient(line.first().x(), 0.0, line.last().x(), 0.0);
    gradient.setStops(colors);
    m_painter.setBrush(gradient);
    m_painter.drawPolygon(
        line + QPolygonF{QPointF(line.last().x(), bottom), QPointF(line.first().x(), bottom)});
}

void CurvePainter::drawGhost(std::span<const AQTimePoint> points) {
    // Dash by dash, for the same reason as the outline.
    const QPolygonF line = curveLine(points, m_geometry);
    QList<QLineF> dashes;
    double start = 0.0; // along the whole line
    for (qsizetype i = 1; i < line.size(); ++i) {
        const QLineF segment(line[i - 1], line[i]);
        const double length = segment.length();
        for (double dash = std::floor(start / ghostPeriod) * ghostPeriod; dash < start + length;
             dash += ghostPeriod) {
            const double from = std::max(dash - start, 0.0);
            const double to = std::min(dash + ghostPeriod / 2.0 - start, length);
            if (from < to)
                dashes.append({segment.pointAt(from / length), segment.pointAt(to / length)});
        }
        start += length;
    }
    m_painter.setPen(QPen(ghostColor, 1.0, Qt::SolidLine, Qt::FlatCap));
    m_painter.drawLines(dashes);
}

QRectF CurvePainter::tagRect(const CurveGeometry& geometry, AQTime time) {
    return geometry.rectFromBottom(geometry.x(time.minuteOfDay()) - tagSize.width() / 2.0, 8.0,
                                   tagSize.width(), tagSize.height());
}

// Points to both sides, as the pointer's shape does over it: there is no room for lines beside the
// digits.
void CurvePainter::drawGrip(const QRectF& tag) {
    const double middle = tag.center().y();
    for (const auto& [edge, tip] :
         {std::pair(tag.left() + gripOverlap, tag.left() - gripWidth),
          std::pair(tag.right() - gripOverlap, tag.right() + gripWidth)}) {
        const QPointF corners[] = {{edge, tag.top()}, {tip, middle}, {edge, tag.bottom()}};
        m_painter.drawPolygon(corners, 3);
    }
}

void CurvePainter::drawHint(const QString& text) {
    QFont font = m_font;
    font.setPixelSize(std::max(hintSize, QFontInfo(m_font).pixelSize()));
    m_painter.setFont(font);
    m_painter.setPen(DisplayColors::disabled);
    m_painter.drawText(QRectF(QPointF(m_geometry.left(), m_geometry.top()),
                              QPointF(m_geometry.right(), m_geometry.bottom())),
                       Qt::AlignCenter, text);
}

void CurvePainter::drawTimeMarker(AQTime time, bool isDraggable) {
    const double x = m_geometry.x(time.minuteOfDay());
    drawVertical(x, m_geometry.top(), m_geometry.bottom(), markerWidth, DisplayColors::line);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(DisplayColors::line);
    m_painter.drawEllipse(QPointF(x, m_geometry.top()), markerHeadRadius, markerHeadRadius);

    const QRectF tag = tagRect(m_geometry, time);
    if (isDraggable)
        drawGrip(tag);
    fillBox(tag, DisplayColors::line);
    const QString text = timeText(time.hour, time.minute);
    m_painter.setFont(fittingFont(m_font, 13, tagSize, text));
    m_painter.setPen(DisplayColors::neutral);
    m_painter.drawText(tag, Qt::AlignCenter | Qt::TextDontClip, text);
}

void CurvePainter::drawPlayhead(const AQTimePoint& light) {
    drawDisc(light, playheadRadius);
}

void CurvePainter::drawPoints(std::span<const AQTimePoint> points) {
    for (const AQTimePoint& point : points)
        drawDisc(point, AQCurvePoint::radius);
}

void CurvePainter::drawDisc(const AQTimePoint& light, double radius) {
    m_painter.setPen(QPen(DisplayColors::line, 2.0));
    m_painter.setBrush(DisplayColors::displayColor(light.colorTemp));
    m_painter.drawEllipse(m_geometry.position(light), radius, radius);
}

void CurvePainter::drawFocusRing() {
    const QRectF view(0.0, 0.0, m_geometry.width(), m_geometry.height());
    Strokes::frame(m_painter, view, focusRingWidth, DisplayColors::cold);
}

double CurvePainter::linePixels(double width) const {
    return std::max(1.0, std::round(width * m_scale));
}

double CurvePainter::topOfHorizontal(double y) const {
    return std::ceil(y * m_scale - linePixels(1.0) / 2.0 - rounding);
}

void CurvePainter::fillBox(const QRectF& box, const QColor& color) {
    // On whole pixels there are no edges to smooth, and without it a box takes a tenth of the time.
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    m_painter.fillRect(Strokes::snapped(m_painter, box), color);
    m_painter.setRenderHint(QPainter::Antialiasing, true);
}

// A line of an odd number of device pixels cannot be centred on its place. It gives way to the left
// and downwards, so that the axes stay outside the area that is filled afterwards.
void CurvePainter::drawHorizontal(double fromX, double toX, double y, const QColor& color) {
    fillBox(QRectF(fromX, topOfHorizontal(y) / m_scale, toX - fromX, linePixels(1.0) / m_scale),
            color);
}

void CurvePainter::drawVertical(double x, double fromY, double toY, double width,
                                const QColor& color) {
    const double whole = linePixels(width) / m_scale;
    const double left = std::floor((x - whole / 2.0) * m_scale + rounding) / m_scale;
    fillBox(QRectF(left, fromY, whole, toY - fromY), color);
}

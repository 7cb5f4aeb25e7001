#pragma once

#include <QColor>
#include <QRectF>

#include <functional>

class QPainter;

/// Painting that QPainter has no single call for. Positions are in logical units.
namespace Strokes {

/// `rect` moved to the nearest edges of device pixels, so that it is drawn sharp at any scale.
QRectF snapped(const QPainter& painter, const QRectF& rect);

/// An outline of `thickness` inside `rect`, its edges on device pixels and at least one wide.
void frame(QPainter& painter, const QRectF& rect, double thickness, const QColor& color);

/// Around a field whose text is wrong, in this colour.
void refusal(QPainter& painter, const QRectF& field);
inline constexpr QColor refusalColor{196, 43, 43};

/// Plus-darker: what `strokes` draws takes light away from the opaque picture in `area`.
///
/// Per channel: max(0, destination + source - 1), weighted with the stroke's coverage. `strokes`
/// gets the painter ready to draw, and for every source colour uses `plusDarkerPen` of it.
void plusDarker(QPainter& painter, const QRectF& area,
                const std::function<void(QPainter&)>& strokes);

/// The colour that stands for the white level (0..1) within `plusDarker`.
QColor plusDarkerPen(double whiteLevel);

} // namespace Strokes

#include "controls/Strokes.h"

#include <QPaintDevice>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Strokes {

QRectF snapped(const QPainter& painter, const QRectF& rect) {
    // In the window's pixels: at a scale of 1.5 a widget may begin between two of them.
    const QTransform toDevice = painter.deviceTransform();
    const QRectF device = toDevice.mapRect(rect);
    const QPointF topLeft(std::round(device.left()), std::round(device.top()));
    const QPointF bottomRight(std::round(device.right()), std::round(device.bottom()));
    return toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
}

void frame(QPainter& painter, const QRectF& rect, double thickness, const QColor& color) {
    const double scale = painter.device()->devicePixelRatioF();
    const double width = std::max(1.0, std::round(thickness * scale)) / scale;
    const QRectF outer = snapped(painter, rect);
    const QRectF inner = outer.adjusted(width, width, -width, -width);
    painter.fillRect(QRectF(outer.topLeft(), QPointF(outer.right(), inner.top())), color);
    painter.fillRect(QRectF(QPointF(outer.left(), inner.bottom()), outer.bottomRight()), color);
    painter.fillRect(QRectF(QPointF(outer.left(), inner.top()), inner.bottomLeft()), color);
    painter.fillRect(QRectF(inner.topRight(), QPointF(outer.right(), inner.bottom())), color);
}

void refusal(QPainter& painter, const QRectF& field) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(refusalColor, 2.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(field.adjusted(1.0, 1.0, -1.0, -1.0), 3.0, 3.0);
}

void plusDarker(QPainter& painter, const QRectF& area,
                const std::function<void(QPainter&)>& strokes) {
    // d - k, stopped at 0, is the inverse of (1 - d) + k, stopped at 1, which is Plus. Difference
    // with white inverts exactly; its edges must be hard, or they would not cancel out.
    const auto invert = [&painter, &area] {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setCompositionMode(QPainter::CompositionMode_Difference);
        painter.fillRect(area, Qt::white);
    };
    painter.save();
    invert();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    strokes(painter);
    invert();
    painter.restore();
}

QColor plusDarkerPen(double whiteLevel) {
    const int taken = 255 - static_cast<int>(std::lround(std::clamp(whiteLevel, 0.0, 1.0) * 255.0));
    return {taken, taken, taken};
}

} // namespace Strokes

#include "controls/popovers/PopoverShape.h"

#include "controls/DisplayColors.h"
#include "controls/popovers/PopoverPlacement.h"

#include <QPainter>
#include <QPolygonF>

namespace PopoverShape {

QRect body(const PopoverPlacement& placement) {
    const int arrow = PopoverPlacement::arrowLength;
    return QRect(QPoint(0, 0), placement.frame.size())
        .adjusted(0, placement.isAbove ? 0 : arrow, 0, placement.isAbove ? -arrow : 0);
}

QPainterPath outline(const PopoverPlacement& placement, double inset) {
    const QRectF inner = QRectF(body(placement)).adjusted(inset, inset, -inset, -inset);
    QPainterPath path;
    path.addRoundedRect(inner, PopoverPlacement::cornerRadius, PopoverPlacement::cornerRadius);
    const double tip = placement.isAbove ? placement.frame.height() - inset : inset;
    const double foot = placement.isAbove ? inner.bottom() - 1.0 : inner.top() + 1.0;
    const double x = placement.arrowX;
    QPainterPath arrow;
    arrow.addPolygon(
        QPolygonF({QPointF(x - PopoverPlacement::arrowHalfWidth, foot), QPointF(x, tip),
                   QPointF(x + PopoverPlacement::arrowHalfWidth, foot)}));
    arrow.closeSubpath();
    return path | arrow;
}

void paintBanded(QPainter& painter, const PopoverPlacement& placement, int bandBottom) {
    constexpr double border = 1.0;
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath shape = outline(placement, border / 2.0);
    painter.setPen(QPen(DisplayColors::disabled, border));
    painter.setBrush(DisplayColors::neutral);
    painter.drawPath(shape);
    // The band and an arrow above it.
    painter.setClipRect(0, 0, placement.frame.width(), bandBottom);
    painter.setBrush(DisplayColors::disabled);
    painter.drawPath(shape);
}

} // namespace PopoverShape

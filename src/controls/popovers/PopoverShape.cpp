#include "controls/popovers/PopoverShape.h"

#include "controls/popovers/PopoverPlacement.h"

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

} // namespace PopoverShape

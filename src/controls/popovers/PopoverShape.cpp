#include "controls/popovers/PopoverShape.h"

#include "controls/popovers/PopoverPlacement.h"

#include <QPolygonF>

#include <algorithm>
#include <cmath>

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

QRegion mask(const PopoverPlacement& placement) {
    constexpr int radius = PopoverPlacement::cornerRadius;
    const QRect inner = body(placement);
    QRegion region;
    for (int row = 0; row < inner.height(); ++row) {
        const int inCorner = std::max(0, radius - std::min(row + 1, inner.height() - row));
        const int cut =
            radius - static_cast<int>(std::ceil(std::sqrt(radius * radius - inCorner * inCorner)));
        region += QRect(inner.x() + cut, inner.y() + row, inner.width() - 2 * cut, 1);
    }
    for (int row = 0; row < PopoverPlacement::arrowLength; ++row) {
        const int half =
            (row + 1) * PopoverPlacement::arrowHalfWidth / PopoverPlacement::arrowLength + 1;
        const int y = placement.isAbove ? placement.frame.height() - 1 - row : row;
        region += QRect(placement.arrowX - half, y, 2 * half, 1);
    }
    return region;
}

} // namespace PopoverShape

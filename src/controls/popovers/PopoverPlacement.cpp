#include "controls/popovers/PopoverPlacement.h"

#include <algorithm>

PopoverPlacement PopoverPlacement::place(const QRect& anchor, QSize body, const QRect& bounds) {
    const QSize size(body.width(), body.height() + arrowLength);
    const int anchorBottom = anchor.y() + anchor.height();
    const int roomAbove = anchor.y() - bounds.y();
    const int roomBelow = bounds.y() + bounds.height() - anchorBottom;
    const bool isAbove = roomAbove >= size.height() || roomAbove >= roomBelow;

    const int middle = anchor.x() + anchor.width() / 2;
    const int rightmost = bounds.x() + bounds.width() - size.width();
    const int left = std::max(bounds.x(), std::min(middle - size.width() / 2, rightmost));
    const int top = isAbove ? anchor.y() - size.height() : anchorBottom;

    constexpr int corner = cornerRadius + arrowHalfWidth;
    const int arrowX = std::clamp(middle - left, corner, std::max(corner, size.width() - corner));
    return {QRect(QPoint(left, top), size), isAbove, arrowX};
}

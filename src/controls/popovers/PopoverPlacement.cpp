#include "controls/popovers/PopoverPlacement.h"

#include <algorithm>

PopoverPlacement PopoverPlacement::place(const QRect& anchor, QSize body, const QRect& screen) {
    const QSize size(body.width(), body.height() + arrowLength);
    const int anchorBottom = anchor.y() + anchor.height();
    const int roomAbove = anchor.y() - screen.y();
    const int roomBelow = screen.y() + screen.height() - anchorBottom;
    const bool isAbove = roomAbove >= size.height() || roomAbove >= roomBelow;

    const int middle = anchor.x() + anchor.width() / 2;
    const int rightmost = screen.x() + screen.width() - size.width();
    const int left = std::max(screen.x(), std::min(middle - size.width() / 2, rightmost));
    const int top = isAbove ? anchor.y() - size.height() : anchorBottom;

    constexpr int corner = cornerRadius + arrowHalfWidth;
    const int arrowX = std::clamp(middle - left, corner, std::max(corner, size.width() - corner));
    return {QRect(QPoint(left, top), size), isAbove, arrowX};
}

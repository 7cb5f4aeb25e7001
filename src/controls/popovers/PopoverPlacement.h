#pragma once

#include <QRect>
#include <QSize>

/// Where a popover stands beside what it speaks about.
struct PopoverPlacement {
    static constexpr int arrowLength = 9;
    static constexpr int arrowHalfWidth = 9;
    static constexpr int cornerRadius = 6;

    QRect frame;         ///< all of it, the arrow included
    bool isAbove = true; ///< above the anchor, so that the arrow points down
    int arrowX = 0;      ///< the arrow's tip, from the left edge of `frame`

    bool operator==(const PopoverPlacement&) const = default;

    /// Above `anchor` and centred on it; below where the top of `bounds` leaves no room and there
    /// is more of it below. Shifted to stay between the sides of `bounds` with the arrow still at
    /// the anchor's middle, as far as the rounded corners allow. It never overlaps the anchor.
    ///
    /// `body` is the size without the arrow; all rectangles in one coordinate system.
    static PopoverPlacement place(const QRect& anchor, QSize body, const QRect& bounds);
};

#include "workflows/PanelPlace.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace {

constexpr int gap = 8;
constexpr int titleBar = 40; ///< room for the one that the desktop gives the dialog

} // namespace

void placeBelow(QWidget& dialog, const QWidget& uncovered) {
    dialog.adjustSize();
    const QRect room = uncovered.screen()->availableGeometry();
    const QPoint below = uncovered.mapToGlobal(uncovered.rect().bottomLeft());
    const int x = below.x() + (uncovered.width() - dialog.width()) / 2;
    dialog.move(std::clamp(x, room.left(), std::max(room.left(), room.right() - dialog.width())),
                std::max(room.top(),
                         std::min(below.y() + gap, room.bottom() - dialog.height() - titleBar)));
}

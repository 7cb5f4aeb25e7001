#pragma once

#include <QWidget>

/// Parts `view` from `owner` for good, at once, but destroys it only after the event under way: it
/// may be in the middle of one of the mouse or of a key that led here.
inline void letGo(QWidget& view, const QObject& owner) {
    view.disconnect(&owner);
    view.hide();
    view.setParent(nullptr);
    view.deleteLater();
}

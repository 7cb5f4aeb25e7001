#pragma once

class QWidget;

/// Puts a dialog that is to be shown below `uncovered`, as far as the screen has room there.
void placeBelow(QWidget& dialog, const QWidget& uncovered);

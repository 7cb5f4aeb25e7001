#pragma once

class QWidget;

/// Lets the mouse through to what stands behind a window of its own, which must have the flag
/// Qt::WindowTransparentForInput. Call it each time after the window was shown, which may have made
/// it anew.
///
/// On X11 the flag alone only keeps the window from hearing of the mouse; a click on it is lost.
void letClicksThrough(const QWidget& window);

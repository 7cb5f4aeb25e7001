#pragma once

#include <QColor>

class QPalette;

/// The program's one accent, the cold indigo of the light, made readable in the palette at hand.
namespace AccentColor {

/// True when texts are lighter than the window they stand on.
bool isDark(const QPalette& palette);

/// For lines, marks and texts on the window: the indigo itself, or a lighter tint of it on dark.
QColor onWindow(const QPalette& palette);

/// For filled shapes that carry white: contrast of white on it is at least 4.5 to 1.
QColor fill(const QPalette& palette);

/// Behind what is selected in a list: a tint of the accent that texts and controls stand out of.
QColor selection(const QPalette& palette);

/// The window's colour with a share (0..1) of its text colour: quiet borders and backgrounds.
QColor tone(const QPalette& palette, double share);

} // namespace AccentColor

#include "controls/AccentColor.h"

#include "controls/DisplayColors.h"

#include <QPalette>

namespace AccentColor {

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::WindowText).lightness() >
           palette.color(QPalette::Window).lightness();
}

QColor onWindow(const QPalette& palette) {
    constexpr double towardsWhite = 0.55;
    return isDark(palette)
               ? DisplayColors::blend(DisplayColors::cold, DisplayColors::neutral, towardsWhite)
               : DisplayColors::cold;
}

QColor fill(const QPalette& palette) {
    constexpr double towardsWhite = 0.2;
    return isDark(palette)
               ? DisplayColors::blend(DisplayColors::cold, DisplayColors::neutral, towardsWhite)
               : DisplayColors::cold;
}

QColor selection(const QPalette& palette) {
    return DisplayColors::blend(palette.color(QPalette::Base), onWindow(palette), 0.35);
}

QColor tone(const QPalette& palette, double share) {
    return DisplayColors::blend(palette.color(QPalette::Window),
                                palette.color(QPalette::WindowText), share);
}

} // namespace AccentColor

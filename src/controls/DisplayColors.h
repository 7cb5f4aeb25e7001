#pragma once

#include <QColor>

/// The colours in which light is shown, the same in the curve, the popover and the sliders.
///
/// They carry the message, so they do not follow the palette.
namespace DisplayColors {

/// Colour temperature 0.5; the curve's background.
inline constexpr QColor neutral{255, 255, 255};
/// Colour temperature 0.0.
inline constexpr QColor warm{246, 241, 111};
/// Colour temperature 1.0; also the program's one accent.
inline constexpr QColor cold{53, 42, 156};
/// Markers, outlines and enabled text.
inline constexpr QColor line{0, 0, 0};
/// Text beside more important text, on white.
inline constexpr QColor quietText{96, 96, 96};
/// Axes and everything that is disabled: white level 0.5.
inline constexpr QColor disabled{128, 128, 128};

/// (1 - fraction) x first + fraction x second, per channel; `fraction` is limited to 0..1.
QColor blend(const QColor& first, const QColor& second, double fraction);

/// The colour that stands for a colour temperature (0.0 warmest .. 1.0 coldest, limited to it):
/// warm to neutral over the lower half, neutral to cold over the upper.
QColor displayColor(double colorTemp);

} // namespace DisplayColors

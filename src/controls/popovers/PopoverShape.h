#pragma once

#include <QPainterPath>
#include <QRect>
#include <QRegion>

struct PopoverPlacement;

/// The outline of a popover: a rounded body with an arrow to what it speaks about. Coordinates are
/// those of the popover's window.
namespace PopoverShape {

/// The window without the strip that the arrow stands in.
QRect body(const PopoverPlacement& placement);

/// `inset` draws the outline in from the edge, for pens.
QPainterPath outline(const PopoverPlacement& placement, double inset);

/// Every pixel that the outline touches. Used as the window's mask, since what is outside would be
/// black where the desktop does not compose windows.
QRegion mask(const PopoverPlacement& placement);

} // namespace PopoverShape

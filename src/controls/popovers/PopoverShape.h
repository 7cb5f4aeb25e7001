#pragma once

#include <QPainterPath>
#include <QRect>

struct PopoverPlacement;

/// The outline of a popover: a rounded body with an arrow to what it speaks about. Coordinates are
/// those of the popover.
namespace PopoverShape {

/// The window without the strip that the arrow stands in.
QRect body(const PopoverPlacement& placement);

/// `inset` draws the outline in from the edge, for pens.
QPainterPath outline(const PopoverPlacement& placement, double inset);

} // namespace PopoverShape

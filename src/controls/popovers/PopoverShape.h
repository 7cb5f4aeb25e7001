#pragma once

#include <QPainterPath>
#include <QRect>

class QPainter;
struct PopoverPlacement;

/// The outline of a popover: a rounded body with an arrow to what it speaks about. Coordinates are
/// those of the popover.
namespace PopoverShape {

/// The window without the strip that the arrow stands in.
QRect body(const PopoverPlacement& placement);

/// `inset` draws the outline in from the edge, for pens.
QPainterPath outline(const PopoverPlacement& placement, double inset);

/// The paper of the curve's popovers: white, grey down to `bandBottom` and around all.
///
/// White: on the grey the intensity, grey itself, could not be seen, and the warm and cold levels
/// hardly.
void paintBanded(QPainter& painter, const PopoverPlacement& placement, int bandBottom);

} // namespace PopoverShape

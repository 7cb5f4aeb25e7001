#pragma once

#include "data/AQTimePoint.h"

#include <span>

/// The light of a program at a time between its points.
///
/// Intensity and colour temperature run linearly from point to point, and from the last over
/// midnight to the first; one point holds all day. The seconds of `time` only tell which points are
/// past. Without points both values are 0.0. The result carries `time`.
AQTimePoint lightAt(std::span<const AQTimePoint> points, AQTime time);

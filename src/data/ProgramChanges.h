#pragma once

#include "data/AQTimePoint.h"

#include <optional>
#include <span>
#include <vector>

/// Changes of whole light programs, and the times that a point can be moved to. Pure functions on
/// points with valid times; points keep their ids.
namespace ProgramChanges {

// New programs. Points of the same minute stay in their order.

/// Moves every time by `minutes` (-1439..1439), over midnight where it comes to that: the curve
/// moves as a whole. By anything but 0 they are in ascending order of the minute then.
std::vector<AQTimePoint> shiftedDay(std::vector<AQTimePoint> points, int minutes);
/// Multiplies every intensity by `factor` (0.01..2.0), up to 1.0 at most.
std::vector<AQTimePoint> scaledIntensity(std::vector<AQTimePoint> points, double factor);
/// Each pasted point gives its values to every point of the same minute, or else comes in without
/// an id.
std::vector<AQTimePoint> merged(std::vector<AQTimePoint> points,
                                std::span<const AQTimePoint> pasted);

// Free minutes of the day, 0..1439: those that no point has. None when there is no such minute.

/// `minute` (0..1439) itself, else the nearest one, the earlier of two as near.
std::optional<int> nearestFreeMinute(std::span<const AQTimePoint> points, int minute);
/// The first one after `minute` (0..1439), before it if `step` is negative, that is a clock
/// multiple of |step| (1 or 5) or 23:59: +5 leads from 08:32 to 08:35, from 08:30 to 08:35 and from
/// 23:57 to 23:59. The minute of the point `except` counts as free.
std::optional<int> freeMinuteFrom(std::span<const AQTimePoint> points, int minute, int step,
                                  AQPointId except);
/// Where the point `id` stands while it is dragged to `wanted`, which may lie outside the day: the
/// nearest one that is a clock multiple of `snap` (1 or 5) or 23:59, the earlier of two as near.
/// Its own minute counts as free.
std::optional<int> draggedMinute(std::span<const AQTimePoint> points, AQPointId id, int wanted,
                                 int snap);

} // namespace ProgramChanges

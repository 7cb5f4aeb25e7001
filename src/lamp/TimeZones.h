#pragma once

#include <QStringList>
#include <QTimeZone>

/// The whole-hour time zones that the controller knows, UTC -12 to UTC +12, by their index in a
/// list.
namespace TimeZones {

constexpr int utcIndex = 12;
constexpr int count = 25;

/// "UTC -12:00" ... "UTC" ... "UTC +12:00", in index order.
QStringList names();
/// The zone of an offset from UTC in seconds, truncated towards zero to whole hours and limited to
/// the ends of the list.
int indexOfOffset(int secondsFromUtc);
/// Hours from UTC of the zone at a valid index, -12..12.
constexpr int hoursAt(int index) {
    return index - utcIndex;
}
/// True when the zone changes its clocks again after `instant`.
bool observesDaylightSaving(const QTimeZone& zone, const QDateTime& instant);

} // namespace TimeZones

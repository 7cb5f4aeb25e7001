#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

class QTimeZone;
struct AnswerRTC;

/// Clock times as a clock on the wall shows them.
///
/// Held in QDateTimes that count as UTC whatever their zone, so that every time of day
/// exists once and arithmetic on them knows no change of the clocks.
namespace WallTime {

/// What a clock in the zone shows at the instant.
QDateTime at(const QDateTime& instant, const QTimeZone& zone);
/// What a clock that is this many seconds ahead of UTC shows at the instant.
QDateTime at(const QDateTime& instant, int secondsFromUtc);
/// None for a date or time that does not exist.
std::optional<QDateTime> fromAnswer(const AnswerRTC& answer);

/// "12/24/2017, 08:15:30 AM"
QString text(const QDateTime& wallTime);
/// The controller's clock minus the computer's, in seconds, as a sentence: "The controller's clock
/// is 3 minutes 12 seconds behind the computer's." The two largest units are told; one second is
/// the controller's resolution and no difference.
QString differenceText(double seconds);

} // namespace WallTime

#pragma once

#include <QDateTime>
#include <QTimeZone>

#include <functional>

/// The computer's clock and zone, as functions so that a test can turn them.
struct ComputerClock {
    std::function<QDateTime()> now;  ///< an instant, in any time zone
    std::function<QTimeZone()> zone; ///< the zone the computer is set to now; valid

    static ComputerClock system();
};

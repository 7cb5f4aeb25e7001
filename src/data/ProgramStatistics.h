#pragma once

#include "data/AQTimePoint.h"

#include <QCoreApplication>
#include <QString>

#include <span>

/// How much light a program gives in a day.
struct ProgramStatistics {
    double litMinutes = 0.0;     ///< with an intensity above 0; 0..1440
    double fullLightHours = 0.0; ///< the intensity over the day, as hours of full light; 0..24

    /// "Light 15 h 00 min, 10.8 h of full light".
    QString text() const;
    bool operator==(const ProgramStatistics&) const = default;

    Q_DECLARE_TR_FUNCTIONS(ProgramStatistics)
};

/// Exact for the light as lightAt() gives it, over midnight too. The way from or to a dark point
/// counts as light, that between two dark ones does not. Points may come in any order, and several
/// may have the same minute. Without points all is 0.
ProgramStatistics statisticsOf(std::span<const AQTimePoint> points);

#pragma once

#include "data/AQTimePoint.h"

#include <QCoreApplication>
#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// Lets animals and plants get used to the light: on the first day the program runs at `start`
/// percent of its intensity, on the last one at 100, and in equal steps between.
struct Acclimation {
    static constexpr int leastStart = 1;
    static constexpr int mostStart = 100;
    static constexpr int leastDays = 2;
    static constexpr int mostDays = 100;

    int start = 60; ///< percent
    int days = 28;
    QDate firstDay;

    /// Within the limits above, and with a day to begin on. What follows needs it.
    bool isValid() const;
    /// 1..days: a date before the first day counts as the first, one after the last as the last.
    int dayOn(QDate date) const;
    /// Of the intensity on that date, in whole percent.
    int percentOn(QDate date) const;
    /// The last day is past.
    bool isOverOn(QDate date) const;
    /// "day 9 of 28: 74 %".
    QString textOn(QDate date) const;

    bool operator==(const Acclimation&) const = default;

    Q_DECLARE_TR_FUNCTIONS(Acclimation)
};

/// The light that a program gives on `date`: its points with the intensity of that day. Without an
/// acclimation it is the program's own.
std::vector<AQTimePoint> lightOn(QDate date, std::vector<AQTimePoint> points,
                                 const std::optional<Acclimation>& acclimation);

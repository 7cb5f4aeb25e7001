#pragma once

#include "controls/time/TimeFormat.h"

/// A time of day as "07:30". Reads "7:5", "0705", "705", "7.05", "12"; steps wrap within a section.
class ClockFormat : public TimeFormat {
public:
    QString text(const AQTime& time) const override;
    QString widestText() const override;
    std::optional<AQTime> parse(const QString& text) const override;
    AQTime stepped(const AQTime& time, int section, int steps) const override;
    AQTime limited(const AQTime& time) const override;
    QString hint() const override;
    bool hasTwoDigitSections() const override { return true; }
};

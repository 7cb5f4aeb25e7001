#pragma once

#include "controls/time/TimeFormat.h"

/// A duration as "1 min 00 s". A person enters up to 255 min 59 s, the longest that the controller
/// takes; a longer one, which a settings file may hold, is shown as it is.
///
/// Minutes beyond 59 are kept in the hour of the AQTime. Reads "1:30", "1 min 30 s", "90 s", "2";
/// minutes stop at the ends, seconds carry into the minutes.
class DurationFormat : public TimeFormat {
public:
    static constexpr int maximumMinutes = 255;

    /// `seconds` limited to what can be shown.
    static AQTime fromSeconds(int seconds);
    /// More seconds than can be shown count as the longest duration.
    static int secondsOf(const AQTime& time);

    QString text(const AQTime& time) const override;
    QString widestText() const override;
    std::optional<AQTime> parse(const QString& text) const override;
    AQTime stepped(const AQTime& time, int section, int steps) const override;
    AQTime limited(const AQTime& time) const override;
    QString hint() const override;
    bool hasTwoDigitSections() const override { return false; }
};

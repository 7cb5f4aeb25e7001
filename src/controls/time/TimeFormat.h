#pragma once

#include "data/AQTimePoint.h"

#include <QString>

#include <optional>

/// How a time editor writes, reads and steps its value. The text has two sections, the two runs of
/// digits in it: section 0 and section 1. A format has no state.
class TimeFormat {
public:
    virtual ~TimeFormat() = default;

    virtual QString text(const AQTime& time) const = 0;
    /// The longest text there is, for the editor's width.
    virtual QString widestText() const = 0;
    /// What a person may have meant; none for nonsense and for what is out of range.
    virtual std::optional<AQTime> parse(const QString& text) const = 0;
    /// `time` with `section` moved by `steps`; equal to `time` where there is no further step.
    virtual AQTime stepped(const AQTime& time, int section, int steps) const = 0;
    /// The nearest value that can be shown.
    virtual AQTime limited(const AQTime& time) const = 0;
    /// Says, in a sentence, what can be typed.
    virtual QString hint() const = 0;
    /// True when a section is complete with two digits, so that typing goes on in the next one.
    virtual bool hasTwoDigitSections() const = 0;
};

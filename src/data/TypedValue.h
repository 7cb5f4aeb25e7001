#pragma once

#include "data/AQTimePoint.h"

#include <QString>

#include <optional>

/// What a text that a person typed or pasted stands for: a value, or else why it is none.
template <class T>
struct TypedValue {
    std::optional<T> value;
    /// For the person, one sentence without a full stop ("25:70 is no time of day"), plain text.
    /// Long texts are quoted shortened. Empty when there is a value.
    QString fault;
};

// Blanks around a text are ignored, no-break spaces too, and U+2212 counts as minus. Times come
// with 0 seconds. `present` is the value that the text is going to replace, itself valid.

/// A time of day: "8", "830", "0830", "8:30", "8.30", "8,30", "8h30", "8 30", "8:5" (five minutes
/// past).
TypedValue<AQTime> clockTime(const QString& text);
/// The same, or minutes from `present`: "+10", "-5"; a way that leads out of the day is a fault.
TypedValue<AQTime> typedTime(const QString& text, AQTime present);
/// A time of day from another program: "8", "830", "0830", "8:30", "8.30", "8,30", and with
/// seconds, which are dropped, "08:30:00". Minutes have two digits, because in "8.3" a spreadsheet
/// may have shortened 8.30.
TypedValue<AQTime> pastedTime(const QString& text);

/// Intensity or colour temperature as a fraction 0.0..1.0, from percent: "80", "80 %", "56.5",
/// "56,5"; outside 0..100 is a fault. Or percent points from `present`: "+5", "-2.5 %"; the result
/// is limited to 0..100 %.
TypedValue<double> typedFraction(const QString& text, double present);
/// The same without the signed form.
TypedValue<double> pastedFraction(const QString& text);

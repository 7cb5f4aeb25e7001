#pragma once

#include "data/AQTimePoint.h"

#include <QString>
#include <QStringList>

#include <span>
#include <vector>

/// Time points as lines of text, for the clipboard and spreadsheets:
///
///     08:30<TAB>80<TAB>56
///
/// a time, the intensity and the colour temperature in percent. Pure functions.
namespace ProgramText {

/// What is as long as this (a megabyte) is not read.
constexpr qsizetype maxLength = 1'000'000; ///< characters

struct Reading {
    /// In the order of the lines, each at another minute of the day, without ids; empty when there
    /// are faults.
    std::vector<AQTimePoint> points;
    /// What is wrong, each a sentence for the person without a full stop, plain text: "Line 3:
    /// 25:70 is no time of day". At most one for a line, in the order of the lines.
    QStringList faults;
};

/// A line for each point, each ended by a newline; seconds are left out. Percents are whole or have
/// one decimal, and stand for the same stored byte (byteFromFraction()) as the fraction does.
QString write(std::span<const AQTimePoint> points);

/// The same as a table of comma-separated values (RFC 4180), headed by the names of the columns.
QString csv(std::span<const AQTimePoint> points);

/// A fraction in percent, whole or with one decimal, that stands for the same stored byte.
QString percent(double fraction);

/// Columns are separated by tabs, or else semicolons, or else blanks; their values are those of
/// pastedTime() and pastedFraction(). Lines end with LF, CRLF or CR; empty ones are skipped, but
/// counted. A time that an earlier line has already is a fault of the later line. A text without a
/// line, one with more lines than a day has minutes and one of `maxLength` have one fault.
Reading read(const QString& text);

} // namespace ProgramText

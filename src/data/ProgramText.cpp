#include "data/ProgramText.h"

#include "data/TimeText.h"
#include "data/TypedValue.h"

#include <QCoreApplication>
#include <QStringTokenizer>

#include <algorithm>
#include <array>

namespace {

constexpr qsizetype columns = 3;

/// For each minute of the day the number of the line that has it, 0 for none.
using LineNumbers = std::array<int, AQTime::minutesPerDay>;

QStringList cellsOf(QStringView line) {
    for (const char16_t separator : {u'\t', u';'}) {
        if (!line.contains(separator))
            continue;
        QStringList cells = line.toString().split(separator);
        while (cells.size() > columns && cells.last().trimmed().isEmpty())
            cells.removeLast();
        return cells;
    }
    // In "80 %" the blank separates nothing.
    return line.toString()
        .simplified()
        .replace(QStringLiteral(" %"), QStringLiteral("%"))
        .split(u' ');
}

TypedValue<AQTimePoint> pointFrom(QStringView line, int number, LineNumbers& lineNumbers) {
    const QStringList cells = cellsOf(line);
    if (cells.size() != columns)
        return {{},
                QCoreApplication::translate(
                    "ProgramText", "A time, an intensity and a colour temperature are needed")};
    const auto time = pastedTime(cells[0]);
    if (!time.value)
        return {{}, time.fault};
    int& earlier = lineNumbers[static_cast<std::size_t>(time.value->minuteOfDay())];
    if (earlier != 0)
        return {{},
                QCoreApplication::translate("ProgramText", "%1 stands in line %2 already")
                    .arg(cells[0].trimmed(), QString::number(earlier))};
    earlier = number;
    const auto brightness = pastedFraction(cells[1]);
    if (!brightness.value)
        return {{}, brightness.fault};
    const auto colorTemp = pastedFraction(cells[2]);
    if (!colorTemp.value)
        return {{}, colorTemp.fault};
    return {AQTimePoint{*time.value, *colorTemp.value, *brightness.value}, {}};
}

} // namespace

QString ProgramText::percent(double fraction) {
    const std::uint8_t byte = byteFromFraction(fraction);
    // What is no number gives 0, as it does in the byte.
    const double percent = std::min(1.0, std::max(0.0, fraction)) * 100.0;
    for (const int decimals : {0, 1}) {
        QString text = QString::number(percent, 'f', decimals);
        if (byteFromFraction(text.toDouble() / 100.0) == byte)
            return text;
    }
    // Close to the limit between two bytes a decimal is too coarse, but not from the byte's middle.
    return QString::number(fractionFromByte(byte) * 100.0, 'f', 1);
}

QString ProgramText::write(std::span<const AQTimePoint> points) {
    QString text;
    for (const AQTimePoint& point : points)
        text += QStringLiteral("%1\t%2\t%3\n")
                    .arg(timeText(point.time.hour, point.time.minute), percent(point.brightness),
                         percent(point.colorTemp));
    return text;
}

QString ProgramText::csv(std::span<const AQTimePoint> points) {
    QString text = QStringLiteral("Time,Intensity %,Colour temperature %\n") + write(points);
    return text.replace(u'\t', u',').replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
}

ProgramText::Reading ProgramText::read(const QString& text) {
    if (text.size() >= maxLength)
        return {{},
                {QCoreApplication::translate("ProgramText",
                                             "The text is too long to be a light program")}};
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');

    Reading result;
    LineNumbers lineNumbers{};
    int number = 0;
    int used = 0;
    for (const QStringView line : qTokenize(lines, u'\n')) {
        ++number;
        if (line.trimmed().isEmpty())
            continue;
        if (++used > AQTime::minutesPerDay)
            return {{},
                    {QCoreApplication::translate("ProgramText",
                                                 "There are more lines than a day has minutes")}};
        const auto point = pointFrom(line, number, lineNumbers);
        if (point.value)
            result.points.push_back(*point.value);
        else
            result.faults += QCoreApplication::translate("ProgramText", "Line %1: %2")
                                 .arg(QString::number(number), point.fault);
    }
    if (used == 0)
        result.faults +=
            QCoreApplication::translate("ProgramText", "There is no line with a time point");
    if (!result.faults.isEmpty())
        result.points.clear();
    return result;
}

#include "controls/time/ClockFormat.h"
#include "controls/time/DurationFormat.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

const ClockFormat clockFormat;
const DurationFormat durationFormat;

TEST(TimeFormats, readWhatAPersonMayMean) {
    // What is typed, and how the format writes what it read; nothing for nonsense.
    const std::tuple<const TimeFormat&, std::vector<const char*>, const char*> table[] = {
        {clockFormat, {"7:5", "0705", "705", "7.05", " 7 05 ", "7h05"}, "07:05"},
        {clockFormat, {"12", "12:"}, "12:00"},
        {clockFormat, {"23:59"}, "23:59"},
        {clockFormat, {"", "24:00", "2360", "abc", "-1", "12:30:15", "00012", ":30"}, ""},
        {durationFormat, {"1:30", "90 s", "1 min 30 s", "1m30s", "1 30"}, "1 min 30 s"},
        {durationFormat, {"2"}, "2 min 00 s"},
        {durationFormat, {"255:59", "15359s"}, "255 min 59 s"},
        {durationFormat, {"", "15360s", "256", "1:60", "-5", "soon"}, ""}};
    for (const auto& [format, texts, read] : table) {
        for (const char* text : texts) {
            const auto time = format.parse(QString::fromLatin1(text));
            EXPECT_EQ(time ? format.text(*time) : QString(), QLatin1String(read)) << text;
        }
    }
    EXPECT_EQ(durationFormat.limited({23, 59, std::numeric_limits<int>::max()}),
              (AQTime{23, 59, 59}));
    EXPECT_EQ(durationFormat.limited({0, 1, 90}), (AQTime{0, 2, 30}));
}

TEST(TimeFormats, stepTheSectionAlone) {
    const std::tuple<const TimeFormat&, AQTime, int, int, AQTime> table[] = {
        {clockFormat, {23, 30, 0}, 0, 1, {0, 30, 0}},
        {clockFormat, {7, 55, 0}, 1, 10, {7, 5, 0}},
        {durationFormat, {0, 0, 10}, 0, -1, {0, 0, 10}},
        {durationFormat, {0, 0, 59}, 1, 1, {0, 1, 0}},
        {durationFormat, {4, 15, 59}, 1, 1, {4, 15, 59}},
        // From a file may come more than can be entered.
        {durationFormat, {5, 0, 0}, 0, 1, {5, 0, 0}},
        {durationFormat, {5, 0, 0}, 0, -1, {4, 59, 0}}};
    for (const auto& [format, from, section, steps, to] : table)
        EXPECT_EQ(format.stepped(from, section, steps), to);
}

} // namespace

#include "controls/ClockFormat.h"
#include "controls/DurationFormat.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

const ClockFormat clockFormat;
const DurationFormat durationFormat;

TEST(TimeFormats, readWhatAPersonMayMean) {
    struct Typed {
        const char* text;
        const char* read; ///< as the format writes it; empty for nonsense
    };
    const Typed clock[] = {
        {"7:5", "07:05"},  {"0705", "07:05"}, {"705", "07:05"},     {"12", "12:00"},
        {"7.05", "07:05"}, {"7 05", "07:05"}, {" 23:59 ", "23:59"}, {"7h30", "07:30"},
        {"7:", "07:00"},   {"0", "00:00"},    {"24:00", ""},        {"2360", ""},
        {"", ""},          {"abc", ""},       {"-1", ""},           {"12:30:15", ""},
        {"00012", ""},     {":30", ""}};
    const Typed duration[] = {{"1:30", "1 min 30 s"},
                              {"90 s", "1 min 30 s"},
                              {"1 min 30 s", "1 min 30 s"},
                              {"2", "2 min 00 s"},
                              {"255:59", "255 min 59 s"},
                              {"15359s", "255 min 59 s"},
                              {"1m5s", "1 min 05 s"},
                              {"0", "0 min 00 s"},
                              {"1 5", "1 min 05 s"},
                              {"15360s", ""},
                              {"256", ""},
                              {"1:60", ""},
                              {"", ""},
                              {"-5", ""},
                              {"soon", ""}};
    const auto read = [](const TimeFormat& format, const char* text) {
        const auto time = format.parse(QString::fromLatin1(text));
        return time ? format.text(*time).toStdString() : std::string();
    };
    for (const Typed& typed : clock)
        EXPECT_EQ(read(clockFormat, typed.text), typed.read) << typed.text;
    for (const Typed& typed : duration)
        EXPECT_EQ(read(durationFormat, typed.text), typed.read) << typed.text;
}

TEST(TimeFormats, stepTheSectionAlone) {
    struct Step {
        const TimeFormat& format;
        AQTime from;
        int section;
        int steps;
        AQTime to;
    };
    const Step table[] = {{clockFormat, {23, 30, 0}, 0, 1, {0, 30, 0}},
                          {clockFormat, {0, 30, 0}, 0, -1, {23, 30, 0}},
                          {clockFormat, {7, 0, 0}, 1, -1, {7, 59, 0}},
                          {clockFormat, {7, 55, 0}, 1, 10, {7, 5, 0}},
                          {durationFormat, {0, 59, 30}, 0, 1, {1, 0, 30}},
                          {durationFormat, {0, 0, 10}, 0, -1, {0, 0, 10}},
                          {durationFormat, {4, 15, 59}, 0, 1, {4, 15, 59}},
                          {durationFormat, {0, 0, 59}, 1, 1, {0, 1, 0}},
                          {durationFormat, {0, 1, 0}, 1, -1, {0, 0, 59}},
                          {durationFormat, {0, 0, 0}, 1, -1, {0, 0, 0}},
                          {durationFormat, {4, 15, 59}, 1, 1, {4, 15, 59}}};
    for (const Step& step : table)
        EXPECT_EQ(step.format.stepped(step.from, step.section, step.steps), step.to);
}

TEST(DurationFormat, limitsWhatAFileMayHold) {
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(DurationFormat().limited({23, 59, most}), (AQTime{23, 59, 59}));
    EXPECT_EQ(DurationFormat().stepped({5, 0, 0}, 0, 1), (AQTime{5, 0, 0}));
    EXPECT_EQ(DurationFormat().stepped({5, 0, 0}, 0, -1), (AQTime{4, 59, 0}));
    EXPECT_EQ(DurationFormat().limited({0, 1, 90}), (AQTime{0, 2, 30}));
}

} // namespace

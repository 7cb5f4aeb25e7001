#include "controls/ClockFormat.h"
#include "controls/DurationFormat.h"

#include <gtest/gtest.h>

namespace {

struct Typed {
    const char* text;
    const char* read; ///< as the format writes it; empty for nonsense
};

void expectReadings(const TimeFormat& format, std::initializer_list<Typed> table) {
    for (const Typed& typed : table) {
        const auto time = format.parse(QString::fromLatin1(typed.text));
        const QString read = time ? format.text(*time) : QString();
        EXPECT_EQ(read.toStdString(), typed.read) << "typed '" << typed.text << "'";
    }
}

TEST(ClockFormat, readsWhatAPersonMayMean) {
    expectReadings(ClockFormat(),
                   {{"7:5", "07:05"},  {"0705", "07:05"}, {"705", "07:05"},  {"12", "12:00"},
                    {"7", "07:00"},    {"7.05", "07:05"}, {"7 05", "07:05"}, {" 23:59 ", "23:59"},
                    {"7h30", "07:30"}, {"7:", "07:00"},   {"0", "00:00"},    {"24:00", ""},
                    {"24", ""},        {"2360", ""},      {"12:60", ""},     {"", ""},
                    {"abc", ""},       {"-1", ""},        {"12:30:15", ""},  {"00012", ""},
                    {":30", ""}});
}

TEST(DurationFormat, readsWhatAPersonMayMean) {
    expectReadings(DurationFormat(), {{"1:30", "1 min 30 s"},
                                      {"1 min 30 s", "1 min 30 s"},
                                      {"90 s", "1 min 30 s"},
                                      {"2", "2 min 00 s"},
                                      {"2 min", "2 min 00 s"},
                                      {"1m5s", "1 min 05 s"},
                                      {"1 5", "1 min 05 s"},
                                      {"255:59", "255 min 59 s"},
                                      {"15359s", "255 min 59 s"},
                                      {"0", "0 min 00 s"},
                                      {"256", ""},
                                      {"15360s", ""},
                                      {"1:60", ""},
                                      {"", ""},
                                      {"-5", ""},
                                      {"soon", ""}});
}

TEST(TimeFormats, stepTheSectionAlone) {
    struct Step {
        AQTime from;
        int section;
        int steps;
        AQTime to;
    };
    const Step clock[] = {{{7, 30, 0}, 0, 1, {8, 30, 0}},   {{23, 30, 0}, 0, 1, {0, 30, 0}},
                          {{0, 30, 0}, 0, -1, {23, 30, 0}}, {{7, 59, 0}, 1, 1, {7, 0, 0}},
                          {{7, 0, 0}, 1, -1, {7, 59, 0}},   {{7, 55, 0}, 1, 10, {7, 5, 0}}};
    const Step duration[] = {{{0, 1, 0}, 0, 1, {0, 2, 0}},    {{0, 59, 30}, 0, 1, {1, 0, 30}},
                             {{0, 0, 10}, 0, -1, {0, 0, 10}}, {{4, 15, 59}, 0, 1, {4, 15, 59}},
                             {{0, 0, 59}, 1, 1, {0, 1, 0}},   {{0, 1, 0}, 1, -1, {0, 0, 59}},
                             {{0, 0, 0}, 1, -1, {0, 0, 0}},   {{4, 15, 59}, 1, 1, {4, 15, 59}}};
    for (const Step& step : clock) {
        EXPECT_EQ(ClockFormat().stepped(step.from, step.section, step.steps), step.to);
    }
    for (const Step& step : duration) {
        EXPECT_EQ(DurationFormat().stepped(step.from, step.section, step.steps), step.to);
    }
}

} // namespace

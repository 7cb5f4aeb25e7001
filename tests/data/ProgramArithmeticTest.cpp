#include "data/AQDataSource.h"
#include "data/ProgramChanges.h"
#include "data/ProgramInterpolation.h"
#include "data/ProgramStatistics.h"

#include <gtest/gtest.h>

namespace {

using namespace ProgramChanges;
using Points = std::vector<AQTimePoint>;

constexpr AQPointId a{1}, b{2};

Points defaultProgram() {
    NotificationCenter notifications;
    return AQDataSource(notifications).sequence().points();
}

TEST(ProgramInterpolation, FollowsTheProgramAroundTheDay) {
    const Points day{
        {AQTime{8, 30, 0}, 1.0, 0.0}, {AQTime{10, 0, 0}, 0.4, 0.8}, {AQTime{23, 30, 0}, 0.2, 0.6}};
    const Points single{{AQTime{15, 0, 0}, 0.3, 0.7}};
    const Points sameMinute{{AQTime{9, 0, 0}, 0.1, 0.2}, {AQTime{9, 0, 0}, 0.9, 0.6}};
    const struct {
        const char* what;
        const Points& points;
        AQTime time;
        double brightness;
        double colorTemp;
    } cases[] = {
        {"no points", {}, {12, 0, 0}, 0.0, 0.0},
        {"one point, before it", single, {3, 0, 0}, 0.7, 0.3},
        // From 23:30 to 8:30 there are 540 minutes.
        {"before midnight", day, {23, 57, 0}, 0.57, 0.24},
        {"two points in one minute", sameMinute, {9, 0, 0}, 0.2, 0.1},
    };
    for (const auto& c : cases) {
        const AQTimePoint light = lightAt(c.points, c.time);
        EXPECT_NEAR(light.brightness, c.brightness, 1e-12) << c.what;
        EXPECT_NEAR(light.colorTemp, c.colorTemp, 1e-12) << c.what;
        EXPECT_EQ(light.time, c.time) << c.what;
    }
}

TEST(ProgramStatistics, measuresTheLightOfADay) {
    // Trapezoids by hand: 0.6 + 4.5 + 4.5 + 0.65 + 0.4875 + 0.075 hours.
    EXPECT_EQ(statisticsOf(defaultProgram()).text(), u"Light 15 h 00 min, 10.8 h of full light");
    EXPECT_DOUBLE_EQ(statisticsOf(defaultProgram()).fullLightHours, 10.8125);
    EXPECT_EQ(statisticsOf({}), (ProgramStatistics{0, 0}));
    EXPECT_EQ(statisticsOf(Points{{{8, 0}, 0.5, 0.25}}), (ProgramStatistics{1440, 6}));
    // Switched on at 20:00, full over midnight to 04:00, dark at 05:30; and in no order.
    EXPECT_EQ(
        statisticsOf(Points{{{20, 0}, 0, 0}, {{20, 0}, 0, 1}, {{4, 0}, 0, 1}, {{5, 30}, 0, 0}}),
        (ProgramStatistics{570, 8.75}));
}

TEST(ProgramChanges, changesTheWholeProgram) {
    const Points program = defaultProgram();
    for (const int shift : {-1439, -511, 1439})
        for (int minute = 0; minute < 1440; ++minute)
            ASSERT_NEAR(lightAt(shiftedDay(program, shift),
                                AQTime::fromMinuteOfDay((minute + shift + 1440) % 1440))
                            .brightness,
                        lightAt(program, AQTime::fromMinuteOfDay(minute)).brightness, 1e-9);
    const Points points{{{23, 0}, 0.5, 0.4, a}, {{8, 0}, 0.5, 0.8, b}};
    EXPECT_EQ(shiftedDay(points, 60)[0].id, a);
    EXPECT_EQ(scaledIntensity(points, 2.0), (Points{{{23, 0}, 0.5, 0.8}, {{8, 0}, 0.5, 1.0}}));
    const Points both = merged(points, Points{{{8, 0}, 0.1, 0.2, a}, {{7, 0}, 0.1, 0.3, a}});
    EXPECT_EQ(both, (Points{{{7, 0}, 0.1, 0.3}, {{8, 0}, 0.1, 0.2}, {{23, 0}, 0.5, 0.4}}));
    EXPECT_EQ(both[0].id, AQPointId::none);
    EXPECT_EQ(both[1].id, b);
}

TEST(ProgramChanges, findsFreeMinutes) {
    const Points points{{{0, 0}, 0, 0, a}, {{0, 30}, 0, 0, b}, {{0, 31}}};
    EXPECT_EQ(nearestFreeMinute(points, 30), 29);
    const struct {
        int minute, step;
        std::optional<int> next;
    } steps[] = {{32, 5, 35},     {32, -5, 30},     {30, 5, 35},   {30, 1, 32},
                 {1437, 5, 1439}, {1439, -5, 1435}, {1439, 1, {}}, {3, -5, {}}};
    for (const auto& [minute, step, next] : steps)
        EXPECT_EQ(freeMinuteFrom(points, minute, step, b), next) << minute;
    EXPECT_EQ(freeMinuteFrom(points, 3, -5, a), 0);
    const struct {
        int wanted, snap, minute;
    } drags[] = {{32, 5, 30},     {31, 1, 30},     {-9999, 5, 5},
                 {1437, 5, 1435}, {1438, 5, 1439}, {9999, 1, 1439}};
    for (const auto& [wanted, snap, minute] : drags)
        EXPECT_EQ(draggedMinute(points, b, wanted, snap), minute) << wanted;
    EXPECT_EQ(draggedMinute(points, a, 28, 5), 25); // 00:30 is taken
    EXPECT_EQ(draggedMinute(points, a, 31, 5), 35);
    Points full;
    for (int minute = 0; minute < 1440; ++minute)
        full.push_back({AQTime::fromMinuteOfDay(minute)});
    EXPECT_EQ(nearestFreeMinute(full, 720), std::nullopt);
}

} // namespace

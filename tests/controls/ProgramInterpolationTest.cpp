#include "data/ProgramInterpolation.h"

#include <gtest/gtest.h>

#include <vector>

TEST(ProgramInterpolation, FollowsTheProgramAroundTheDay) {
    using Points = std::vector<AQTimePoint>;
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
        {"at the first point", day, {8, 30, 0}, 0.0, 1.0},
        {"between two points", day, {9, 15, 0}, 0.4, 0.7},
        {"seconds move nothing within a minute", day, {9, 15, 59}, 0.4, 0.7},
        // From 23:30 to 8:30 there are 540 minutes.
        {"before midnight", day, {23, 57, 0}, 0.57, 0.24},
        {"midnight", day, {0, 0, 0}, 0.6 * 510 / 540, 0.2 + 0.8 * 30 / 540},
        {"half way over midnight", day, {4, 0, 0}, 0.3, 0.6},
        {"two points in one minute", sameMinute, {9, 0, 0}, 0.2, 0.1},
    };
    for (const auto& c : cases) {
        const AQTimePoint light = lightAt(c.points, c.time);
        EXPECT_NEAR(light.brightness, c.brightness, 1e-12) << c.what;
        EXPECT_NEAR(light.colorTemp, c.colorTemp, 1e-12) << c.what;
        EXPECT_EQ(light.time, c.time) << c.what;
    }
}

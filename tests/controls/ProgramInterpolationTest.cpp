#include "controls/ProgramInterpolation.h"

#include <gtest/gtest.h>

#include <vector>

TEST(ProgramInterpolation, FollowsTheProgramAroundTheDay) {
    using Points = std::vector<AQTimePoint>;
    const Points empty;
    const Points day{{AQTime{8, 30, 0}, 1.0, 0.0},
                     {AQTime{10, 0, 0}, 0.4, 0.8},
                     {AQTime{12, 0, 0}, 0.6, 0.4},
                     {AQTime{23, 30, 0}, 0.2, 0.6}};
    const Points single{{AQTime{15, 0, 0}, 0.3, 0.7}};
    const Points midnights{{AQTime{0, 0, 0}, 0.0, 0.2}, {AQTime{23, 59, 0}, 1.0, 0.8}};
    const Points sameMinute{{AQTime{9, 0, 0}, 0.1, 0.2}, {AQTime{9, 0, 0}, 0.9, 0.6}};
    struct Case {
        const char* what;
        const Points& points;
        AQTime time;
        double brightness;
        double colorTemp;
    };
    // From 23:30 to 8:30 there are 540 minutes.
    const Case cases[] = {
        {"no points", empty, {12, 0, 0}, 0.0, 0.0},
        {"one point, before it", single, {3, 0, 0}, 0.7, 0.3},
        {"one point, at it", single, {15, 0, 0}, 0.7, 0.3},
        {"one point, after it", single, {23, 59, 59}, 0.7, 0.3},
        {"at the first point", day, {8, 30, 0}, 0.0, 1.0},
        {"between two points", day, {9, 15, 0}, 0.4, 0.7},
        {"seconds at an inner point", day, {10, 0, 30}, 0.8, 0.4},
        {"seconds move nothing within a minute", day, {11, 30, 59}, 0.5, 0.55},
        {"at the last point", day, {23, 30, 0}, 0.6, 0.2},
        {"before midnight", day, {23, 57, 0}, 0.57, 0.24},
        {"midnight", day, {0, 0, 0}, 0.6 * 510 / 540, 0.2 + 0.8 * 30 / 540},
        {"half way over midnight", day, {4, 0, 0}, 0.3, 0.6},
        {"a point at midnight", midnights, {0, 0, 0}, 0.2, 0.0},
        {"the last minute", midnights, {23, 59, 0}, 0.8, 1.0},
        {"the whole day", midnights, {12, 0, 0}, 0.2 + 0.6 * 720 / 1439, 720.0 / 1439},
        {"two points in one minute", sameMinute, {9, 0, 0}, 0.2, 0.1},
    };
    for (const Case& c : cases) {
        const AQTimePoint light = lightAt(c.points, c.time);
        EXPECT_NEAR(light.brightness, c.brightness, 1e-12) << c.what;
        EXPECT_NEAR(light.colorTemp, c.colorTemp, 1e-12) << c.what;
        EXPECT_EQ(light.time, c.time) << c.what;
    }
}

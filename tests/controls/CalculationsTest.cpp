#include "controls/popovers/PopoverPlacement.h"
#include "data/ProgramInterpolation.h"

#include <gtest/gtest.h>

TEST(PopoverPlacement, StandsBesideItsPlaceOnTheScreen) {
    constexpr QSize body{182, 77};
    constexpr int height = 77 + PopoverPlacement::arrowLength;
    constexpr int corner = PopoverPlacement::cornerRadius + PopoverPlacement::arrowHalfWidth;
    const struct {
        const char* what;
        QPoint place;
        QPoint expected; ///< of its upper left corner
        bool isAbove;
        int arrowX;
        QRect screen{100, 50, 1000, 700}; // to x 1100 and y 750
    } cases[] = {
        {"below at the top", {500, 64 + height}, {409, 79 + height}, false, 91},
        {"corner", {1099, 60}, {918, 75}, false, 182 - corner},
        {"low screen, more room above", {415, 95}, {324, 80 - height}, true, 91, {0, 0, 800, 120}},
    };
    for (const auto& c : cases) {
        const QRect anchor(c.place - QPoint(15, 15), QSize(30, 30));
        const PopoverPlacement placement = PopoverPlacement::place(anchor, body, c.screen);
        EXPECT_EQ(placement.frame, QRect(c.expected, QSize(182, height))) << c.what;
        EXPECT_EQ(placement.isAbove, c.isAbove) << c.what;
        EXPECT_EQ(placement.arrowX, c.arrowX) << c.what;
    }
}

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
        {"between two points", day, {9, 15, 0}, 0.4, 0.7},
        // From 23:30 to 8:30 there are 540 minutes.
        {"before midnight", day, {23, 57, 0}, 0.57, 0.24},
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

#include "controls/popovers/PopoverPlacement.h"

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
        {"just room above", {500, 65 + height}, {409, 50}, true, 91},
        {"below at the top", {500, 64 + height}, {409, 79 + height}, false, 91},
        {"corner", {1099, 60}, {918, 75}, false, 182 - corner},
        {"off the left", {20, 400}, {100, 385 - height}, true, corner},
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

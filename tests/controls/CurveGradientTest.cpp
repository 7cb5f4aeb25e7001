#include "controls/CurveGradient.h"
#include "controls/DisplayColors.h"

#include <gtest/gtest.h>

#include <vector>

using CurveGradient::Stop;

namespace {

using Stops = std::vector<Stop>;

} // namespace

TEST(DisplayColors, BlendWarmNeutralAndCold) {
    EXPECT_EQ(DisplayColors::displayColor(0.0).rgb(), qRgb(246, 241, 111));
    EXPECT_EQ(DisplayColors::displayColor(0.25).rgb(), qRgb(251, 248, 183));
    EXPECT_EQ(DisplayColors::displayColor(0.5).rgb(), qRgb(255, 255, 255));
    EXPECT_EQ(DisplayColors::displayColor(0.75).rgb(), qRgb(154, 149, 206));
    EXPECT_EQ(DisplayColors::displayColor(1.0).rgb(), qRgb(53, 42, 156));
    EXPECT_EQ(DisplayColors::displayColor(-3.0), DisplayColors::displayColor(0.0));
    EXPECT_EQ(DisplayColors::displayColor(3.0), DisplayColors::displayColor(1.0));
}

TEST(CurveGradient, StopsAtThePointsAndAtBothMidnights) {
    EXPECT_TRUE(CurveGradient::temperatureStops({}).empty());

    const std::vector<AQTimePoint> points{{AQTime{6, 0, 0}, 0.2, 1.0},
                                          {AQTime{18, 0, 0}, 0.8, 0.5}};
    const Stops expected{{0.5, 0.0}, {0.2, 0.25}, {0.8, 0.75}, {0.5, 1.0}};
    const auto stops = CurveGradient::temperatureStops(points);
    ASSERT_EQ(stops.size(), expected.size());
    for (std::size_t i = 0; i < stops.size(); ++i) {
        EXPECT_NEAR(stops[i].colorTemp, expected[i].colorTemp, 1e-12) << i;
        EXPECT_NEAR(stops[i].position, expected[i].position, 1e-12) << i;
    }
}

TEST(CurveGradient, PassesThroughWhiteOnlyWhereItCrosses) {
    struct Case {
        Stops stops;
        std::vector<double> positions;
        int white; ///< the stop that was added, -1 for none
    };
    const Case cases[] = {
        {{{0.2, 0.0}, {0.8, 1.0}}, {0.0, 0.5, 1.0}, 1},
        {{{0.9, 0.2}, {0.4, 0.7}}, {0.2, 0.6, 0.7}, 1},
        {{{0.1, 0.0}, {0.5, 1.0}}, {0.0, 1.0}, -1},
        {{{0.5, 0.0}, {0.9, 1.0}}, {0.0, 1.0}, -1},
        {{{0.6, 0.0}, {0.9, 1.0}}, {0.0, 1.0}, -1},
        {{{0.3, 0.0}, {0.3, 1.0}}, {0.0, 1.0}, -1},
    };
    for (const Case& c : cases) {
        const QGradientStops colors = CurveGradient::colorStops(c.stops);
        ASSERT_EQ(colors.size(), static_cast<qsizetype>(c.positions.size()));
        for (qsizetype i = 0; i < colors.size(); ++i)
            EXPECT_NEAR(colors[i].first, c.positions[static_cast<std::size_t>(i)], 1e-12);
        if (c.white >= 0) {
            EXPECT_EQ(colors[c.white].second, DisplayColors::neutral);
        }
        EXPECT_EQ(colors.first().second, DisplayColors::displayColor(c.stops.front().colorTemp));
        EXPECT_EQ(colors.last().second, DisplayColors::displayColor(c.stops.back().colorTemp));
    }
}

TEST(CurveGradient, StripHasEachPixelsOwnColour) {
    // Between two black ends, over ten pixels that begin half a pixel late, with a hard edge.
    const QGradientStops colors{{0.0, QColor(0, 0, 0)},
                                {0.5, QColor(250, 0, 0)},
                                {0.5, QColor(0, 250, 0)},
                                {1.0, QColor(0, 0, 0)}};
    const QImage strip = CurveGradient::strip(colors, 0.5, 10.5, 11);
    ASSERT_EQ(strip.size(), QSize(11, 1));
    EXPECT_EQ(strip.pixel(0, 0), qRgb(0, 0, 0));
    EXPECT_EQ(strip.pixel(2, 0), qRgb(100, 0, 0));
    EXPECT_EQ(strip.pixel(4, 0), qRgb(200, 0, 0));
    EXPECT_EQ(strip.pixel(5, 0), qRgb(0, 250, 0));
    EXPECT_EQ(strip.pixel(7, 0), qRgb(0, 150, 0));
    EXPECT_EQ(strip.pixel(10, 0), qRgb(0, 0, 0));
}

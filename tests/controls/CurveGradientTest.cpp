#include "controls/CurveGradient.h"
#include "controls/DisplayColors.h"

#include <gtest/gtest.h>

#include <vector>

using CurveGradient::Stop;

TEST(CurveGradient, StopsAtThePointsAndAtBothMidnights) {
    EXPECT_TRUE(CurveGradient::temperatureStops({}).empty());
    const std::vector<AQTimePoint> points{{AQTime{6, 0, 0}, 0.2, 1.0},
                                          {AQTime{18, 0, 0}, 0.8, 0.5}};
    const std::vector<Stop> expected{{0.5, 0.0}, {0.2, 0.25}, {0.8, 0.75}, {0.5, 1.0}};
    const auto stops = CurveGradient::temperatureStops(points);
    ASSERT_EQ(stops.size(), expected.size());
    for (std::size_t i = 0; i < stops.size(); ++i) {
        EXPECT_NEAR(stops[i].colorTemp, expected[i].colorTemp, 1e-12) << i;
        EXPECT_NEAR(stops[i].position, expected[i].position, 1e-12) << i;
    }
}

TEST(CurveGradient, PassesThroughWhiteOnlyWhereItCrosses) {
    constexpr QRgb warm = qRgb(246, 241, 111), halfWarm = qRgb(251, 248, 183);
    constexpr QRgb cold = qRgb(53, 42, 156), halfCold = qRgb(154, 149, 206);
    constexpr QRgb white = qRgb(255, 255, 255);
    struct Case {
        std::vector<Stop> stops;
        std::vector<std::pair<double, QRgb>> colors;
    };
    const Case cases[] = {
        {{{0.0, 0.0}, {1.0, 1.0}}, {{0.0, warm}, {0.5, white}, {1.0, cold}}},
        {{{1.0, 0.2}, {0.25, 0.8}}, {{0.2, cold}, {0.6, white}, {0.8, halfWarm}}},
        {{{0.0, 0.0}, {0.5, 1.0}}, {{0.0, warm}, {1.0, white}}},
        {{{0.75, 0.0}, {1.0, 1.0}}, {{0.0, halfCold}, {1.0, cold}}},
        {{{0.25, 0.0}, {0.25, 1.0}}, {{0.0, halfWarm}, {1.0, halfWarm}}},
    };
    for (const Case& c : cases) {
        const QGradientStops stops = CurveGradient::colorStops(c.stops);
        ASSERT_EQ(stops.size(), static_cast<qsizetype>(c.colors.size()));
        for (qsizetype i = 0; i < stops.size(); ++i) {
            const auto& [position, color] = c.colors[static_cast<std::size_t>(i)];
            EXPECT_NEAR(stops[i].first, position, 1e-12);
            EXPECT_EQ(stops[i].second.rgb(), color) << stops[i].second.name().toStdString();
        }
    }
}

TEST(CurveGradient, StripHasEachPixelsOwnColour) {
    // Between two black ends, over ten pixels that begin half a pixel late, with a hard edge.
    const QGradientStops colors{{0.0, QColor(0, 0, 0)},
                                {0.5, QColor(250, 0, 0)},
                                {0.5, QColor(0, 250, 0)},
                                {1.0, QColor(0, 0, 0)}};
    const QImage strip = CurveGradient::strip(colors, 0.5, 10.5, 11);
    const std::pair<int, QRgb> pixels[] = {{0, qRgb(0, 0, 0)},   {2, qRgb(100, 0, 0)},
                                           {4, qRgb(200, 0, 0)}, {5, qRgb(0, 250, 0)},
                                           {7, qRgb(0, 150, 0)}, {10, qRgb(0, 0, 0)}};
    for (const auto& [x, color] : pixels)
        EXPECT_EQ(strip.pixel(x, 0), color) << x;
}

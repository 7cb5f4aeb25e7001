#include "controls/curve/CurveGradient.h"

#include <gtest/gtest.h>

#include <vector>

using CurveGradient::Stop;

// Stops at the points and at both midnights; through white only where a colour crosses it.
TEST(CurveGradient, RunsAroundTheDayAndThroughWhite) {
    constexpr QRgb warm = qRgb(246, 241, 111), halfWarm = qRgb(251, 248, 183);
    constexpr QRgb cold = qRgb(53, 42, 156), halfCold = qRgb(154, 149, 206);
    constexpr QRgb white = qRgb(255, 255, 255);
    struct Case {
        std::vector<Stop> stops;
        std::vector<std::pair<double, QRgb>> colors;
    };
    const Case cases[] = {
        {CurveGradient::temperatureStops({}), {}},
        {CurveGradient::temperatureStops(
             std::vector<AQTimePoint>{{{6, 0, 0}, 0.0, 1.0}, {{18, 0, 0}, 1.0, 0.5}}),
         {{0.0, white}, {0.25, warm}, {0.5, white}, {0.75, cold}, {1.0, white}}},
        {{{1.0, 0.2}, {0.25, 0.8}}, {{0.2, cold}, {0.6, white}, {0.8, halfWarm}}},
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

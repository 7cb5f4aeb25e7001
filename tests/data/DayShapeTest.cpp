#include "data/DayShape.h"
#include "data/ProgramInterpolation.h"
#include "data/ProgramStatistics.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Fault = DayShape::Fault;

constexpr int noLimit = 84;

double levelAt(const DayShape& shape, int hour, int minute = 0) {
    return lightAt(shape.points(noLimit), {hour, minute}).brightness;
}

double colorAt(const DayShape& shape, int hour, int minute = 0) {
    return lightAt(shape.points(noLimit), {hour, minute}).colorTemp;
}

TEST(DayShape, usualDaysAreWhatTheyAreCalled) {
    const struct {
        DayShape shape;
        std::size_t points;
        double litHours;
        double fullLightHours; ///< by hand: a ramp, soft or not, gives half of its length
    } cases[] = {
        {UsualDays::reef(), 12, 24.0, 0.9 * 10.0 + 0.02 * 14.0},
        {UsualDays::planted(), 4, 8.0, 0.7 * 7.5},
        {UsualDays::lowLight(), 4, 7.0, 0.35 * 6.25},
        {UsualDays::siesta(), 8, 13.0 - 2.5, 0.75 * (13.0 - 0.625 - 3.0)},
        {UsualDays::longSummerDay(), 10, 14.5, 0.8 * 12.0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.shape.fault(noLimit), std::nullopt);
        const auto points = c.shape.points(noLimit);
        EXPECT_EQ(points.size(), c.points);
        const auto earlier = [](const AQTimePoint& a, const AQTimePoint& b) {
            return a.time.minuteOfDay() >= b.time.minuteOfDay();
        };
        EXPECT_EQ(std::ranges::adjacent_find(points, earlier), points.end());
        const ProgramStatistics light = statisticsOf(points);
        EXPECT_NEAR(light.litMinutes / 60.0, c.litHours, 1e-9);
        EXPECT_NEAR(light.fullLightHours, c.fullLightHours, 1e-9);
    }
}

TEST(DayShape, rampsBreakAndMoonlightRunAsDescribed) {
    DayShape shape{.start = 600, .end = 1200, .sunrise = 120, .noonLevel = 0.8};
    shape.dawnColorTemp = 0.0;
    EXPECT_DOUBLE_EQ(levelAt(shape, 10, 30), 0.2);
    EXPECT_DOUBLE_EQ(colorAt(shape, 11), 0.25);
    shape.isSoft = true;
    EXPECT_NEAR(levelAt(shape, 10, 30), 0.8 * 0.1464466, 1e-6);
    EXPECT_NEAR(levelAt(shape, 11, 30), 0.8 * 0.8535534, 1e-6);

    shape.middayBreak = DayShape::Break{.start = 780, .length = 80, .level = 0.1};
    EXPECT_DOUBLE_EQ(levelAt(shape, 13), 0.8);
    EXPECT_DOUBLE_EQ(levelAt(shape, 13, 10), 0.45);
    EXPECT_DOUBLE_EQ(levelAt(shape, 13, 40), 0.1);
    EXPECT_DOUBLE_EQ(levelAt(shape, 14, 20), 0.8);

    shape.moonlight = DayShape::Moonlight{.level = 0.05, .colorTemp = 0.9};
    EXPECT_NEAR(levelAt(shape, 2), 0.05, 1e-12);
    EXPECT_NEAR(colorAt(shape, 2), 0.9, 1e-12);
    EXPECT_DOUBLE_EQ(colorAt(shape, 20), 0.5);

    // Over midnight, and with a ramp that is none.
    const DayShape night{.start = 18 * 60, .end = 2 * 60, .sunrise = 0, .sunset = 180};
    EXPECT_EQ(night.length(), 480);
    EXPECT_EQ(levelAt(night, 18), 0.0);
    EXPECT_DOUBLE_EQ(levelAt(night, 18, 1), 0.8);
    EXPECT_DOUBLE_EQ(levelAt(night, 0, 30), 0.4);
    EXPECT_EQ(levelAt(night, 12), 0.0);
}

TEST(DayShape, saysWhatCannotBe) {
    const DayShape day{.start = 22 * 60, .end = 60, .sunrise = 60, .sunset = 60};
    const auto with = [&day](auto change) {
        DayShape shape = day;
        change(shape);
        return shape.fault(DayShape::mostPoints);
    };
    const auto withBreak = [&](int start, int length) {
        return with([&](DayShape& shape) { shape.middayBreak = {start, length, 0.0}; });
    };
    EXPECT_EQ(with([](DayShape&) {}), std::nullopt);
    EXPECT_EQ(with([](DayShape& s) { s.end = s.start; }), Fault::endsAtItsStart);
    EXPECT_EQ(with([](DayShape& s) { s.sunset = 120; }), std::nullopt) << "no noon is left";
    EXPECT_EQ(with([](DayShape& s) { s.sunset = 121; }), Fault::rampsOverlap);
    EXPECT_EQ(withBreak(23 * 60, 60), std::nullopt);
    EXPECT_EQ(withBreak(23 * 60 - 1, 20), Fault::breakBeyondNoon);
    EXPECT_EQ(withBreak(23 * 60 + 50, 11), Fault::breakBeyondNoon) << "into the sunset";
    EXPECT_EQ(withBreak(12 * 60, 30), Fault::breakBeyondNoon) << "by night";
    EXPECT_EQ(withBreak(23 * 60, 181), Fault::breakLongerThanDay);
}

TEST(DayShape, softRampsGiveWayToTheLimit) {
    DayShape shape = UsualDays::reef();
    shape.middayBreak = DayShape::Break{.start = 14 * 60};
    EXPECT_EQ(shape.points(noLimit).size(), 16U);
    EXPECT_EQ(shape.points(15).size(), 14U);
    EXPECT_EQ(shape.points(10).size(), 10U);
    EXPECT_EQ(shape.fault(10), std::nullopt);
    EXPECT_EQ(shape.fault(9), Fault::tooManyPoints);
    // Steeper than its points are apart, and each of all lengths is a program.
    for (const int ramp : {0, 1, 2, 3, 7}) {
        shape.sunrise = ramp;
        EXPECT_EQ(shape.fault(20), std::nullopt);
        EXPECT_DOUBLE_EQ(levelAt(shape, 10), 0.02);
        EXPECT_DOUBLE_EQ(levelAt(shape, 10, std::max(ramp, 1)), 0.9);
    }
    // Nothing is left of the night.
    shape.start = 0;
    shape.end = 1439;
    EXPECT_EQ(shape.fault(20), std::nullopt);
    EXPECT_LE(shape.points(20).size(), 16U);
    shape.middayBreak.reset();
    const auto points = shape.points(20);
    const auto isSameMinute = [](const AQTimePoint& point, const AQTimePoint& next) {
        return point.time == next.time;
    };
    EXPECT_EQ(std::ranges::adjacent_find(points, isSameMinute), points.end());
}

} // namespace

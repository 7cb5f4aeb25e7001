#include "controls/CurveGeometry.h"

#include "data/AQTimePoint.h"

#include <gtest/gtest.h>

TEST(CurveGeometry, MapsMinutesAndIntensitiesIntoThePlot) {
    const CurveGeometry geometry(QSizeF(1560.0, 600.0));
    EXPECT_DOUBLE_EQ(geometry.x(0), 60.0);
    EXPECT_DOUBLE_EQ(geometry.x(720), 780.0);
    EXPECT_DOUBLE_EQ(geometry.x(1440), 1500.0);
    EXPECT_DOUBLE_EQ(geometry.y(0.0), 560.0);
    EXPECT_DOUBLE_EQ(geometry.y(0.25), 430.0);
    EXPECT_DOUBLE_EQ(geometry.y(1.0), 40.0);
    // Seconds do not count.
    EXPECT_EQ(geometry.position({AQTime{12, 0, 59}, 0.5, 0.5}), QPointF(780.0, 300.0));
    EXPECT_EQ(geometry.rectFromBottom(10.0, 8.0, 48.0, 20.0), QRectF(10.0, 572.0, 48.0, 20.0));
}

TEST(CurveGeometry, MapsHeightsBackAndLimitsThem) {
    const CurveGeometry geometry(QSizeF(1000.0, 480.0));
    for (const double intensity : {0.0, 0.123, 0.5, 1.0})
        EXPECT_NEAR(geometry.intensityAt(geometry.y(intensity)), intensity, 1e-12);
    EXPECT_EQ(geometry.intensityAt(-30.0), 1.0);
    EXPECT_EQ(geometry.intensityAt(39.0), 1.0);
    EXPECT_EQ(geometry.intensityAt(441.0), 0.0);
    EXPECT_EQ(geometry.intensityAt(2000.0), 0.0);
}

TEST(CurveGeometry, StaysFiniteWithoutRoomForAPlot) {
    const CurveGeometry geometry(QSizeF(50.0, 30.0));
    EXPECT_EQ(geometry.x(0), geometry.x(1440));
    EXPECT_EQ(geometry.y(0.0), geometry.y(1.0));
    EXPECT_EQ(geometry.intensityAt(geometry.bottom()), 0.0);
}

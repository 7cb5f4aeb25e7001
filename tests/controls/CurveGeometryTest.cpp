#include "controls/CurveGeometry.h"

#include "data/AQTimePoint.h"

#include <gtest/gtest.h>

TEST(CurveGeometry, MapsMinutesAndIntensitiesIntoThePlotAndHeightsBack) {
    const CurveGeometry geometry(QSizeF(1560.0, 600.0));
    EXPECT_DOUBLE_EQ(geometry.x(0), 60.0);
    EXPECT_DOUBLE_EQ(geometry.x(1440), 1500.0);
    EXPECT_EQ(geometry.position({AQTime{12, 0, 59}, 0.5, 0.5}), QPointF(780.0, 300.0));
    const std::pair<double, double> heights[] = {{560.0, 0.0}, {430.0, 0.25}, {40.0, 1.0}};
    for (const auto& [y, intensity] : heights) {
        EXPECT_DOUBLE_EQ(geometry.y(intensity), y);
        EXPECT_NEAR(geometry.intensityAt(y), intensity, 1e-12);
    }
    EXPECT_EQ(geometry.intensityAt(39.0), 1.0);
    EXPECT_EQ(geometry.intensityAt(2000.0), 0.0);

    const CurveGeometry noRoom(QSizeF(50.0, 30.0));
    EXPECT_EQ(noRoom.x(0), noRoom.x(1440));
    EXPECT_EQ(noRoom.intensityAt(noRoom.bottom()), 0.0);
}

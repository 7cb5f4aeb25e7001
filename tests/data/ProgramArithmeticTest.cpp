#include "data/AQDataSource.h"
#include "data/ProgramStatistics.h"

#include <gtest/gtest.h>

namespace {

using Points = std::vector<AQTimePoint>;

Points defaultProgram() {
    NotificationCenter notifications;
    return AQDataSource(notifications).sequence().points();
}

TEST(ProgramStatistics, measuresTheLightOfADay) {
    // Trapezoids by hand: 0.6 + 4.5 + 4.5 + 0.65 + 0.4875 + 0.075 hours.
    EXPECT_EQ(statisticsOf(defaultProgram()).text(), u"Light 15 h 00 min, 10.8 h of full light");
    EXPECT_DOUBLE_EQ(statisticsOf(defaultProgram()).fullLightHours, 10.8125);
    EXPECT_EQ(statisticsOf({}), (ProgramStatistics{0, 0}));
    EXPECT_EQ(statisticsOf(Points{{{8, 0}, 0.5, 0.25}}), (ProgramStatistics{1440, 6}));
    // Switched on at 20:00, full over midnight to 04:00, dark at 05:30; and in no order.
    EXPECT_EQ(
        statisticsOf(Points{{{20, 0}, 0, 0}, {{20, 0}, 0, 1}, {{4, 0}, 0, 1}, {{5, 30}, 0, 0}}),
        (ProgramStatistics{570, 8.75}));
}

} // namespace

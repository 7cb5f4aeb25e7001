#include "journeys/Journey.h"

#include <QDateTime>

#include <cstdlib>

namespace {

TEST(ClockJourneys, clockIsComparedAndSet) {
    const Journey journey;
    const auto openPanel = [&] {
        ASSERT_TRUE(journey.chooseMenu("Set Device Time..."));
        ASSERT_NE(journey.dialog("Controller's clock"), "");
        const UiElement computerTime = journey.find("radio button", "Computer's time");
        expectSoon([&] { return computerTime.isFocused(); }, true);
    };
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    journey.control("fault delay=150");
    journey.control("clock 0 0 12 31 2 26");
    openPanel();
    ASSERT_TRUE(journey.waitForText("There is no such date as the controller's: 02/31/2026, "
                                    "12:00:00. \"OK\" sets its clock."));
    journey.control("unplug");
    ASSERT_NE(journey.dialog("Device Error!"), "");
    ASSERT_TRUE(journey.press("OK"));
    ASSERT_TRUE(journey.waitForText("The controller is not connected; its clock cannot be set."));
    EXPECT_FALSE(journey.find("push button", "OK").isEnabled());
    // Nothing is set by Cancel; OK sets what the computer shows.
    journey.control("plug");
    ASSERT_TRUE(journey.press("Cancel"));
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    EXPECT_EQ(journey.count("CmdSetRTC"), 0);
    openPanel();
    ASSERT_TRUE(journey.press("OK"));
    ASSERT_TRUE(journey.waitForCommand("CmdSetDaylightInfo"));
    const auto stored = QDateTime::fromString(journey.controller("clock").toString(),
                                              QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    EXPECT_LE(std::abs(QDateTime::currentDateTime().secsTo(stored)), 2);
    openPanel();
    ASSERT_TRUE(
        journey.waitForText("The controller's clock shows the same time as the computer's."));
    // Two zones further east.
    Journey::keys("alt+t Down Down Return");
    ASSERT_TRUE(journey.waitForCommand("CmdSetDaylightInfo", 2));
    EXPECT_EQ(journey.controller("daylight")[QLatin1String("utcOffset")].toInt(), 2);
}

} // namespace

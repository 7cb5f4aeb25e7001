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
    const auto storedClock = [&] {
        return QDateTime::fromString(journey.controller("clock").toString(),
                                     QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    };
    const auto storedOffset = [&] {
        return journey.controller("daylight")[QLatin1String("utcOffset")].toInt();
    };
    // OK, by which the clock and then the zone is set.
    const auto expectSet = [&](int times) {
        ASSERT_TRUE(journey.waitForNoDialog());
        ASSERT_TRUE(journey.waitForCommand("CmdSetDaylightInfo", times));
        EXPECT_GE(journey.count("CmdSetRTC"), times);
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
    expectSet(1);
    EXPECT_LE(std::abs(QDateTime::currentDateTime().secsTo(storedClock())), 2);
    const int here = QDateTime::currentDateTime().offsetFromUtc() / 3600;
    EXPECT_EQ(storedOffset(), here);

    // Two zones further east.
    openPanel();
    ASSERT_TRUE(
        journey.waitForText("The controller's clock shows the same time as the computer's."));
    Journey::keys("alt+t Down Down Return");
    expectSet(2);
    EXPECT_LE(std::abs(QDateTime::currentDateTime().secsTo(storedClock()) - 2 * 3600), 2);
    EXPECT_EQ(storedOffset(), here + 2);

    openPanel();
    const auto isPicker = [](const UiElement& element) {
        return element.role() != "radio button" && element.name() == "Custom time";
    };
    EXPECT_FALSE(journey.front().find(isPicker).isEnabled());
    Journey::keys("alt+u");
    expectSoon([&] { return journey.front().find(isPicker).isEnabled(); }, true);
    Journey::keys("Tab");
    Journey::type(QStringLiteral("02282031051530PM"));
    ASSERT_TRUE(journey.press("OK"));
    expectSet(3);
    EXPECT_EQ(storedClock().date(), QDate(2031, 2, 28));
    EXPECT_EQ(storedClock().time().hour() * 60 + storedClock().time().minute(), 17 * 60 + 15);
}

} // namespace

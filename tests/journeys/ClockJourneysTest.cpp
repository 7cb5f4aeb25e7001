#include "journeys/Journey.h"

#include <QDateTime>
#include <QJsonObject>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr qint64 secondsPerHour = 3600;

/// The panel of the controller's clock, opened and answered in the ways a person does it.
class ClockJourneys : public testing::Test {
protected:
    void openPanel() {
        ASSERT_TRUE(journey.chooseMenu("Set Device Time..."));
        ASSERT_NE(journey.dialog("Controller's clock"), "");
        ok = journey.find("push button", "OK");
        const UiElement computerTime = journey.find("radio button", "Computer's time");
        expectSoon([&] { return computerTime.isFocused(); }, true);
    }

    /// The texts of the controller's and of the computer's clock.
    std::vector<std::string> clocks() const {
        std::vector<std::string> texts;
        for (const UiElement& label : journey.front().findAll([](const UiElement& element) {
                 const std::string name = element.name();
                 return name.ends_with(" AM") || name.ends_with(" PM");
             }))
            texts.push_back(label.name());
        return texts;
    }

    QDateTime storedClock() const {
        return QDateTime::fromString(journey.controller(QLatin1String("clock")).toString(),
                                     QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    }
    qint64 secondsAhead() const { return QDateTime::currentDateTime().secsTo(storedClock()); }
    int storedOffset() const {
        return journey.controller(QLatin1String("daylight"))[QLatin1String("utcOffset")].toInt();
    }

    void expectSetClock(int times) const {
        ASSERT_TRUE(journey.waitForNoDialog());
        ASSERT_TRUE(journey.waitForCommand("CmdSetDaylightInfo", times));
        auto commands = journey.commands();
        commands.erase(std::ranges::unique(commands).begin(), commands.end()); // repeated ones
        EXPECT_EQ(commands[commands.size() - 2], "CmdSetRTC");
        EXPECT_EQ(commands.back(), "CmdSetDaylightInfo");
    }

    Journey journey;
    UiElement ok;
};

TEST_F(ClockJourneys, clockIsComparedAndSet) {
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    ASSERT_EQ(journey.control(QStringLiteral("fault delay=150")), QStringLiteral("ok"));
    ASSERT_EQ(journey.control(QStringLiteral("clock 10 20 4 5 6 20")), QStringLiteral("ok"));
    openPanel();
    ASSERT_TRUE(
        Journey::waitUntil([this] { return clocks().front().starts_with("06/05/2020, 04:"); }));
    const auto before = clocks();
    ASSERT_EQ(before.size(), 2U);
    EXPECT_TRUE(Journey::waitUntil([&] {
        const auto now = clocks();
        return now[0] != before[0] && now[1] != before[1];
    })) << "a clock stands still";

    // Nothing is set by Cancel; OK sets what the computer shows.
    ASSERT_TRUE(journey.press("Cancel"));
    ASSERT_TRUE(journey.waitForNoDialog());
    EXPECT_EQ(journey.commands().back(), "CmdGetRTC");
    openPanel();
    ASSERT_TRUE(journey.press("OK"));
    expectSetClock(1);
    EXPECT_LE(std::abs(secondsAhead()), 2);
    EXPECT_EQ(storedOffset(), QDateTime::currentDateTime().offsetFromUtc() / secondsPerHour);

    // Two zones further east.
    openPanel();
    ASSERT_TRUE(
        journey.waitForText("The controller's clock shows the same time as the computer's."));
    Journey::keys("alt+t Down Down Return");
    expectSetClock(2);
    EXPECT_LE(std::abs(secondsAhead() - 2 * secondsPerHour), 2);
    EXPECT_EQ(storedOffset(), QDateTime::currentDateTime().offsetFromUtc() / secondsPerHour + 2);

    openPanel();
    const UiElement picker =
        journey.front()
            .findAll([](const UiElement& element) {
                return element.role() != "radio button" && element.name() == "Custom time";
            })
            .at(0);
    EXPECT_FALSE(picker.isEnabled());
    Journey::keys("alt+u");
    expectSoon([&] { return picker.isEnabled(); }, true);
    Journey::keys("Tab");
    Journey::type(QStringLiteral("02282031051530PM"));
    ASSERT_TRUE(journey.press("OK"));
    expectSetClock(3);
    EXPECT_EQ(storedClock().date(), QDate(2031, 2, 28));
    EXPECT_EQ(storedClock().time().hour() * 60 + storedClock().time().minute(), 17 * 60 + 15);
}

TEST_F(ClockJourneys, pulledCableAndImpossibleDateAreTold) {
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    ASSERT_EQ(journey.control(QStringLiteral("clock 0 0 12 31 2 26")), QStringLiteral("ok"));
    openPanel();
    const std::string impossible = "There is no such date as the controller's: 02/31/2026, "
                                   "12:00:00. \"OK\" sets its clock.";
    ASSERT_TRUE(journey.waitForText(impossible));
    ASSERT_TRUE(journey.waitForText("invalid date from the controller"));

    EXPECT_EQ(journey.control(QStringLiteral("unplug")), QStringLiteral("ok"));
    ASSERT_NE(journey.dialog("Device Error!"), "");
    EXPECT_EQ(journey.dialogs().size(), 2U);
    ASSERT_TRUE(journey.press("OK"));
    ASSERT_TRUE(journey.waitForText("The controller is not connected; its clock cannot be set."));
    EXPECT_EQ(journey.dialogs().size(), 1U);
    EXPECT_FALSE(ok.isEnabled());

    EXPECT_EQ(journey.control(QStringLiteral("plug")), QStringLiteral("ok"));
    ASSERT_TRUE(journey.press("Cancel"));
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    openPanel();
    ASSERT_TRUE(journey.waitForText(impossible));
    ASSERT_TRUE(journey.press("OK"));
    expectSetClock(1);
    EXPECT_LE(std::abs(secondsAhead()), 2);
}

} // namespace

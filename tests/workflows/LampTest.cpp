#include "controls/curve/AQCurveView.h"
#include "controls/window/AQSwitchButton.h"
#include "data/AQDataSource.h"
#include "data/ColorMapping.h"
#include "data/ProgramInterpolation.h"
#include "lamp/LampPreview.h"
#include "workflows/DemoMode.h"
#include "workflows/LiveMode.h"
#include "workflows/SimulatedLink.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace {

using namespace std::chrono_literals;
using Commands = SimulatedLink::Commands;

const std::string enable = "CmdEnableDemoMode 1";
const std::string disable = "CmdDisableDemoMode 0";
const std::string full = "CmdSetDemoModeLevels 1 254 254";

std::string levels(const AQTimePoint& light) {
    const ChannelLevels channels = levelsFromLight(light.colorTemp, light.brightness);
    return "CmdSetDemoModeLevels 1 " + std::to_string(channels.cold) + ' ' +
           std::to_string(channels.warm);
}

/// Live mode and demo mode at one lamp, as in the window, with shorter intervals.
class LampTest : public testing::Test {
protected:
    void SetUp() override {
        link.connectedChanged = [this](bool isConnected) { lamp.setConnected(isConnected); };
        QObject::connect(&demo, &DemoMode::runningChanged, &live, &LiveMode::setSuspended);
        ASSERT_TRUE(link.connect());
    }
    void touch(int row) { sequence.notifySelectionChange(row, nullptr); }
    bool isReleased() {
        return link.waitFor([this] { return !lamp.hasLamp() && !demo.isRunning(); });
    }

    SimulatedLink link;
    NotificationCenter notifications;
    AQDataSource data{notifications};
    AQSequence& sequence = data.sequence();
    LampPreview lamp{link.controller, LampPreview::Intervals{.levels = 20ms}};
    AQSwitchButton liveSwitch;
    AQCurveView curveView{data.sequence(), data.selection(), nullptr};
    QPushButton bttnRunDemo;
    LiveMode live{data, lamp, liveSwitch};
    DemoMode demo{data, lamp, curveView, bttnRunDemo, DemoMode::Intervals{.tick = 1ms}};
};

TEST_F(LampTest, liveModeKeepsThePreviewAliveBehindModalWindowsToo) {
    EXPECT_EQ(LiveMode::Intervals().keepAlive, 50s);
    AQSwitchButton button;
    LiveMode shortLived{data, lamp, button, LiveMode::Intervals{.keepAlive = 150ms}};
    std::vector<double> times;
    const auto receives = [&](const Commands& commands) {
        const bool asExpected = link.receives(commands);
        times.push_back(link.log.events().back().seconds);
        return asExpected;
    };
    link.pause.setActive(true);
    button.setChecked(true);
    ASSERT_TRUE(receives({enable}));
    ASSERT_TRUE(receives({enable, enable}));
    EXPECT_GT(times[1] - times[0], 0.120);
    // Half way to the next one the levels start the time anew.
    ASSERT_TRUE(link.waitFor([&] { return link.log.secondsNow() > times[1] + 0.075; }));
    touch(2);
    touch(2); // the same again would only hold up the next
    ASSERT_TRUE(receives({enable, enable, full}));
    ASSERT_TRUE(receives({enable, enable, full, enable}));
    EXPECT_GT(times[3] - times[2], 0.120);
}

TEST_F(LampTest, noLateReleaseEndsAPreviewThatWasTakenAgain) {
    liveSwitch.setChecked(true);
    touch(2);
    liveSwitch.setChecked(false);
    EXPECT_TRUE(lamp.hasLamp()) << "until the controller has confirmed it";
    ASSERT_TRUE(link.receives({enable, full, disable}));
    ASSERT_TRUE(isReleased());

    // Off and on again before the release could go out.
    link.ignoreSoFar();
    liveSwitch.setChecked(true);
    ASSERT_TRUE(link.receives({enable, full}));
    liveSwitch.setChecked(false);
    liveSwitch.setChecked(true);
    ASSERT_TRUE(link.receives({enable, full, enable, full}));
}

TEST_F(LampTest, demoPlaysTheWholeDayAndStopsByItself) {
    const QSignalSpy signs(&lamp, &LampPreview::signChanged);
    bttnRunDemo.click();
    ASSERT_TRUE(isReleased());
    EXPECT_EQ(curveView.playheadTime(), std::nullopt);
    ASSERT_EQ(signs.count(), AQTime::minutesPerDay + 1);
    EXPECT_EQ(signs.at(1439).first().toString(), QStringLiteral("DEMO 23:59"));

    // Levels in the order of the day, each that of some minute after the one before it.
    const auto commands = link.commands();
    ASSERT_GT(commands.size(), 10U);
    EXPECT_EQ(commands.front(), enable);
    EXPECT_EQ(commands.back(), disable);
    int minute = 0;
    for (std::size_t i = 1; i + 1 < commands.size(); ++i) {
        while (minute < AQTime::minutesPerDay &&
               commands[i] != levels(lightAt(sequence.points(), AQTime::fromMinuteOfDay(minute))))
            ++minute;
        ASSERT_LT(minute, AQTime::minutesPerDay) << commands[i];
    }
    EXPECT_GT(minute, 1200);
}

TEST_F(LampTest, demoIsPausedAndSentToOtherTimes) {
    EXPECT_EQ(DemoMode::Intervals().keepAlive, 50s);
    constexpr AQTime noon{12, 0};
    QPushButton button;
    curveView.resize(1000, 480);
    LampPreview slow{link.controller, LampPreview::Intervals{.levels = 1s}};
    link.connectedChanged = [&](bool isConnected) { slow.setConnected(isConnected); };
    slow.setConnected(true);
    DemoMode paused{data, slow, curveView, button, {.tick = 1h, .keepAlive = 300ms}};
    const auto at = [this](AQTime time) { return levels(lightAt(sequence.points(), time)); };
    const auto press = [this](Qt::Key key) { QTest::keyClick(&curveView, key); };
    const auto playhead = [this] { return curveView.playheadTime().value_or(AQTime{}); };
    const double start = link.log.secondsNow();
    button.click();
    ASSERT_TRUE(link.receives({enable, at({})}));

    // Each jump is followed without the time that is usual between two levels.
    const double x = curveView.curveGeometry().x(noon.minuteOfDay());
    QTest::mouseClick(&curveView, Qt::LeftButton, {}, QPoint(static_cast<int>(x), 100));
    EXPECT_EQ(playhead(), noon);
    ASSERT_TRUE(link.receives({enable, at({}), at(noon)}));
    press(Qt::Key_Left);
    EXPECT_EQ(playhead(), (AQTime{10, 0}));
    press(Qt::Key_Left);
    press(Qt::Key_Left); // before it there is none
    EXPECT_EQ(playhead(), (AQTime{8, 30}));
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(playhead(), (AQTime{15, 0}));
    EXPECT_TRUE(link.waitFor([&] { return link.commands().back() == at({15, 0}); }));

    EXPECT_LT(link.log.secondsNow() - start, 1.0);

    // Paused it is kept alive, shows what is edited, and after a lost link the same minute again.
    press(Qt::Key_Space);
    EXPECT_EQ(slow.sign(), QStringLiteral("DEMO 15:00 PAUSED: press Space to go on"));
    EXPECT_TRUE(link.waitFor([&] { return link.commands().back() == enable; }));
    sequence.updateWithRow(2, AQSequence::Brightness{1.0}, nullptr);
    EXPECT_DOUBLE_EQ(curveView.playheadBrightness(), 1.0);
    EXPECT_TRUE(link.waitFor([&] { return link.commands().back() == at({15, 0}); }));
    link.ignoreSoFar();
    link.ports.hangUp("ttyUSB0");
    EXPECT_TRUE(link.waitFor([&] { return link.commands().size() == 2; }));
    EXPECT_EQ(link.commands(), (Commands{enable, at({15, 0})}));
    press(Qt::Key_Space);
    EXPECT_EQ(slow.sign(), QStringLiteral("DEMO 15:00"));
    button.click();
    EXPECT_TRUE(link.waitFor([&] { return !slow.hasLamp(); }));
    EXPECT_TRUE(!paused.isRunning() && !curveView.playheadTime());
}

} // namespace

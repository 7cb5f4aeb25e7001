#include "workflows/DemoMode.h"

#include "controls/AQCurveView.h"
#include "controls/AQSwitchButton.h"
#include "controls/ProgramInterpolation.h"
#include "data/AQDataSource.h"
#include "workflows/LampCommands.h"
#include "workflows/LampPreview.h"
#include "workflows/LiveMode.h"
#include "workflows/SimulatedLink.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QSignalSpy>

namespace {

using namespace std::chrono_literals;

using namespace LampCommands;

class DemoModeTest : public testing::Test {
protected:
    void SetUp() override {
        link.connectedChanged = [this](bool isConnected) { lamp.setConnected(isConnected); };
        QObject::connect(&demo, &DemoMode::runningChanged, &live, &LiveMode::setSuspended);
        curveView.setDocument(data);
        ASSERT_TRUE(link.connect());
    }
    bool reaches(AQTime time) {
        return link.waitFor([&] {
            const auto playhead = curveView.playheadTime();
            return !playhead || playhead->minuteOfDay() >= time.minuteOfDay();
        });
    }
    void replaceBy(std::vector<AQTimePoint> points) {
        data.sequence().replacePoints(std::move(points));
        data.sequence().notifyDataChange(nullptr, true);
    }
    bool isReleased() {
        return link.waitFor([this] { return !lamp.hasLamp() && !demo.isRunning(); });
    }

    SimulatedLink link;
    NotificationCenter notifications;
    AQDataSource data{notifications};
    LampPreview lamp{link.controller, LampPreview::Intervals{.levels = 20ms}};
    AQSwitchButton bttnLiveModeSwitch;
    AQCurveView curveView;
    QPushButton bttnRunDemo;
    LiveMode live{data, lamp, bttnLiveModeSwitch};
    DemoMode demo{data, lamp, curveView, bttnRunDemo, DemoMode::Intervals{.tick = 1ms}};
};

TEST_F(DemoModeTest, playsTheWholeDayAndStopsByItself) {
    QSignalSpy signs(&lamp, &LampPreview::signChanged);
    bttnRunDemo.click();
    EXPECT_EQ(bttnRunDemo.text(), QStringLiteral("Stop Demo"));
    EXPECT_EQ(curveView.playheadTime(), AQTime{});
    ASSERT_TRUE(isReleased());
    EXPECT_EQ(bttnRunDemo.text(), QStringLiteral("Run Demo"));
    EXPECT_EQ(curveView.playheadTime(), std::nullopt);
    ASSERT_EQ(signs.count(), AQTime::minutesPerDay + 1);
    EXPECT_EQ(signs.at(1).first().toString(), QStringLiteral("DEMO 00:01"));
    EXPECT_EQ(signs.at(1439).first().toString(), QStringLiteral("DEMO 23:59"));
    EXPECT_EQ(signs.last().first().toString(), QString());

    // Levels in the order of the day, each that of some minute after the one before it.
    const auto commands = link.commands();
    ASSERT_GT(commands.size(), 10U);
    EXPECT_EQ(commands.front(), enable);
    EXPECT_EQ(commands.back(), disable);
    int minute = 0;
    for (std::size_t i = 1; i + 1 < commands.size(); ++i) {
        const auto isShown = [&] {
            const AQTime time = AQTime::fromMinuteOfDay(minute);
            return commands[i] == levels(lightAt(data.sequence().points(), time));
        };
        while (minute < AQTime::minutesPerDay && !isShown())
            ++minute;
        ASSERT_LT(minute, AQTime::minutesPerDay) << commands[i];
    }
    EXPECT_GT(minute, 1200);
}

TEST_F(DemoModeTest, nothingFollowsTheReleaseOnStopping) {
    for (const char* fault : {"delay=0", "delay=15", "delay=50"}) {
        SCOPED_TRACE(fault);
        link.faults.add(*Fault::parse(fault));
        link.ignoreSoFar();
        bttnRunDemo.click();
        ASSERT_TRUE(reaches({1, 40, 0}));
        bttnRunDemo.click();
        ASSERT_TRUE(isReleased());
        // What waited in the stream would come within its interval and an answer.
        const double later = link.log.secondsNow() + 0.08;
        ASSERT_TRUE(link.waitFor([&] { return link.log.secondsNow() > later; }));
        EXPECT_EQ(link.commands().back(), disable);
        EXPECT_FALSE(link.device.state().demoActive);
        link.faults.clear();
    }
}

TEST_F(DemoModeTest, theDocumentMayChangeMeanwhile) {
    bttnRunDemo.click();
    ASSERT_TRUE(reaches({1, 0, 0}));
    replaceBy({});
    ASSERT_TRUE(reaches({2, 0, 0}));
    curveView.setEnabled(false); // analog mode
    ASSERT_TRUE(reaches({3, 0, 0}));
    EXPECT_TRUE(demo.isRunning());
    // A program of a single light: what the lamp shows next is the changed program.
    replaceBy({{{12, 0, 0}, 0.5, 1.0}});
    EXPECT_TRUE(link.waitFor([this] {
        return link.device.lampLevels() == std::array<std::uint8_t, 2>{254, 254};
    }));
    bttnRunDemo.click();
    EXPECT_TRUE(isReleased());
}

TEST_F(DemoModeTest, aLostLinkInTheMiddle) {
    bttnRunDemo.click();
    ASSERT_TRUE(reaches({1, 0, 0}));
    link.faults.add(*Fault::parse("deaf"));
    ASSERT_TRUE(reaches({2, 0, 0}));
    ASSERT_TRUE(link.disconnect());
    EXPECT_TRUE(demo.isRunning());
    link.faults.clear();
    ASSERT_TRUE(reaches({4, 0, 0}));
    ASSERT_TRUE(link.connect());
    ASSERT_TRUE(link.waitFor([this] { return link.device.state().demoActive; }));
    ASSERT_TRUE(link.waitFor([this] { return link.commands().size() >= 2; }));
    EXPECT_EQ(std::ranges::count(link.commands(), disable), 0);

    // The day ends without a controller: the lamp is given back once there is one.
    ASSERT_TRUE(link.disconnect());
    ASSERT_TRUE(link.waitFor([this] { return !demo.isRunning(); }));
    EXPECT_TRUE(lamp.hasLamp());
    EXPECT_EQ(lamp.sign(), QString());
    link.device.editState().demoActive = true;
    ASSERT_TRUE(link.connect());
    EXPECT_TRUE(isReleased());
    EXPECT_EQ(link.commands(), SimulatedLink::Commands{});
    EXPECT_FALSE(link.device.state().demoActive);
}

TEST_F(DemoModeTest, liveModeStandsBackAndComesAgain) {
    bttnLiveModeSwitch.setChecked(true);
    data.sequence().notifySelectionChange(2, nullptr);
    ASSERT_TRUE(link.receives({enable, "CmdSetDemoModeLevels 1 254 254"}));
    link.ignoreSoFar();
    bttnRunDemo.click();
    EXPECT_EQ(lamp.sign(), QStringLiteral("DEMO 00:00"));
    ASSERT_TRUE(reaches({0, 30, 0}));
    data.sequence().updateWithRow(2, AQSequence::Brightness{0.5}, nullptr);
    bttnRunDemo.click();
    EXPECT_EQ(lamp.sign(), QStringLiteral("LIVE PREVIEW"));
    const std::string edited = levels(data.sequence().at(2));
    ASSERT_TRUE(link.waitFor([&] { return link.commands().back() == edited; }));
    const auto commands = link.commands();
    ASSERT_GE(commands.size(), 5U);
    EXPECT_EQ(commands[commands.size() - 3], disable);
    EXPECT_EQ(commands[commands.size() - 2], enable);

    // Switched off during a demo, it takes the lamp from nobody.
    bttnRunDemo.click();
    bttnLiveModeSwitch.setChecked(false);
    ASSERT_TRUE(reaches({0, 30, 0}));
    EXPECT_TRUE(lamp.hasLamp());
    bttnRunDemo.click();
    EXPECT_TRUE(isReleased());
    EXPECT_EQ(link.commands().back(), disable);
}

} // namespace

#include "workflows/LiveMode.h"

#include "controls/AQSwitchButton.h"
#include "data/AQDataSource.h"
#include "workflows/LampCommands.h"
#include "workflows/LampPreview.h"
#include "workflows/SimulatedLink.h"
#include "yprotocoll/YCommands.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using Brightness = AQSequence::Brightness;
using Commands = SimulatedLink::Commands;
using namespace LampCommands;

class LiveModeTest : public testing::Test {
protected:
    void SetUp() override {
        link.connectedChanged = [this](bool isConnected) { lamp.setConnected(isConnected); };
        ASSERT_TRUE(link.connect());
    }
    std::string levelsOfRow(int row) { return levels(sequence.at(row)); }
    void touch(int row) { sequence.notifySelectionChange(row, nullptr); }
    void setBrightness(int row, double value) {
        sequence.updateWithRow(row, Brightness{value}, nullptr);
    }
    /// What the lamp is shown when the mode is switched on anew, with nothing left in the stream.
    Commands shownAnew() {
        int answers = 0;
        const auto count = [&](const YAnswer&) { ++answers; };
        bttnLiveModeSwitch.setChecked(false);
        EXPECT_TRUE(link.waitFor([this] { return !lamp.hasLamp(); }));
        link.controller.sendStream(CmdGetRTC(), 0ms, count);
        EXPECT_TRUE(link.waitFor([&] { return answers == 1; }));
        link.ignoreSoFar();
        bttnLiveModeSwitch.setChecked(true);
        link.controller.send(CmdGetRTC(), count);
        EXPECT_TRUE(link.waitFor([&] { return answers == 2; }));
        Commands commands = link.commands();
        std::erase(commands, "CmdGetRTC");
        return commands;
    }

    SimulatedLink link;
    NotificationCenter notifications;
    AQDataSource data{notifications};
    AQSequence& sequence = data.sequence();
    LampPreview lamp{link.controller, LampPreview::Intervals{.levels = 20ms}};
    AQSwitchButton bttnLiveModeSwitch;
    LiveMode live{data, lamp, bttnLiveModeSwitch, LiveMode::Intervals{.keepAlive = 60s}};
};

TEST_F(LiveModeTest, showsTheLightThatWasTouchedLast) {
    Commands story;
    const auto continues = [&](const std::string& command) {
        story.push_back(command);
        return link.receives(story);
    };
    bttnLiveModeSwitch.setChecked(true);
    ASSERT_TRUE(continues(enable));
    EXPECT_EQ(lamp.sign(), QStringLiteral("LIVE PREVIEW"));
    touch(2);
    ASSERT_TRUE(continues("CmdSetDemoModeLevels 1 254 254"));
    // Announced as two cells, shown once; the other point's change turns the hand to that point.
    setBrightness(2, 0.25);
    ASSERT_TRUE(continues(levels({{}, 0.5, 0.25})));
    sequence.updateWithRow(4, AQSequence::ColorTemp{0.1}, nullptr);
    ASSERT_TRUE(continues(levels({{}, 0.1, 0.5})));
    data.setTaskLight({{0, 1, 0}, 0.9, 0.7});
    live.taskLightTouched();
    ASSERT_TRUE(continues(levels({{}, 0.9, 0.7})));
    // Letting go of the selection leaves the lamp as it is; a new time touches its point.
    touch(-1);
    sequence.setTime(1, {10, 1}, nullptr);
    ASSERT_TRUE(continues(levelsOfRow(1)));
    bttnLiveModeSwitch.setChecked(false);
    ASSERT_TRUE(continues(disable));
    ASSERT_TRUE(link.waitFor([this] { return !lamp.hasLamp(); }));
    EXPECT_EQ(lamp.sign(), QString());
}

TEST_F(LiveModeTest, knowsItsPointWhenRowsMove) {
    touch(3);
    const AQTimePoint edited = sequence.at(3);
    const std::function<void()> moves[] = {
        [this] { sequence.deleteWithRow(0, nullptr); },
        [this] { sequence.addNewAfter(0, nullptr); },
        [this] {
            sequence.setTime(0, {23, 0}, nullptr);
        },
    };
    for (const auto& move : moves) {
        move();
        EXPECT_EQ(shownAnew(), Commands({enable, levels(edited)}));
    }
    touch(3);
    sequence.deleteWithRow(3, nullptr);
    EXPECT_EQ(shownAnew(), Commands({enable}));
    touch(3);
    data.loadDefaults();
    EXPECT_EQ(shownAnew(), Commands({enable}));
}

TEST_F(LiveModeTest, quickChangesAreSpacedAndTheLastArrives) {
    bttnLiveModeSwitch.setChecked(true);
    for (int percent = 1; percent <= 40; ++percent) {
        setBrightness(2, percent / 100.0);
        const double later = link.log.secondsNow() + 0.002;
        ASSERT_TRUE(link.waitFor([&] { return link.log.secondsNow() > later; }));
    }
    ASSERT_TRUE(link.waitFor([this] { return link.commands().back() == levelsOfRow(2); }));
    double last = -1.0;
    for (const WireEvent& event : link.log.events()) {
        if (event.kind == WireEvent::Kind::Received && event.text == "CmdSetDemoModeLevels") {
            EXPECT_GE(event.seconds - last, 0.020);
            last = event.seconds;
        }
    }
}

TEST_F(LiveModeTest, keepsThePreviewAliveBehindModalWindowsToo) {
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
    EXPECT_NEAR(times[1] - times[0], 0.150, 0.050);
    // Half way to the next one the levels start the time anew.
    ASSERT_TRUE(link.waitFor([&] { return link.log.secondsNow() > times[1] + 0.075; }));
    touch(2);
    ASSERT_TRUE(receives({enable, enable, levelsOfRow(2)}));
    ASSERT_TRUE(receives({enable, enable, levelsOfRow(2), enable}));
    EXPECT_GT(times[3] - times[2], 0.120);
}

TEST_F(LiveModeTest, takesTheLampAgainAfterALostLink) {
    bttnLiveModeSwitch.setChecked(true);
    touch(2);
    ASSERT_TRUE(link.receives({enable, levelsOfRow(2)}));
    // The cable goes with levels unanswered and newer ones waiting behind them.
    link.faults.add(*Fault::parse("deaf"));
    setBrightness(2, 0.6);
    ASSERT_TRUE(link.waitFor([this] { return link.commands().back() == levelsOfRow(2); }));
    setBrightness(2, 0.7);
    ASSERT_TRUE(link.disconnect());
    link.faults.clear();
    link.ignoreSoFar();
    EXPECT_EQ(lamp.sign(), QStringLiteral("LIVE PREVIEW, waiting for the controller"));
    setBrightness(2, 0.8);
    ASSERT_TRUE(link.connect());
    setBrightness(2, 1.0);
    ASSERT_TRUE(link.waitFor([this] {
        return link.device.lampLevels() == std::array<std::uint8_t, 2>{254, 254};
    }));
    EXPECT_TRUE(link.device.state().demoActive);
}

TEST_F(LiveModeTest, givesTheLampBackWithAllThatWaits) {
    bttnLiveModeSwitch.setChecked(true);
    touch(2);
    setBrightness(2, 0.5);
    bttnLiveModeSwitch.setChecked(false);
    EXPECT_TRUE(lamp.hasLamp()) << "until the controller has confirmed it";
    ASSERT_TRUE(link.receives({enable, "CmdSetDemoModeLevels 1 254 254", disable}));
    ASSERT_TRUE(link.waitFor([this] { return !lamp.hasLamp(); }));

    // Off and on again before the release could go out: no late release ends the preview.
    link.ignoreSoFar();
    bttnLiveModeSwitch.setChecked(true);
    ASSERT_TRUE(link.receives({enable, levelsOfRow(2)}));
    bttnLiveModeSwitch.setChecked(false);
    bttnLiveModeSwitch.setChecked(true);
    ASSERT_TRUE(link.receives({enable, levelsOfRow(2), enable, levelsOfRow(2)}));
    // The same with no levels to take the release's place in the stream.
    bttnLiveModeSwitch.setChecked(false);
    data.loadDefaults();
    link.ignoreSoFar();
    bttnLiveModeSwitch.setChecked(true);
    const double later = link.log.secondsNow() + 0.08; // past the stream's interval
    ASSERT_TRUE(link.waitFor([&] { return link.log.secondsNow() > later; }));
    EXPECT_EQ(link.commands(), Commands({enable}));
    EXPECT_TRUE(lamp.hasLamp());
}

TEST_F(LiveModeTest, theProgramsEndWaitsForTheLampsRelease) {
    int done = 0;
    const auto count = [&done] { ++done; };
    lamp.releaseForGood(count);
    EXPECT_EQ(done, 1) << "nothing to wait for";
    link.faults.add(*Fault::parse("delay=30"));
    bttnLiveModeSwitch.setChecked(true);
    touch(2);
    ASSERT_TRUE(link.receives({enable, levelsOfRow(2)}));
    setBrightness(2, 0.5); // waits in the stream
    lamp.releaseForGood(count);
    lamp.releaseForGood(count);
    touch(3);
    bttnLiveModeSwitch.setChecked(false);
    EXPECT_EQ(done, 1);
    ASSERT_TRUE(link.waitFor([&] { return done == 2; }));
    EXPECT_EQ(link.commands(), Commands({enable, "CmdSetDemoModeLevels 1 254 254", disable}));
    EXPECT_FALSE(link.device.state().demoActive);
}

TEST_F(LiveModeTest, aLinkLostAtTheEndLeavesTheModeOn) {
    bttnLiveModeSwitch.setChecked(true);
    ASSERT_TRUE(link.receives({enable}));
    link.faults.add(*Fault::parse("unplug"));
    lamp.releaseForGood([] { ADD_FAILURE() << "nobody has released the lamp"; });
    ASSERT_TRUE(link.waitFor([this] { return !link.isConnected; }));
    link.faults.clear();
    ASSERT_TRUE(link.connect());
    EXPECT_TRUE(link.waitFor([this] { return link.device.state().demoActive; }));
}

} // namespace

#include "yprotocoll/YMessageController.h"

#include "yprotocoll/LogCapture.h"
#include "yprotocoll/ScriptedPort.h"
#include "yprotocoll/YAnswers.h"
#include "yprotocoll/YCommands.h"

#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using Story = std::vector<std::string>;

const Story opening{"1", "46"};

/// A controller on scripted ports with quick intervals, and the story of its reports.
class YMessageControllerTest : public testing::Test, public YMessageControllerDelegate {
protected:
    YMessageControllerTest() { restart({.scan = 5ms, .open = 5s, .answer = 5s, .maxTimeouts = 5}); }

    void restart(YMessageController::Intervals intervals) {
        link.reset();
        link = std::make_unique<YMessageController>(ports, pause, intervals);
        link->setDelegate(this);
    }

    void messageControllerDidOpen() override {
        EXPECT_TRUE(link->isConnected());
        story.push_back("open");
    }
    void messageControllerGotError(const YMessageError& error) override {
        if (error.is<YMessageError::PortClosedError>() ||
            error.is<YMessageError::DeviceVersion>()) {
            EXPECT_FALSE(link->isConnected());
            EXPECT_FALSE(link->device());
        }
        story.push_back(error.description());
    }

    /// Waits for the whole story and for anything that should not follow it.
    void expectStory(const Story& expected) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return story.size() >= expected.size(); }));
        QCoreApplication::processEvents();
        EXPECT_EQ(story, expected);
    }
    void connectDevice() {
        ports.plug(device, true);
        link->run();
        expectStory({"open"});
        ASSERT_TRUE(link->isConnected());
        story.clear();
        device.got.clear();
    }
    YMessageController::AnswerCallback note(const std::string& text) {
        return [this, text](const YAnswer& answer) { story.push_back(text + ' ' + answer.name()); };
    }
    static auto silence() {
        return [](const YMessage&) { return std::optional<ScriptedDevice::Bytes>{}; };
    }

    ScriptedDevice device;
    ScriptedDevice second{"ttyUSB1"};
    ScriptedPortManager ports;
    ModalPause pause;
    std::unique_ptr<YMessageController> link;
    Story story;
};

TEST_F(YMessageControllerTest, opensTheOnlyControllerAndLearnsItsLimits) {
    ScriptedDevice other("ttyUSB7", UsbIdentity{0x7A51, 0x0C25});
    ScriptedDevice builtIn("ttyS0", std::nullopt);
    ports.plug(other);
    ports.plug(builtIn);
    ports.plug(device);
    EXPECT_EQ(link->availablePorts(), std::vector{device.info});
    link->run();
    expectStory({"open"});
    EXPECT_EQ(device.got, opening);
    EXPECT_EQ(link->device(), (DeviceInfo{{1, 4}, 17, 5, 2, 20}));
    EXPECT_EQ(other.timesOpened + builtIn.timesOpened, 0);

    const LogCapture log;
    link->open(device.info);
    EXPECT_EQ(log.lines(), Story{"info Aquelon device ttyUSB0 (/dev/ttyUSB0) is already open!"});
    link->open(other.info);
    expectStory({"open", "port ttyUSB7 is no Aquelon device"});
    EXPECT_TRUE(link->isConnected());
    EXPECT_EQ(device.got, opening);
}

TEST_F(YMessageControllerTest, acceptsOrRefusesWhatTheDeviceTells) {
    const struct {
        std::vector<std::uint8_t> version;
        std::uint8_t entrySize;
        std::string report;
    } rows[] = {
        {{0, 9, 1}, 3, "unsupported device version 0.9"},
        {{1, 0, 1}, 3, "unsupported device version 1.0"},
        {{1, 1, 1}, 3, "open"},
        {{2, 0, 1}, 3, "open"},
        {{1, 4, 1}, 4, "port closed: unsupported sequence data format"},
    };
    ports.plug(device);
    for (const auto& row : rows) {
        device.version = row.version;
        device.sequenceInfo[2] = row.entrySize;
        device.timesOpened = 0;
        story.clear();
        restart({.scan = 1ms, .open = 5s, .answer = 5s, .maxTimeouts = 5});
        link->run();
        expectStory({row.report});
        EXPECT_EQ(device.isOpen(), row.report == "open");
        // A refused device is left alone, although the scan would find it again at once.
        int turns = 0;
        QTimer clock;
        QObject::connect(&clock, &QTimer::timeout, [&] { ++turns; });
        clock.start(2ms);
        EXPECT_TRUE(QTest::qWaitFor([&] { return turns >= 5; }));
        EXPECT_EQ(device.timesOpened, 1);
    }
}

TEST_F(YMessageControllerTest, theOpenSequenceHasATimeLimit) {
    device.reply = silence();
    ports.plug(device);
    restart({.scan = 1ms, .open = 10ms, .answer = 5s, .maxTimeouts = 5});
    link->run();
    expectStory({"port closed: timeout while trying to open device"});
    EXPECT_EQ(device.timesOpened, 1);
    EXPECT_FALSE(device.isOpen());
}

TEST_F(YMessageControllerTest, withTwoControllersThePersonChooses) {
    ports.plug(device);
    ports.plug(second);
    link->run();
    link->openWithPath("/dev/ttyUSB9");
    EXPECT_EQ(device.timesOpened + second.timesOpened, 0);
    link->openWithPath(second.info.path);
    expectStory({"open"});
    EXPECT_EQ(second.got, opening);

    // From now on the scan looks for the chosen one only.
    ports.unplug(second);
    expectStory({"open", "port closed: port was removed"});
    ports.plug(second);
    expectStory({"open", "port closed: port was removed", "open"});
    EXPECT_EQ(device.timesOpened, 0);

    link->open(device.info);
    EXPECT_TRUE(QTest::qWaitFor([&] { return device.got == opening && link->isConnected(); }));
    EXPECT_FALSE(second.isOpen());
}

TEST_F(YMessageControllerTest, failureToOpenIsToldOnceAndTriedAgain) {
    device.openFailure = "Permission denied";
    ports.plug(device);
    const LogCapture log;
    link->run();
    EXPECT_TRUE(QTest::qWaitFor([&] { return device.timesOpened >= 4; }));
    expectStory({"port error: Permission denied"});
    EXPECT_EQ(std::ranges::count(log.lines(), "info opening Aquelon device ttyUSB0 (/dev/ttyUSB0)"),
              1);
    device.openFailure = "Device or resource busy";
    EXPECT_TRUE(QTest::qWaitFor([&] { return story.size() == 2; }));
    EXPECT_EQ(story[1], "port error: Device or resource busy");
    link->open(device.info);
    EXPECT_TRUE(QTest::qWaitFor([&] { return story.size() == 3; }));
    device.openFailure.clear();
    EXPECT_TRUE(QTest::qWaitFor([&] { return story.size() == 4; }));
    EXPECT_EQ(story[2], "port error: Device or resource busy");
    EXPECT_EQ(story[3], "open");
}

TEST_F(YMessageControllerTest, sendsOneAfterAnotherAndAnswersInOrder) {
    connectDevice();
    link->send(CmdGetTaskMode(), note("a"));
    link->send(CmdSetDeviceMode(1));
    link->send(CmdGetSequenceData(1, link->device()), [this](const YAnswer& answer) {
        note("c")(answer);
        link->send(CmdDisableDemoMode(), note("e"));
    });
    link->send(CmdGetSequenceDataInfo(), note("d"));
    EXPECT_EQ(device.got, Story{"50"});
    expectStory({"a AnswerTaskMode", "c AnswerSequenceData", "d AnswerSequenceDataInfo",
                 "e AnswerDemoMode"});
    EXPECT_EQ(device.got, (Story{"50", "42 1", "46 1", "46", "48 0"}));
}

TEST_F(YMessageControllerTest, silenceEndsInTheFifthTimeout) {
    connectDevice();
    restart({.scan = 5s, .open = 5s, .answer = 3ms, .maxTimeouts = 5});
    link->run();
    expectStory({"open"});
    story.clear();
    device.got.clear();
    device.reply = silence();
    link->send(CmdGetTaskMode(), note("never"));
    link->send(CmdDisableDemoMode(), note("never"));
    Story expected;
    for (int count = 1; count <= 5; ++count)
        expected.push_back("timeout " + std::to_string(count) + ": no answer for command #50");
    expected.push_back("port closed: too many timeouts while trying to send");
    expectStory(expected);
    EXPECT_EQ(device.got, Story(5, "50"));

    // The count outlives the link: the next silence closes it at once ...
    story.clear();
    link->open(device.info);
    expectStory({"timeout 6: no answer for command #1",
                 "port closed: too many timeouts while trying to send"});
    // ... unless an answer came in between.
    story.clear();
    device.reply = [this](const YMessage& command) { return device.standardReply(command); };
    link->open(device.info);
    expectStory({"open"});
    device.reply = silence();
    link->send(CmdGetTaskMode());
    EXPECT_TRUE(QTest::qWaitFor([&] { return story.size() >= 2; }));
    EXPECT_EQ(story[1], "timeout 1: no answer for command #50");
}

TEST_F(YMessageControllerTest, wrongAndUnrequestedAnswersKeepTheLink) {
    connectDevice();
    restart({.scan = 5s, .open = 5s, .answer = 20ms, .maxTimeouts = 5});
    link->run();
    expectStory({"open"});
    device.got.clear();
    device.emitAnswer(47, {2, 20, 3});
    expectStory({"open", "got an unrequested answer #47"});

    int tries = 0;
    device.reply = [&](const YMessage& command) {
        if (++tries > 1)
            return device.standardReply(command);
        return std::optional<ScriptedDevice::Bytes>{};
    };
    link->send(CmdGetTaskMode(), note("at last"));
    device.emitAnswer(43, {0, 0, 0});
    device.emitBytes({'Y', 51, 0, 0});
    expectStory({"open", "got an unrequested answer #47",
                 "answer not matching: expected #51 got #43", "checksum doesn't match",
                 "timeout 1: no answer for command #50", "at last AnswerTaskMode"});
    EXPECT_EQ(device.got, (Story{"50", "50"}));
}

TEST_F(YMessageControllerTest, anAnswerInTheBufferIsNoTimeout) {
    device.isStalled = true;
    ports.plug(device);
    restart({.scan = 5s, .open = 100ms, .answer = 3ms, .maxTimeouts = 5});
    link->run();
    expectStory({"open"});
    link->send(CmdGetTaskMode(), note("a"));
    expectStory({"open", "a AnswerTaskMode"});
}

TEST_F(YMessageControllerTest, listDeliversAllAnswersOrNone) {
    connectDevice();
    std::vector<Story> deliveries;
    const auto collect = [&](const std::vector<YMessageController::AnswerPtr>& answers) {
        Story names;
        for (const auto& answer : answers)
            names.push_back(answer->description());
        deliveries.push_back(names);
    };
    link->sendCommands({}, collect);
    EXPECT_EQ(deliveries, std::vector<Story>{{}});
    deliveries.clear();

    const std::vector<YCommand> load{CmdGetTaskMode(), CmdGetSequenceData(0, link->device()),
                                     CmdGetSequenceData(1, link->device())};
    link->sendCommands(load, collect);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !deliveries.empty(); }));
    EXPECT_EQ(deliveries, (std::vector<Story>{{"AnswerTaskMode #51 [05 00 fe fe 02]",
                                               "AnswerSequenceData #47 [00 08 00 64]",
                                               "AnswerSequenceData #47 [01 08 00 64]"}}));

    device.reply = [&](const YMessage& command) {
        if (command.data() == std::vector<std::uint8_t>{0})
            device.hangUp();
        return device.standardReply(command);
    };
    link->sendCommands(load, collect);
    EXPECT_TRUE(QTest::qWaitFor([&] { return story.size() >= 2; }));
    EXPECT_EQ(story, (Story{"port closed: port was closed unexpectedly", "open"}));
    EXPECT_EQ(deliveries.size(), 1U);
}

TEST_F(YMessageControllerTest, streamSendsTheNewestLast) {
    connectDevice();
    for (const std::uint8_t level : std::vector<std::uint8_t>{1, 2, 3})
        link->sendStream(CmdSetDemoModeLevels(level, level), 1ms);
    EXPECT_TRUE(QTest::qWaitFor([&] { return device.got.size() == 2; }));
    EXPECT_EQ(device.got, (Story{"48 1 1 1", "48 1 3 3"}));

    // At rest again, so the next one goes out at once, even with the same bytes.
    EXPECT_TRUE(QTest::qWaitFor([&] {
        link->sendStream(CmdSetDemoModeLevels(3, 3), 1ms);
        return device.got.size() >= 4;
    }));
    EXPECT_EQ(Story(device.got.begin() + 2, device.got.end()), Story(2, "48 1 3 3"));
}

TEST_F(YMessageControllerTest, streamWaitsItsIntervalAfterEachAnswer) {
    connectDevice();
    QElapsedTimer clock;
    clock.start();
    link->sendStream(CmdSetDemoModeLevels(1, 1), 30ms);
    link->sendStream(CmdSetDemoModeLevels(2, 2), 30ms);
    EXPECT_TRUE(QTest::qWaitFor([&] { return device.got.size() == 2; }));
    EXPECT_GE(clock.elapsed(), 30);
}

TEST_F(YMessageControllerTest, streamForgetsWhatWaitsButNotItsInterval) {
    connectDevice();
    Story answered;
    const auto stream = [&](std::uint8_t level) {
        link->sendStream(
            CmdSetDemoModeLevels(level, level), 30ms,
            [&answered, level](const YAnswer&) { answered.push_back(std::to_string(level)); });
    };
    QElapsedTimer clock;
    clock.start();
    stream(1);
    stream(2);
    link->dropWaitingStream();
    stream(3);
    stream(4);
    EXPECT_TRUE(QTest::qWaitFor([&] { return answered.size() == 2; }));
    EXPECT_EQ(answered, (Story{"1", "4"}));
    EXPECT_EQ(device.got, (Story{"48 1 1 1", "48 1 4 4"}));
    EXPECT_GE(clock.elapsed(), 30);

    stream(5);
    link->dropWaitingStream();
    // At rest again after the interval, with nothing left of the forgotten command.
    EXPECT_TRUE(QTest::qWaitFor([&] {
        stream(6);
        return answered.size() == 3;
    }));
    EXPECT_EQ(device.got.at(2), "48 1 6 6");
}

TEST_F(YMessageControllerTest, streamGoesOnAfterALostLink) {
    connectDevice();
    device.isStalled = true;
    link->sendStream(CmdSetDemoModeLevels(1, 1), 1ms);
    device.isStalled = false;
    device.hangUp();
    link->sendStream(CmdSetDemoModeLevels(2, 2), 1ms);
    EXPECT_TRUE(QTest::qWaitFor([&] { return link->isConnected(); }));
    device.got.clear();
    link->sendStream(CmdSetDemoModeLevels(3, 3), 1ms);
    EXPECT_EQ(device.got, Story{"48 1 3 3"});

    // And so when nobody streamed while the link was down.
    EXPECT_TRUE(QTest::qWaitFor([&] { return !device.got.empty(); }));
    device.hangUp();
    EXPECT_TRUE(QTest::qWaitFor([&] { return link->isConnected(); }));
    device.got.clear();
    link->sendStream(CmdSetDemoModeLevels(4, 4), 1ms);
    EXPECT_EQ(device.got, Story{"48 1 4 4"});
    for (const std::string& text : story)
        EXPECT_NE(text, "cannot send: port is closed");
}

TEST_F(YMessageControllerTest, withoutPortNothingIsSent) {
    link->send(CmdGetTaskMode(), note("never"));
    link->sendCommands({CmdGetTaskMode(), CmdGetVersion()}, [](const auto&) { FAIL(); });
    link->sendStream(CmdSetDemoModeLevels(1, 1), 1ms);
    EXPECT_TRUE(story.empty()); // never from inside the call
    expectStory(Story(2, "cannot send: port is closed"));
}

TEST_F(YMessageControllerTest, lostLinksAreReportedOnceAndFoundAgain) {
    connectDevice();
    link->send(CmdGetTaskMode(), note("never"));
    device.hangUp();
    EXPECT_FALSE(link->isConnected());
    expectStory({"port closed: port was closed unexpectedly", "open"});
    device.emitError("framing");
    expectStory({"port closed: port was closed unexpectedly", "open", "port error: framing"});
    EXPECT_TRUE(link->isConnected());

    story.clear();
    ports.unplug(device);
    EXPECT_FALSE(link->isConnected());
    expectStory({"port closed: port was removed"});
    ports.plug(device);
    expectStory({"port closed: port was removed", "open"});

    story.clear();
    const LogCapture log;
    link->stop();
    EXPECT_FALSE(device.isOpen());
    EXPECT_EQ(log.lines().back(), "info port was closed");
    expectStory({});
}

TEST_F(YMessageControllerTest, timersWaitForTheModalWindowButBytesDoNot) {
    connectDevice();
    restart({.scan = 1ms, .open = 20ms, .answer = 3ms, .maxTimeouts = 5});
    link->run();
    expectStory({"open"});
    story.clear();

    pause.setActive(true);
    device.isStalled = true;
    link->send(CmdGetTaskMode(), note("a"));
    int turns = 0;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&] { ++turns; });
    clock.start(5ms);
    EXPECT_TRUE(QTest::qWaitFor([&] { return turns >= 3; }));
    EXPECT_EQ(story, Story{});
    device.emitAnswer(51, {5, 0, 0, 0, 0});
    expectStory({"a AnswerTaskMode"});

    // A removal closes at once; the new arrival waits for the window to go.
    ports.unplug(device);
    EXPECT_FALSE(link->isConnected());
    device.timesOpened = 0;
    device.isStalled = false;
    ports.plug(device);
    turns = 0;
    EXPECT_TRUE(QTest::qWaitFor([&] { return turns >= 3; }));
    EXPECT_EQ(device.timesOpened, 0);
    pause.setActive(false);
    EXPECT_EQ(device.timesOpened, 0); // from the event loop, not from inside the call
    expectStory({"a AnswerTaskMode", "port closed: port was removed", "open"});

    story.clear();
    device.reply = silence();
    link->send(CmdGetTaskMode());
    pause.setActive(true);
    turns = 0;
    EXPECT_TRUE(QTest::qWaitFor([&] { return turns >= 3; }));
    EXPECT_EQ(story, Story{});
    pause.setActive(false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !story.empty(); }));
    EXPECT_EQ(story[0], "timeout 1: no answer for command #50");
}

TEST_F(YMessageControllerTest, arrivalIsScannedAtOnceWhileDiscoveryRuns) {
    restart({.scan = 1h, .open = 5s, .answer = 5s, .maxTimeouts = 5});
    ports.plug(device);
    QCoreApplication::processEvents();
    EXPECT_EQ(device.timesOpened, 0);
    ports.unplug(device);
    link->run();
    ports.plug(device);
    expectStory({"open"});
}

TEST_F(YMessageControllerTest, staleHalfFrameDoesNotSwallowTheNextLink) {
    connectDevice();
    device.emitBytes({'Y', 45, 200, 1, 2, 3});
    device.hangUp();
    expectStory({"port closed: port was closed unexpectedly", "open"});
}

TEST_F(YMessageControllerTest, tracesTheConversation) {
    connectDevice();
    device.isStalled = true;
    const LogCapture log;
    link->send(CmdGetSequenceDataInfo());
    device.emitAnswer(47, {2, 20, 3});
    const Story expected{"trace --> CmdGetSequenceDataInfo #46 []",
                         "trace [",
                         "trace      0:  89",
                         "trace      1:  47",
                         "trace      2:   3",
                         "trace      3:   2",
                         "trace      4:  20",
                         "trace      5:   3",
                         "trace      6:  57",
                         "trace ]",
                         "trace <-- AnswerSequenceDataInfo #47 [02 14 03]",
                         "trace     - channelCount: 2",
                         "trace     - maxPoints: 20",
                         "trace     - sizeOfEntry: 3"};
    EXPECT_EQ(log.lines(), expected);
}

} // namespace

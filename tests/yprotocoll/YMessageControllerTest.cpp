#include "yprotocoll/link/YMessageController.h"

#include "simulator/SimulatedSerialPortManager.h"
#include "yprotocoll/YAnswers.h"
#include "yprotocoll/YCommands.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using Story = std::vector<std::string>;

const Story opening{"1", "46"};

/// A message controller on a simulated lamp's controller, and the story of its reports.
class YMessageControllerTest : public testing::Test, public YMessageControllerDelegate {
protected:
    YMessageControllerTest() { restart({.scan = 5ms, .open = 5s, .answer = 5s, .arrival = 1ms}); }

    void restart(YMessageController::Intervals intervals) {
        link.reset(); // it leaves the ports on its way out
        link = std::make_unique<YMessageController>(ports, pause, intervals);
        link->setDelegate(this);
    }
    SimulatedSerialDevice& plug(const std::string& name = "ttyUSB0") {
        return ports.plug(name, device, faults);
    }
    void addFault(const char* text) { faults.add(Fault::parse(text).value()); }

    void messageControllerDidOpen() override {
        EXPECT_TRUE(link->isConnected());
        story.push_back("open");
    }
    void messageControllerGotError(const YMessageError& error) override {
        if (error.is<YMessageError::PortClosedError>()) {
            EXPECT_FALSE(link->isConnected());
            EXPECT_FALSE(link->device());
        }
        story.push_back(error.description());
    }
    YMessageController::AnswerCallback note(const std::string& text) {
        return [this, text](const YAnswer& answer) { story.push_back(text + ' ' + answer.name()); };
    }

    /// Waits for what is told next, and for anything that should not follow it.
    void expectStory(const Story& expected) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return story.size() >= expected.size(); }));
        QCoreApplication::processEvents();
        EXPECT_EQ(std::exchange(story, {}), expected);
    }
    void connectDevice() {
        plug();
        link->run();
        expectStory({"open"});
        EXPECT_EQ(takeCommands(), opening);
    }
    /// What the device got since the last call: "42 1".
    Story takeCommands() {
        Story commands;
        for (; seen < log.events().size(); ++seen) {
            const WireEvent& event = log.events()[seen];
            if (event.kind != WireEvent::Kind::Received)
                continue;
            std::string command = std::to_string(event.bytes[1]);
            for (std::size_t at = 3; at + 1 < event.bytes.size(); ++at)
                command += ' ' + std::to_string(event.bytes[at]);
            commands.push_back(command);
        }
        return commands;
    }
    WireLog log;
    FaultPlan faults;
    SimulatedController device{{.deviceType = 5}};
    SimulatedSerialPortManager ports{log};
    ModalPause pause;
    std::unique_ptr<YMessageController> link;
    Story story;
    std::size_t seen = 0;
};

TEST_F(YMessageControllerTest, opensWhatIsPluggedInAndLearnsItsLimits) {
    restart({.scan = 1h});
    const auto& foreign = ports.plugForeign("ttyUSB7", UsbIdentity{0x7A51, 0x0C25});
    link->run();
    const auto& port = plug();
    expectStory({"open"});
    EXPECT_EQ(takeCommands(), opening);
    EXPECT_EQ(link->device(), (DeviceInfo{{1, 4}, 17, 5, 2, 20}));

    link->open(port.info);
    link->open(foreign.info);
    expectStory({"port ttyUSB7 is no Aquelon device"});
    EXPECT_TRUE(link->isConnected());
    link->stop();
    expectStory({});
    EXPECT_FALSE(port.openPort);
    EXPECT_EQ(port.openCount, 1);
}

// Timers that are due at once are served in the order of their times, however late.
TEST_F(YMessageControllerTest, anAnswerHasTwoTenthsOfASecond) {
    restart({});
    connectDevice();
    addFault("silence");
    bool isExact = false;
    for (int attempt = 0; attempt < 3 && !isExact; ++attempt) {
        takeCommands();
        link->close();
        link->open(link->availablePorts().front());
        std::size_t early = 0;
        std::optional<std::size_t> late;
        QTimer::singleShot(195ms, Qt::PreciseTimer, [&] { early = takeCommands().size(); });
        QTimer::singleShot(210ms, Qt::PreciseTimer, [&] { late = takeCommands().size(); });
        EXPECT_TRUE(QTest::qWaitFor([&] { return late.has_value(); }));
        isExact = early == 1 && late == 1;
    }
    EXPECT_TRUE(isExact);
}

TEST_F(YMessageControllerTest, twoThatArriveTogetherAreLeftToThePerson) {
    restart({.scan = 1h, .arrival = 100ms});
    link->run();
    plug();
    QCoreApplication::processEvents();
    SimulatedController other{{}};
    ports.plug("ttyUSB1", other, faults);
    QTest::qWait(150);
    EXPECT_EQ(story, Story{});
    ports.unplug("ttyUSB1");
    expectStory({"open"});
}

TEST_F(YMessageControllerTest, goesByNumbersWhereChannelsAreNotNamed) {
    restart({.scan = 5s, .open = 5s, .answer = 20ms, .arrival = 1ms});
    connectDevice();
    addFault("channel=0");
    const std::vector<SequenceEntry> entries(2);
    std::vector<YCommand> commands;
    for (const int channel : {0, 1, 2})
        commands.push_back(CmdSetSequenceData(channel, entries, link->device()));
    for (const int channel : {0, 1, 2})
        commands.push_back(CmdGetSequenceData(channel, link->device()));
    link->sendCommands(commands, [this](const auto& answers) {
        story.push_back(std::to_string(answers.size()) + " answers");
    });
    expectStory(
        {"got an unrequested answer #45", "timeout 1: no answer for command #44", "6 answers"});
    EXPECT_EQ(takeCommands().size(), 7U) << "one of them twice";
}

TEST_F(YMessageControllerTest, opensFromVersion1Point1WithEntriesOfThreeBytes) {
    const struct {
        ControllerConfig config;
        const char* told;
    } cases[] = {
        {{.versionMajor = 0, .versionMinor = 9}, "unsupported device version 0.9"},
        {{.versionMinor = 0}, "unsupported device version 1.0"},
        {{.versionMinor = 1}, "open"},
        {{.versionMajor = 2, .versionMinor = 0}, "open"},
        {{.entrySize = 4}, "port closed: unsupported sequence data format"},
    };
    for (const auto& test : cases) {
        restart({.scan = 5ms, .arrival = 1ms});
        device = SimulatedController(test.config);
        plug();
        link->run();
        expectStory({test.told});
        ports.unplug("ttyUSB0");
    }
}

TEST_F(YMessageControllerTest, failureToOpenIsToldOnceAndTriedAgain) {
    auto& port = plug();
    port.opening = SimulatedSerialDevice::Opening::Fails;
    link->run();
    EXPECT_TRUE(QTest::qWaitFor([&] { return ports.listings() >= 5; }));
    expectStory({"port error: Permission denied"});
    port.openError = "Device or resource busy";
    expectStory({"port error: Device or resource busy"});
    link->open(port.info); // who asks by hand is told again
    expectStory({"port error: Device or resource busy"});
    port.opening = SimulatedSerialDevice::Opening::Succeeds;
    expectStory({"open"});
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
    EXPECT_EQ(takeCommands(), Story{"50"});
    expectStory({"a AnswerTaskMode", "c AnswerSequenceData", "d AnswerSequenceDataInfo",
                 "e AnswerDemoMode"});
    EXPECT_EQ(takeCommands(), (Story{"42 1", "46 1", "46", "48 0"}));
}

TEST_F(YMessageControllerTest, anAnswerInTheBufferIsNoTimeout) {
    restart({.scan = 5s, .open = 5s, .answer = 6ms});
    connectDevice();
    addFault("delay=2");
    link->send(CmdGetTaskMode(), note("a"));
    // Nobody turns the event loop until both the answer and the time-out are due.
    QElapsedTimer clock;
    for (clock.start(); clock.elapsed() < 10;) {
    }
    expectStory({"a AnswerTaskMode"});
}

TEST_F(YMessageControllerTest, lostLinksAreReportedOnceAndFoundAgain) {
    connectDevice();
    auto& port = *ports.device("ttyUSB0");
    addFault("silence@1");
    link->sendStream(CmdSetDemoModeLevels(1, 1), 1ms, note("never"));
    port.line->send({'Y', 45, 200, 1, 2, 3}, "half a frame"); // swallows nothing of the next link
    QCoreApplication::processEvents();
    ports.hangUp("ttyUSB0");
    expectStory({"port closed: port was closed unexpectedly", "open"});
    takeCommands();
    link->sendStream(CmdSetDemoModeLevels(2, 2), 1ms);
    EXPECT_EQ(takeCommands(), Story{"48 1 2 2"});

    port.openPort->fail("framing");
    expectStory({"port error: framing"});
    EXPECT_TRUE(link->isConnected());
}

} // namespace

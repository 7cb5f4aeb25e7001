#include "simulator/PtyController.h"

#include "simulator/EventLoop.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>

namespace {

using namespace std::chrono_literals;
using Bytes = std::vector<std::uint8_t>;
using Steady = std::chrono::steady_clock;

/// The program's side of the tty.
class Terminal {
public:
    explicit Terminal(const std::string& path)
        : m_fd(open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {}
    ~Terminal() { ::close(m_fd); }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    void send(const YMessage& message) {
        const Bytes frame = message.frame();
        ASSERT_EQ(::write(m_fd, frame.data(), frame.size()), static_cast<ssize_t>(frame.size()));
    }

    /// What has arrived until now, all of it.
    const Bytes& received() {
        std::array<std::uint8_t, 4096> buffer{};
        for (ssize_t count = 0; (count = ::read(m_fd, buffer.data(), buffer.size())) > 0;)
            m_received.insert(m_received.end(), buffer.begin(), buffer.begin() + count);
        return m_received;
    }

    bool isHungUp() const {
        pollfd poller{m_fd, POLLIN, 0};
        return ::poll(&poller, 1, 0) > 0 && (poller.revents & POLLHUP) != 0;
    }

private:
    int m_fd;
    Bytes m_received;
};

struct Fixture {
    WireLog log;
    SimulatedController controller;
    FaultPlan faults;
    PtyController pty;

    explicit Fixture(bool paced) : pty(&controller, faults, log, "ttyUSB0", paced) {}
};

const YMessage getVersion("CmdGetVersion", 1, {});
const Bytes versionFrame = YMessage("AnswerVersion", 2, {1, 4, 17, 1}).frame();

TEST(PtyController, answersAndKeepsALog) {
    Fixture fixture(false);
    {
        Terminal terminal(fixture.pty.path());
        terminal.send(getVersion);
        ASSERT_TRUE(runUntil([&] { return terminal.received() == versionFrame; }));
        EXPECT_TRUE(fixture.pty.isInUse());
    }
    ASSERT_TRUE(runUntil([&] { return !fixture.pty.isInUse(); }));
    std::vector<std::string> texts;
    for (const WireEvent& event : fixture.log.events())
        texts.push_back(event.text);
    std::ranges::sort(texts); // the opening is noticed by another descriptor than the bytes
    EXPECT_EQ(texts,
              (std::vector<std::string>{"AnswerVersion", "CmdGetVersion", "closed", "opened"}));
}

TEST(PtyController, pacesBothDirections) {
    Fixture fixture(true);
    Terminal terminal(fixture.pty.path());
    const YMessage command("CmdSetSequenceData", 44, Bytes(61, 0)); // answered by as much
    const std::size_t lineBytes = 2 * command.frame().size();
    const auto start = Steady::now();
    terminal.send(command);
    ASSERT_TRUE(runUntil([&] { return terminal.received().size() == command.frame().size(); }));
    const auto needed = Steady::now() - start;
    const auto lineTime = ControllerLine::byteTime * static_cast<int>(lineBytes);
    EXPECT_GE(needed, lineTime);
    EXPECT_LE(needed, lineTime + 50ms); // a loaded machine may wake us late
}

TEST(PtyController, unplugFaultAndHangUpReachBothSides) {
    Fixture fixture(false);
    fixture.faults.add(Fault::parse("unplug=70#1@2").value());
    std::chrono::milliseconds again{0};
    QObject::connect(
        &fixture.pty, &PtyController::unplugRequested, &fixture.pty,
        [&](std::chrono::milliseconds value) {
            again = value;
            fixture.pty.hangUp();
        },
        Qt::QueuedConnection);
    Terminal terminal(fixture.pty.path());
    terminal.send(getVersion);
    ASSERT_TRUE(runUntil([&] { return terminal.received() == versionFrame; }));
    EXPECT_FALSE(terminal.isHungUp());
    terminal.send(getVersion);
    ASSERT_TRUE(runUntil([&] { return terminal.isHungUp(); }));
    EXPECT_EQ(again, 70ms);
    EXPECT_EQ(terminal.received(), versionFrame);
}

TEST(PtyController, delaysDribblesAndSurvivesAFlood) {
    Fixture fixture(false);
    Terminal terminal(fixture.pty.path());
    fixture.faults.add(Fault::parse("delay=60@1").value());
    fixture.faults.add(Fault::parse("dribble=3@2").value());
    fixture.faults.add(Fault::parse("flood=5000@3").value());
    std::size_t expected = 0;
    for (const auto& [extra, atLeast] :
         {std::pair{0, 60ms}, std::pair{0, 21ms}, std::pair{35000, 0ms}}) {
        expected += versionFrame.size() + static_cast<std::size_t>(extra);
        const auto start = Steady::now();
        terminal.send(getVersion);
        ASSERT_TRUE(runUntil([&] { return terminal.received().size() == expected; }));
        EXPECT_GE(Steady::now() - start, atLeast);
    }
}

TEST(PtyController, resetIsDeafForAWhile) {
    Fixture fixture(false);
    Terminal terminal(fixture.pty.path());
    fixture.faults.add(Fault::parse("reset=100@1").value());
    const auto start = Steady::now();
    terminal.send(getVersion);
    ASSERT_TRUE(runUntil([&] { return terminal.received().size() == 4; }));
    ASSERT_TRUE(runUntil([&] {
        terminal.send(getVersion); // unheard, most of them
        return terminal.received().size() >= 12;
    }));
    EXPECT_GE(Steady::now() - start, 100ms);
}

} // namespace

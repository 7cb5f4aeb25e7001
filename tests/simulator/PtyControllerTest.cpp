#include "simulator/PtyController.h"

#include "simulator/EventLoop.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>

namespace {

using namespace std::chrono_literals;
using Steady = std::chrono::steady_clock;

/// A controller on a pty, and the program's side of that.
class PtyControllerTest : public testing::Test {
protected:
    ~PtyControllerTest() override { ::close(fd); }

    /// How long it takes until so many bytes have come back.
    Steady::duration exchange(const YMessage& message, std::size_t answerSize) {
        if (fd < 0)
            fd = open(pty.path().c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        const auto start = Steady::now();
        const auto frame = message.frame();
        EXPECT_EQ(::write(fd, frame.data(), frame.size()), std::ssize(frame));
        std::size_t received = 0;
        EXPECT_TRUE(runUntil([&] {
            std::array<std::uint8_t, 4096> buffer{};
            for (ssize_t count = 0; (count = ::read(fd, buffer.data(), buffer.size())) > 0;)
                received += static_cast<std::size_t>(count);
            return received >= answerSize;
        }));
        EXPECT_EQ(received, answerSize);
        return Steady::now() - start;
    }

    WireLog log;
    SimulatedController controller;
    FaultPlan faults;
    PtyController pty{&controller, faults, log, "ttyUSB0", true};
    int fd = -1;
};

TEST_F(PtyControllerTest, pacesBothDirections) {
    const YMessage command("CmdSetSequenceData", 44, std::vector<std::uint8_t>(61, 0));
    const auto lineTime = ControllerLine::byteTime * (65 + 65); // answered by as much
    const auto needed = exchange(command, 65);
    EXPECT_GE(needed, lineTime);
    EXPECT_LE(needed, lineTime + 50ms); // a loaded machine may wake us late
}

TEST_F(PtyControllerTest, delaysDribblesAndSurvivesAFlood) {
    const YMessage getVersion("CmdGetVersion", 1, {});
    for (const char* fault : {"delay=60@1", "dribble=3@2", "flood=2000@3"})
        faults.add(Fault::parse(fault).value());
    EXPECT_GE(exchange(getVersion, 8), 60ms);
    EXPECT_GE(exchange(getVersion, 8), 21ms);
    exchange(getVersion, 8 + 7 * 2000); // more than the tty takes at once
}

} // namespace

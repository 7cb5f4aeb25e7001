#include "simulator/PtyController.h"

#include "simulator/EventLoop.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>

namespace {

using namespace std::chrono_literals;

TEST(PtyController, pacesBothDirections) {
    WireLog log;
    SimulatedController controller;
    FaultPlan faults;
    const PtyController pty(&controller, faults, log, "ttyUSB0", true);
    const int fd = ::open(pty.path().c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    const YMessage command("CmdSetSequenceData", 44, std::vector<std::uint8_t>(61, 0));
    const auto frame = command.frame(); // answered by as much
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(::write(fd, frame.data(), frame.size()), std::ssize(frame));
    std::size_t received = 0;
    EXPECT_TRUE(runUntil([&] {
        std::array<std::uint8_t, 100> buffer{};
        if (const ssize_t count = ::read(fd, buffer.data(), buffer.size()); count > 0)
            received += static_cast<std::size_t>(count);
        return received >= frame.size();
    }));
    const auto needed = std::chrono::steady_clock::now() - start;
    ::close(fd);
    const std::chrono::duration<double> lineTime(20.0 * double(frame.size()) / 115200.0);
    EXPECT_GE(needed, lineTime);
    EXPECT_LE(needed, lineTime + 50ms); // a loaded machine may wake us late
}

} // namespace

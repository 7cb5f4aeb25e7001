#include "simulator/EventLoop.h"
#include "simulator/FaultPlan.h"
#include "simulator/SimulatedController.h"
#include "simulator/SimulatedSerialPortManager.h"
#include "simulator/WireLog.h"
#include "yprotocoll/ModalPause.h"
#include "yprotocoll/YCommands.h"
#include "yprotocoll/YMessageController.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using namespace std::chrono_literals;

/// Tells a lost link as the program does: in a modal window.
class Reopening : public testing::Test, public YMessageControllerDelegate {
protected:
    void messageControllerDidOpen() override { isOpen = true; }
    void messageControllerGotError(const YMessageError& error) override {
        if (!error.is<YMessageError::PortClosedError>())
            return;
        isOpen = false;
        ++told;
        pause.setActive(true);
    }

    WireLog log;
    FaultPlan faults;
    SimulatedController device;
    SimulatedSerialPortManager ports{log};
    ModalPause pause;
    YMessageController link{
        ports, pause, {.scan = 30ms, .open = 5s, .answer = 10ms, .maxTimeouts = 1}};
    bool isOpen = false;
    int told = 0;
};

// A link that opened before the person was told of the loss of the last one would stand behind the
// alert with its answers overdue, and be lost once more when the alert is closed.
TEST_F(Reopening, waitsUntilTheLossIsTold) {
    auto& port = ports.plug("ttyUSB0", device, faults);
    link.setDelegate(this);
    link.run();
    ASSERT_TRUE(runUntil([&] { return isOpen; }));
    faults.add(*Fault::parse("silence"));
    link.send(CmdGetTime());
    std::this_thread::sleep_for(80ms); // the time-out and the next scan fall into one turn
    ASSERT_TRUE(runUntil([&] { return told > 0; }));

    const int listings = ports.listings();
    EXPECT_FALSE(runUntil([&] { return ports.listings() > listings; }, 100ms));
    EXPECT_EQ(port.openCount, 1);
    faults.clear();
    pause.setActive(false);
    EXPECT_TRUE(runUntil([&] { return isOpen; }));
    EXPECT_EQ(told, 1);
}

} // namespace

#include "faults/FaultProgram.h"

#include <gtest/gtest.h>

#include <thread>

// A link that opened before the person was told of the loss of the last one would stand behind the
// alert with its answers overdue, and be lost once more when the alert is closed.
TEST(Reopening, waitsUntilTheLossIsTold) {
    FaultProgram program;
    program.start();
    program.connect();
    // Half a scan after the plugging, so that the last time-out is due a little before a scan ...
    EXPECT_FALSE(runUntil([] { return false; }, FaultProgram::intervals.scan / 2));
    program.fault("silence");
    program.controller.send(CmdGetTime());
    ASSERT_TRUE(runUntil([&] { return program.received("CmdGetTime") == 5; }));
    // ... and both fall into one turn.
    std::this_thread::sleep_for(FaultProgram::intervals.scan + FaultProgram::intervals.answer);
    ASSERT_TRUE(runUntil([&] { return program.prompts.alerts.size() == 1; }));

    const auto& port = *program.ports.device("ttyUSB0");
    EXPECT_FALSE(runUntil([&] { return port.openCount > 1; }, 2 * FaultProgram::intervals.scan));
    program.faults.clear();
    EXPECT_TRUE(RecordingDialogs::press(QMessageBox::Ok));
    EXPECT_TRUE(runUntil([&] { return program.isConnected(); }));
    EXPECT_EQ(program.prompts.alerts.size(), 1);
}

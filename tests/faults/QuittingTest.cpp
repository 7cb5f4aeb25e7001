#include "faults/FaultProgram.h"

#include <gtest/gtest.h>

// A send that is on its way ends first, and wrong storing is told to whoever is there to read it.
TEST(Quitting, waitsUntilWrongStoringWasRead) {
    using Ask = AppDelegate::Ask;
    for (const Ask ask : {Ask::AboutChanges, Ask::Nothing}) {
        FaultProgram program;
        program.start();
        program.connect();
        program.fault("other-levels=9#50");
        bool isTerminated = false;
        QObject::connect(&program.delegate, &AppDelegate::terminated,
                         [&isTerminated] { isTerminated = true; });
        program.ui().bttnSend->click();
        ASSERT_TRUE(RecordingDialogs::press(QMessageBox::Yes));
        program.delegate.applicationShouldTerminate(ask);
        if (ask == Ask::AboutChanges) {
            ASSERT_TRUE(runUntil([] { return RecordingDialogs::shown<QMessageBox>() != nullptr; }));
            EXPECT_TRUE(program.prompts.alerts.first().startsWith(u"The device stored something"));
            EXPECT_FALSE(runUntil([&] { return isTerminated; }, std::chrono::milliseconds(100)));
            EXPECT_TRUE(RecordingDialogs::press(QMessageBox::Ok));
        }
        EXPECT_TRUE(runUntil([&] { return isTerminated; }));
        EXPECT_EQ(program.prompts.alerts.size(), ask == Ask::AboutChanges ? 1 : 0);
    }
}

// Nobody is there to ask again, or to close the alert about the link.
TEST(Quitting, endsUnattendedWhenTheLinkBreaks) {
    using Ask = AppDelegate::Ask;
    for (const std::vector<Ask>& asks :
         {std::vector{Ask::AboutChanges}, {Ask::Nothing}, {Ask::AboutChanges, Ask::Nothing}}) {
        FaultProgram program;
        program.start();
        program.connect();
        program.fault("silence#44@2..");
        bool isTerminated = false;
        QObject::connect(&program.delegate, &AppDelegate::terminated,
                         [&isTerminated] { isTerminated = true; });
        program.ui().bttnSend->click();
        ASSERT_TRUE(RecordingDialogs::press(QMessageBox::Yes));
        for (const Ask ask : asks)
            program.delegate.applicationShouldTerminate(ask);
        EXPECT_TRUE(runUntil([&] { return !program.isConnected(); }));
        EXPECT_EQ(runUntil([&] { return isTerminated; }, std::chrono::milliseconds(100)),
                  asks.back() == Ask::Nothing);
    }
}

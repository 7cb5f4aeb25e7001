#include "lamp/LampContents.h"

#include "data/AQDataSource.h"
#include "data/DeviceProgramImage.h"

#include <gtest/gtest.h>

namespace {

using State = LampContents::State;
using DeviceProgramImage::imageOf;

class LampContentsTest : public testing::Test {
protected:
    LampContentsTest() { open("ttyUSB0"); }
    void open(const std::string& path, const std::vector<std::string>& others = {}) {
        auto present = others;
        present.push_back(path);
        lamp.linkOpened(path, present);
    }
    DeviceImage image() const { return imageOf(data.contents(), 4); }

    NotificationCenter notifications;
    AQDataSource data{notifications};
    LampContents lamp{data};
};

TEST_F(LampContentsTest, isForgottenWithThePort) {
    lamp.noteStored(image());
    lamp.linkLost();
    EXPECT_EQ(lamp.state(), State::unknown) << "while nobody can tell";
    lamp.portsPresent({"ttyUSB0", "ttyUSB1"});
    open("ttyUSB0");
    EXPECT_EQ(lamp.state(), State::thisProgram) << "it stayed on the bus";
    lamp.linkLost();
    lamp.portsPresent({"ttyUSB1"});
    open("ttyUSB0");
    EXPECT_EQ(lamp.state(), State::unknown);
    lamp.noteStored(image());
    lamp.linkLost();
    open("ttyUSB1", {"ttyUSB0"});
    EXPECT_EQ(lamp.state(), State::unknown) << "another one";
}

TEST_F(LampContentsTest, remembersABrokenSendUntilTheControllerIsKnown) {
    lamp.noteBrokenSend();
    lamp.linkLost();
    lamp.portRemoved();
    EXPECT_EQ(lamp.text(), QStringLiteral("the lamp may hold a part of this program"));
    open("ttyUSB1", {"ttyUSB0"});
    lamp.noteStored(image());
    EXPECT_EQ(lamp.state(), State::thisProgram) << "of the other controller";
    lamp.linkLost();
    EXPECT_EQ(lamp.state(), State::partOfThisProgram);
    // Back under another name.
    open("ttyUSB2", {"ttyUSB1"});
    EXPECT_EQ(lamp.text(), QStringLiteral("the lamp may hold a part of this program: Send again"));
    lamp.noteUnreadable();
    EXPECT_EQ(lamp.state(), State::partOfThisProgram);
    lamp.noteRead({image(), data.contents()});
    EXPECT_EQ(lamp.state(), State::thisProgram);
}

} // namespace

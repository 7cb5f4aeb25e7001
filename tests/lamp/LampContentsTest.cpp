#include "lamp/LampContents.h"

#include "data/AQDataSource.h"
#include "data/DeviceProgramImage.h"

#include <gtest/gtest.h>

namespace {

using State = LampContents::State;
using DeviceProgramImage::imageOf;

class LampContentsTest : public testing::Test {
protected:
    LampContentsTest() { lamp.linkOpened("ttyUSB0"); }
    DeviceImage image() const { return imageOf(data.contents(), 4); }

    NotificationCenter notifications;
    AQDataSource data{notifications};
    LampContents lamp{data};
};

TEST_F(LampContentsTest, isForgottenWithThePort) {
    lamp.noteStored(image());
    lamp.linkLost();
    EXPECT_EQ(lamp.state(), State::unknown) << "while nobody can tell";
    lamp.portLeft("ttyUSB1");
    lamp.linkOpened("ttyUSB0");
    EXPECT_EQ(lamp.state(), State::thisProgram) << "it stayed on the bus";
    lamp.linkLost();
    lamp.linkOpened("ttyUSB1");
    EXPECT_EQ(lamp.state(), State::unknown) << "another one";
    lamp.portLeft("ttyUSB0");
    lamp.linkOpened("ttyUSB0");
    EXPECT_EQ(lamp.state(), State::unknown);
    EXPECT_EQ(lamp.explanation(), QStringLiteral("not read yet"));
    lamp.noteUnreadable();
    EXPECT_EQ(lamp.explanation(), QStringLiteral("read, but not understood"));
}

TEST_F(LampContentsTest, remembersEachBrokenSendUntilThatControllerIsKnown) {
    lamp.noteBrokenSend(data.contents());
    lamp.linkLost();
    lamp.portLeft("ttyUSB0");
    lamp.linkOpened("ttyUSB1");
    EXPECT_EQ(lamp.state(), State::unknown) << "nothing was sent to this one";
    lamp.noteBrokenSend(data.contents());
    lamp.noteStored(image());
    EXPECT_EQ(lamp.state(), State::thisProgram);
    lamp.linkLost();
    EXPECT_EQ(lamp.text(), QStringLiteral("the lamp may hold a part of this program"));
    lamp.linkOpened("ttyUSB0");
    EXPECT_EQ(lamp.text(), QStringLiteral("the lamp may hold a part of this program: Send again"));
    EXPECT_TRUE(lamp.explanation().startsWith(u"A send to ttyUSB0 broke off.\n"));
    data.sequence().replacePoints({});
    data.noteStep();
    EXPECT_TRUE(lamp.explanation().startsWith(u"A send to ttyUSB0 broke off; the program"));
    lamp.noteUnreadable();
    EXPECT_EQ(lamp.state(), State::partOfThisProgram);
    lamp.noteRead({image(), data.contents()});
    lamp.linkLost();
    EXPECT_EQ(lamp.state(), State::unknown);
}

} // namespace

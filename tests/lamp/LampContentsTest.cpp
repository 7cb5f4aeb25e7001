#include "lamp/LampContents.h"

#include "data/AQDataSource.h"
#include "data/DeviceProgramImage.h"

#include <gtest/gtest.h>

namespace {

using State = LampContents::State;
using DeviceProgramImage::imageOf;

class LampContentsTest : public testing::Test {
protected:
    LampContentsTest() {
        open("ttyUSB0");
        QObject::connect(&lamp, &LampContents::changed, &lamp, [this] { ++changes; });
    }
    void open(const std::string& path, const std::vector<std::string>& others = {}) {
        auto present = others;
        present.push_back(path);
        lamp.linkOpened(path, present);
    }
    DeviceImage image() const { return imageOf(data.contents(), 4); }

    NotificationCenter notifications;
    AQDataSource data{notifications};
    LampContents lamp{data};
    int changes = 0;
};

TEST_F(LampContentsTest, followsEditAndUndo) {
    EXPECT_EQ(lamp.state(), State::unknown);
    EXPECT_EQ(lamp.changeBySending(), QStringLiteral("What the lamp holds has not been read yet."));
    lamp.noteStored(image());
    EXPECT_EQ(lamp.state(), State::thisProgram);
    data.sequence().updateWithRow(2, AQSequence::Brightness{0.3}, nullptr);
    EXPECT_EQ(lamp.state(), State::anotherProgram);
    EXPECT_EQ(lamp.changeBySending(), QStringLiteral("1 point changes"));
    data.history().undo();
    EXPECT_EQ(lamp.state(), State::thisProgram);
    EXPECT_EQ(changes, 3);
    lamp.noteMode(false);
    EXPECT_EQ(lamp.state(), State::analogInput);
    lamp.noteMode(true);
    EXPECT_EQ(lamp.state(), State::thisProgram);
    lamp.noteUnreadable();
    EXPECT_EQ(lamp.state(), State::unknown);
}

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

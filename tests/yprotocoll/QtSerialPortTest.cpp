#include "yprotocoll/link/QtSerialPort.h"

#include "simulator/PtyPair.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

using Bytes = std::vector<std::uint8_t>;
using Story = std::vector<std::string>;

/// The port on the slave of a pseudo terminal; the test plays the device on the master.
class QtSerialPortTest : public testing::Test, public SerialPortDelegate {
protected:
    QtSerialPortTest() { port.setDelegate(this); }

    void serialPortWasOpened(SerialPort&) override { story.push_back("opened"); }
    void serialPortWasClosed(SerialPort&) override { story.push_back("closed"); }
    void serialPortWasRemovedFromSystem(SerialPort&) override { story.push_back("removed"); }
    void serialPortDidEncounterError(SerialPort&, const YMessageError::PortError& error) override {
        story.push_back(error.text + error.help);
    }
    void serialPortDidReceive(SerialPort&, std::span<const std::uint8_t> bytes) override {
        received.insert(received.end(), bytes.begin(), bytes.end());
    }

    void write(const Bytes& bytes) const {
        EXPECT_EQ(::write(pty.master(), bytes.data(), bytes.size()), std::ssize(bytes));
    }
    void expectReceived(const Bytes& bytes) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return received.size() >= bytes.size(); }));
        EXPECT_EQ(std::exchange(received, {}), bytes);
    }
    void expectStory(const Story& expected) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return story.size() >= expected.size(); }));
        EXPECT_EQ(story, expected);
    }

    PtyPair pty;
    QtSerialPort port{SerialPortInfo{"tty", pty.slavePath(), {}}};
    Story story;
    Bytes received;
};

TEST_F(QtSerialPortTest, carriesBytesBothWays) {
    write({1, 2, 3}); // of an earlier conversation
    port.open();
    const Bytes command{'Y', 1, 0, 1};
    port.send(command);
    Bytes sent(command.size());
    // Without a turn of the event loop.
    EXPECT_EQ(::read(pty.master(), sent.data(), sent.size()), 4);
    EXPECT_EQ(sent, command);
    write({1, 2, 0, 0x11, 0x13, 255});
    expectReceived({1, 2, 0, 0x11, 0x13, 255});
    write({7});
    port.deliverPending();
    EXPECT_EQ(received, Bytes{7});
    EXPECT_EQ(story, Story{"opened"});
}

TEST_F(QtSerialPortTest, hangUpWithTheDeviceFileLeftIsAClosing) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("ttyUSB0"));
    ASSERT_TRUE(QFile::link(QString::fromStdString(pty.slavePath()), path));
    QtSerialPort linked(SerialPortInfo{"ttyUSB0", path.toStdString(), {}});
    linked.setDelegate(this);
    linked.open();
    ASSERT_TRUE(QFile::remove(path) && QFile::link(QStringLiteral("/dev/null"), path));
    pty.close();
    expectStory({"opened", "closed"});
}

TEST_F(QtSerialPortTest, saysWhyItCannotBeOpened) {
    QtSerialPort missing(SerialPortInfo{"ttyUSB9", "/dev/ttyUSB9-absent", {}});
    missing.setDelegate(this);
    missing.open();
    EXPECT_EQ(story, Story{"No such file or directory"});

    port.open();
    QtSerialPort again(port.info());
    again.setDelegate(this);
    again.open();
    ASSERT_EQ(story.size(), 3U);
    EXPECT_NE(story[2].find(pty.slavePath() + " is in use by another program"), std::string::npos)
        << story[2];
}

} // namespace

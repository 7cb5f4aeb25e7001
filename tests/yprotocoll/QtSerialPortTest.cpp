#include "yprotocoll/QtSerialPort.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <array>
#include <ctime>
#include <fcntl.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace {

using Bytes = std::vector<std::uint8_t>;
using Story = std::vector<std::string>;

/// A pseudo terminal; the program has the slave, the test plays the device on the master.
class Pty {
public:
    Pty() {
        std::array<char, 64> name{};
        termios raw{};
        cfmakeraw(&raw);
        EXPECT_EQ(openpty(&m_master, &m_slave, name.data(), &raw, nullptr), 0);
        fcntl(m_master, F_SETFL, O_NONBLOCK);
        path = name.data();
    }
    ~Pty() { hangUp(); }
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;

    void write(const Bytes& bytes) const {
        EXPECT_EQ(::write(m_master, bytes.data(), bytes.size()), std::ssize(bytes));
    }
    Bytes read() const {
        Bytes bytes(4096);
        const auto count = ::read(m_master, bytes.data(), bytes.size());
        bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return bytes;
    }
    void hangUp() {
        for (int* const end : {&m_slave, &m_master})
            if (*end >= 0)
                ::close(std::exchange(*end, -1));
    }

    std::string path;

private:
    int m_master = -1;
    int m_slave = -1; ///< kept open, else the master fails while the program has closed
};

class QtSerialPortTest : public testing::Test, public SerialPortDelegate {
protected:
    QtSerialPortTest() { port.setDelegate(this); }

    void serialPortWasOpened(SerialPort&) override { story.push_back("opened"); }
    void serialPortWasClosed(SerialPort&) override { story.push_back("closed"); }
    void serialPortWasRemovedFromSystem(SerialPort&) override { story.push_back("removed"); }
    void serialPortDidEncounterError(SerialPort&, const std::string& error) override {
        story.push_back(error);
    }
    void serialPortDidReceive(SerialPort&, std::span<const std::uint8_t> bytes) override {
        received.insert(received.end(), bytes.begin(), bytes.end());
    }

    Pty pty;
    QtSerialPort port{SerialPortInfo{"tty", pty.path, {}}};
    Story story;
    Bytes received;
};

TEST_F(QtSerialPortTest, carriesBytesBothWays) {
    port.open();
    EXPECT_EQ(story, Story{"opened"});
    port.send(Bytes{'Y', 1, 0, 1});
    EXPECT_EQ(pty.read(), (Bytes{'Y', 1, 0, 1})); // without a turn of the event loop
    pty.write({1, 2, 0, 0x11, 0x13, 255});
    EXPECT_TRUE(QTest::qWaitFor([&] { return received.size() == 6; }));
    EXPECT_EQ(received, (Bytes{1, 2, 0, 0x11, 0x13, 255}));

    received.clear();
    pty.write({7});
    port.deliverPending();
    EXPECT_EQ(received, Bytes{7});
    port.deliverPending();
    EXPECT_EQ(story, Story{"opened"});

    port.close();
    port.close();
    port.send(Bytes{1});
    EXPECT_EQ(story, (Story{"opened", "closed"}));
}

TEST_F(QtSerialPortTest, forgetsBytesFromBeforeTheOpening) {
    pty.write({1, 2, 3, 4, 5});
    port.open();
    pty.write({6});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !received.empty(); }));
    EXPECT_EQ(received, Bytes{6});
}

TEST_F(QtSerialPortTest, hangUpIsReportedOnceAndCostsNothing) {
    port.open();
    pty.hangUp();
    EXPECT_TRUE(QTest::qWaitFor([&] { return story.size() == 2; }));
    EXPECT_EQ(story.back(), "removed"); // the device file of a pty goes with its master
    // The line is let go: what would spin now takes a full core.
    const std::clock_t before = std::clock();
    int turns = 0;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&] { ++turns; });
    clock.start(10);
    EXPECT_TRUE(QTest::qWaitFor([&] { return turns >= 20; }));
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 10);
    port.deviceWasRemoved();
    port.close();
    EXPECT_EQ(story.size(), 2U);
}

TEST_F(QtSerialPortTest, hangUpWithTheDeviceFileLeftIsAClosing) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("ttyUSB0"));
    ASSERT_TRUE(QFile::link(QString::fromStdString(pty.path), path));
    QtSerialPort linked(SerialPortInfo{"ttyUSB0", path.toStdString(), {}});
    linked.setDelegate(this);
    linked.open();
    ASSERT_TRUE(QFile::remove(path) && QFile::link(QStringLiteral("/dev/null"), path));
    pty.hangUp();
    EXPECT_TRUE(QTest::qWaitFor([&] { return story.size() == 2; }));
    EXPECT_EQ(story, (Story{"opened", "closed"}));
}

TEST_F(QtSerialPortTest, removalToldByTheSystemClosesAtOnce) {
    port.deviceWasRemoved();
    port.open();
    port.deviceWasRemoved();
    EXPECT_EQ(story, (Story{"opened", "removed"}));
    // The same object opens again, and the line it lost says nothing more.
    port.open();
    pty.write({9});
    EXPECT_TRUE(QTest::qWaitFor([&] { return received == Bytes{9}; }));
    EXPECT_EQ(story, (Story{"opened", "removed", "opened"}));
}

TEST_F(QtSerialPortTest, saysWhyItCannotBeOpened) {
    QtSerialPort missing(SerialPortInfo{"ttyUSB9", "/dev/ttyUSB9-absent", {}});
    missing.setDelegate(this);
    missing.open();
    ASSERT_EQ(story.size(), 1U);
    EXPECT_EQ(story[0], "No such file or directory");

    port.open();
    QtSerialPort again(port.info());
    again.setDelegate(this);
    again.open();
    ASSERT_EQ(story.size(), 3U);
    EXPECT_NE(story[2].find("(" + pty.path + " is in use by another program)"), std::string::npos)
        << story[2];
}

} // namespace

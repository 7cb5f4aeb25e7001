#include "yprotocoll/link/QtSerialPort.h"

#include "simulator/PtyPair.h"
#include "yprotocoll/link/OpenFailure.h"

#include <QTest>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

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
        story.push_back(error.text.in(untranslated) + error.help.in(untranslated));
        remedies = error.remedies;
    }
    void serialPortDidReceive(SerialPort&, std::span<const std::uint8_t> bytes) override {
        received.insert(received.end(), bytes.begin(), bytes.end());
    }

    void write(const Bytes& bytes) const {
        EXPECT_EQ(::write(pty.master(), bytes.data(), bytes.size()), std::ssize(bytes));
    }

    PtyPair pty;
    QtSerialPort port{SerialPortInfo{"tty", pty.slavePath(), {}}};
    Story story;
    std::vector<YMessageError::PortRemedy> remedies;
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
    EXPECT_TRUE(QTest::qWaitFor([&] { return received.size() >= 6; }));
    write({7});
    port.deliverPending();
    EXPECT_EQ(received, (Bytes{1, 2, 0, 0x11, 0x13, 255, 7}));
    EXPECT_EQ(story, Story{"opened"});
}

TEST_F(QtSerialPortTest, saysWhyItCannotBeOpened) {
    port.open();
    QtSerialPort again(port.info());
    again.setDelegate(this);
    again.open();
    ASSERT_EQ(story.size(), 2U);
    // The lock file tells that it is this very program.
    const std::string holder =
        QCoreApplication::applicationFilePath().section(u'/', -1).toStdString();
    EXPECT_EQ(story[1], "another program holds the controller (" + holder + ")" + pty.slavePath() +
                            " is in use by another program: " + holder + ", process " +
                            std::to_string(::getpid()));

    // The superuser may use everything, and so becomes somebody else.
    const PtyPair theirs;
    QtSerialPort forbidden(SerialPortInfo{"theirs", theirs.slavePath(), {}});
    forbidden.setDelegate(this);
    constexpr gid_t dialout = 20;
    const bool hasGroup = ::chown(theirs.slavePath().c_str(), static_cast<uid_t>(-1), dialout) == 0;
    EXPECT_EQ(::chmod(theirs.slavePath().c_str(), hasGroup ? 0060 : 0), 0);
    const bool isSuperuser = ::geteuid() == 0 && ::setresuid(65534, 65534, 0) == 0;
    forbidden.open();
    EXPECT_TRUE(!isSuperuser || ::setresuid(0, 0, 0) == 0);
    EXPECT_NE(story.back().find("may not read and write " + theirs.slavePath() +
                                ", which belongs to the group"),
              std::string::npos)
        << story.back();
    ASSERT_EQ(remedies.size(), hasGroup ? 2U : 1U);
    EXPECT_EQ(remedies[0].command.find("sudo usermod -aG ") == 0, hasGroup);
    EXPECT_NE(remedies.back().command.find("ATTRS{idVendor}==\"7a51\", ATTRS{idProduct}==\"0c24\""),
              std::string::npos);
}

TEST(OpenFailureTest, knowsALockThatWasLeftOver) {
    const pid_t ended = ::fork();
    if (ended == 0)
        ::_exit(0);
    ASSERT_EQ(::waitpid(ended, nullptr, 0), ended);
    const std::string name = "ttyEnded" + std::to_string(::getpid());
    const std::string lock = "/tmp/LCK.." + name;
    std::ofstream(lock) << ended << '\n';
    const auto failure = OpenFailure::taken(QString::fromStdString("/dev/" + name));
    EXPECT_EQ(::unlink(lock.c_str()), 0);
    EXPECT_EQ(failure.text.source, "a lock was left over by a program that has ended");
    ASSERT_EQ(failure.remedies.size(), 1U);
    EXPECT_EQ(failure.remedies[0].command, "sudo rm " + lock);
}

} // namespace

#include "AppDelegate.h"
#include "MainWindow.h"
#include "data/AQDataSource.h"
#include "faults/LoopWatch.h"
#include "faults/RecordingDialogs.h"
#include "simulator/EventLoop.h"
#include "ui_MainWindow.h"
#include "yprotocoll/link/ModalPause.h"
#include "yprotocoll/link/QtSerialPort.h"
#include "yprotocoll/link/UdevSerialPortManager.h"
#include "yprotocoll/link/YMessageController.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>

#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
// gcc has no headers for these.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
/// Freed memory is used again soon, else it would look like growth.
extern "C" const char* __asan_default_options() {
    return "quarantine_size_mb=1";
}
#endif

namespace {

using namespace std::chrono_literals;

const std::string removed = "Device Error!|Error: port closed: port was removed.";

/// The whole program on the ports of this computer, run by the simulator, which shows it a USB bus
/// with two controllers to plug in.
class Plugging : public testing::Test {
protected:
    void SetUp() override {
        simulator.connectToServer(QStringLiteral(PLUGGING_CONTROL));
        ASSERT_TRUE(simulator.waitForConnected()) << "to be run by aquelon-simulator";
        prompts.setParent(&delegate.window());
        delegate.applicationDidFinishLaunching({});
    }
    void TearDown() override {
        for (int number = 0; number < 3; ++number)
            tell(QStringLiteral("unplug ") + port(number));
    }

    /// Qt locks a port by its name for all programs of the machine, so these are our own.
    static QString port(int number) {
        return QStringLiteral("ttyUSB%1").arg(1000 + 10 * (getpid() % 10'000) + number);
    }
    /// A command to the simulator; its reply.
    QByteArray tell(const QString& command) {
        simulator.write(command.toUtf8() + '\n');
        while (!simulator.canReadLine() && simulator.waitForReadyRead()) {
        }
        return simulator.readLine().trimmed();
    }
    /// "plug", "unplug" and the like.
    void cable(const char* verb, int number = 0) {
        ASSERT_EQ(tell(QLatin1String(verb) + u' ' + port(number)), "ok") << verb;
    }
    /// The ports that a program has open, as the controllers see it.
    QStringList portsInUse() {
        QStringList names;
        const auto status = QJsonDocument::fromJson(tell(QStringLiteral("status"))).object();
        for (const auto& device : status[QStringLiteral("devices")].toArray())
            if (device[QStringLiteral("inUse")].toBool())
                names << device[QStringLiteral("name")].toString();
        return names;
    }

    bool shows(const char* status) {
        return delegate.window().outlets().lblConnectionStatus->text() == QLatin1String(status);
    }
    bool connects() {
        return runUntil([&] { return shows("CONNECTED") && link.isConnected(); });
    }
    bool connectsTo(int number) {
        return connects() && runUntil([&] { return portsInUse() == QStringList{port(number)}; });
    }
    /// One alert, which the person closes.
    void expectLossTold() {
        EXPECT_TRUE(runUntil([&] { return RecordingDialogs::shown<QMessageBox>() != nullptr; }));
        EXPECT_TRUE(shows("NOT CONNECTED"));
        EXPECT_TRUE(RecordingDialogs::press(QMessageBox::Ok));
        EXPECT_EQ(qPrintable(prompts.alerts.join(u'\n')), removed);
        prompts.alerts.clear();
    }
    /// No port of its name can be opened while an Obstacle lives.
    template <class Obstacle>
    void expectQuietRetriesUntilFree(const char* reason) {
        cable("plug", 1); // two, so that none is opened
        cable("plug", 0);
        QLabel* problem = delegate.window().outlets().lblPortProblem;
        {
            const Obstacle obstacle(port(0));
            cable("unplug", 1);
            EXPECT_TRUE(runUntil([&] {
                return problem->isVisible() && problem->toolTip().contains(QLatin1String(reason));
            })) << qPrintable(problem->toolTip());
            EXPECT_LT(watch.turnsDuring(4 * scan), mostTurns);
            EXPECT_TRUE(prompts.alerts.isEmpty());
            EXPECT_TRUE(shows("NOT CONNECTED"));
        }
        EXPECT_TRUE(connectsTo(0));
        EXPECT_FALSE(problem->isVisible());
    }

    static constexpr int mostTurns = 100; ///< one that runs in circles wakes thousands of times
    static constexpr auto scan = 100ms;
    QLocalSocket simulator;
    UdevSerialPortManager ports;
    ModalPause pause;
    YMessageController link{ports, pause, {.scan = scan, .answer = 1s, .arrival = 10ms}};
    NotificationCenter notifications;
    AQDataSource data{notifications, [this] { return link.device(); }};
    RecordingDialogs prompts;
    AppDelegate delegate{{data, link, prompts}};
    LoopWatch watch;
};

/// What the process holds.
struct Holding {
    std::vector<std::string> descriptors; ///< what they stand for
    std::ptrdiff_t heap;                  ///< bytes in use
    std::ptrdiff_t resident;              ///< bytes

    static Holding now() {
        std::vector<std::string> open;
        for (const auto& link : std::filesystem::directory_iterator("/proc/self/fd"))
            open.push_back(std::filesystem::read_symlink(link));
        std::ptrdiff_t pages = 0; // all, then the resident ones
        std::ifstream("/proc/self/statm") >> pages >> pages;
#ifdef __SANITIZE_ADDRESS__
        const std::size_t inUse = __sanitizer_get_current_allocated_bytes();
#else
        const std::size_t inUse = mallinfo2().uordblks;
#endif
        return {std::move(open), static_cast<std::ptrdiff_t>(inUse), pages * sysconf(_SC_PAGESIZE)};
    }
};

TEST_F(Plugging, aThousandCyclesLeaveNothingBehind) {
    constexpr int warmUp = 50;
    constexpr int half = 500;
    std::vector<Holding> held; // after the warm-up, the half and the whole
    for (int cycle = 1; cycle <= warmUp + 2 * half; ++cycle) {
        cable("plug");
        ASSERT_TRUE(connects()) << cycle;
        cable("unplug");
        expectLossTold();
        ASSERT_FALSE(HasFailure()) << cycle;
        if (cycle % half == warmUp)
            held.push_back(Holding::now());
    }
    const Holding& before = held.front();
    const Holding& after = held.back();
    RecordProperty("heapGrowth", std::to_string(after.heap - before.heap));
    RecordProperty("residentGrowth", std::to_string(after.resident - before.resident));
    // Helping threads of Qt may end in between, for want of work, with what they held.
    EXPECT_THAT(after.descriptors, testing::IsSubsetOf(before.descriptors));
    const auto heapGrowth = std::max(held[1].heap - before.heap, after.heap - held[1].heap);
    EXPECT_LT(heapGrowth, 32 * half) << "as much as the smallest object left each time";
    EXPECT_LT(after.resident - before.resident, 2 * half * sysconf(_SC_PAGESIZE));
}

TEST_F(Plugging, comesBackAfterEveryLossAndUnderEveryName) {
    const struct {
        int port;
        const char* loss;
    } cycles[] = {{0, "unplug"}, {0, "unplug"}, {2, "unplug"},
                  {0, "hangup"}, {0, "vanish"}, {0, "unplug"}};
    for (const auto& cycle : cycles) {
        SCOPED_TRACE(cycle.loss);
        cable("plug", cycle.port);
        EXPECT_TRUE(connectsTo(cycle.port));
        cable(cycle.loss, cycle.port);
        expectLossTold();
        EXPECT_LT(watch.turnsDuring(4 * scan), mostTurns);
        EXPECT_EQ(portsInUse(), QStringList{});
        cable("unplug", cycle.port);
    }
}

TEST_F(Plugging, twoControllersComeAndGo) {
    cable("plug");
    EXPECT_TRUE(connectsTo(0));
    cable("plug", 1);
    EXPECT_EQ(portsInUse(), QStringList{port(0)});
    cable("unplug");
    expectLossTold();
    EXPECT_TRUE(connectsTo(1)) << "the only one left";
    cable("plug");
    cable("unplug");
    EXPECT_FALSE(runUntil([&] { return !shows("CONNECTED"); }, scan)) << "of no concern";
    EXPECT_EQ(portsInUse(), QStringList{port(1)});
    cable("plug");
    cable("unplug", 1);
    cable("plug", 1);
    expectLossTold();
    watch.turnsDuring(4 * scan);
    EXPECT_EQ(portsInUse(), QStringList{}) << "among two the person chooses";
    cable("unplug", 1);
    EXPECT_TRUE(connectsTo(0));
    EXPECT_TRUE(prompts.alerts.isEmpty());
}

/// This program may not use the tty behind a port. The superuser may use everything, and so becomes
/// somebody else.
class Forbidden {
public:
    explicit Forbidden(const QString& port) {
        const QString root = qEnvironmentVariable("UMOCKDEV_DIR");
        m_tty = QFile::symLinkTarget(root + QStringLiteral("/dev/") + port).toLocal8Bit();
        EXPECT_EQ(chmod(m_tty.constData(), 0), 0);
        if (m_isSuperuser) {
            constexpr uid_t nobody = 65534;
            const QString ioctls = root + QStringLiteral("/ioctl/dev/") + port;
            EXPECT_EQ(chmod(root.toLocal8Bit().constData(), 0755), 0);
            EXPECT_EQ(chmod(ioctls.toLocal8Bit().constData(), 0777), 0);
            EXPECT_EQ(setresuid(nobody, nobody, 0), 0);
        }
    }
    ~Forbidden() {
        if (m_isSuperuser) {
            EXPECT_EQ(setresuid(0, 0, 0), 0);
            prctl(PR_SET_DUMPABLE, 1); // for the search for leaks
        }
        EXPECT_EQ(chmod(m_tty.constData(), 0620), 0);
    }
    Forbidden(const Forbidden&) = delete;
    Forbidden& operator=(const Forbidden&) = delete;

private:
    const bool m_isSuperuser = geteuid() == 0;
    QByteArray m_tty;
};

TEST_F(Plugging, permissionComesLater) {
    expectQuietRetriesUntilFree<Forbidden>("belongs to the group");
}

TEST_F(Plugging, anotherProgramLetsGoLater) {
    struct Held : QtSerialPort {
        explicit Held(const QString& port)
            : QtSerialPort({port.toStdString(), "/dev/" + port.toStdString(), {}}) {
            open();
        }
    };
    expectQuietRetriesUntilFree<Held>("is in use by another program");
}

} // namespace

#include "AppDelegate.h"
#include "MainWindow.h"
#include "data/AQDataSource.h"
#include "faults/LoopWatch.h"
#include "faults/RecordingDialogs.h"
#include "simulator/EventLoop.h"
#include "ui_MainWindow.h"
#include "yprotocoll/link/ModalPause.h"
#include "yprotocoll/link/UdevSerialPortManager.h"
#include "yprotocoll/link/YMessageController.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>

#include <algorithm>
#include <filesystem>
#include <malloc.h>
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

/// What the open descriptors of this process stand for.
std::vector<std::string> openDescriptors() {
    std::vector<std::string> open;
    for (const auto& link : std::filesystem::directory_iterator("/proc/self/fd"))
        open.push_back(std::filesystem::read_symlink(link));
    return open;
}

/// Bytes of the heap in use.
std::ptrdiff_t heapInUse() {
#ifdef __SANITIZE_ADDRESS__
    return static_cast<std::ptrdiff_t>(__sanitizer_get_current_allocated_bytes());
#else
    return static_cast<std::ptrdiff_t>(mallinfo2().uordblks);
#endif
}

TEST_F(Plugging, aThousandCyclesLeaveNothingBehind) {
    constexpr int warmUp = 200;
    constexpr int step = 5;
    std::vector<std::string> descriptors;
    std::ptrdiff_t heap = 0;
    std::vector<std::ptrdiff_t> growths; // of so many cycles each
    for (int cycle = 1; cycle <= 1000; ++cycle) {
        cable("plug");
        ASSERT_TRUE(connects()) << cycle;
        cable("unplug");
        expectLossTold();
        ASSERT_FALSE(HasFailure()) << cycle;
        if (cycle < warmUp || cycle % step != 0)
            continue;
        if (cycle == warmUp)
            descriptors = openDescriptors();
        else
            growths.push_back(heapInUse() - heap);
        heap = heapInUse();
    }
    // Helping threads of Qt may end in between, for want of work, with what they held.
    EXPECT_THAT(openDescriptors(), testing::IsSubsetOf(descriptors));
    // Caches grow now and then by thousands of bytes and shrink again, so two moments say little.
    // What is left behind each time is in every step, and so in the middle one.
    const auto middle = growths.begin() + std::ssize(growths) / 2;
    std::ranges::nth_element(growths, middle);
    RecordProperty("heapGrowthPerCycle", std::to_string(double(*middle) / step));
    EXPECT_LT(*middle, 24 * step) << "the smallest object takes 32 bytes";
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

} // namespace

#include "journeys/Journey.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <time.h>

#include <algorithm>
#include <csignal>
#include <functional>
#include <limits>

namespace {

const std::string removed = "Aquelon|Device Error!|Error: port closed: port was removed.|OK";

double cpuSeconds(const Journey& journey) {
    clockid_t clock{};
    timespec time{};
    EXPECT_EQ(clock_getcpuclockid(static_cast<pid_t>(journey.processId()), &clock), 0);
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// Measures windows of two seconds, which hold a scan, until the program uses less than 2 % of a
/// core in one. The first may still hold the drawing of a dialog; a busy loop never ends.
bool calmsDown(const Journey& journey) {
    return Journey::waitUntil([&] {
        QElapsedTimer watch;
        watch.start();
        const double before = cpuSeconds(journey);
        QThread::msleep(2100);
        return cpuSeconds(journey) - before < 0.02 * double(watch.elapsed()) / 1000.0;
    });
}

/// How often all threads of the program together went to sleep until now.
int sleeps(const Journey& journey) {
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(journey.processId()));
    const QByteArray key = "\nvoluntary_ctxt_switches:";
    int sum = 0;
    for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile status(tasks.filePath(task + QStringLiteral("/status")));
        if (!status.open(QIODevice::ReadOnly))
            continue;
        const QByteArray text = status.readAll();
        sum += text.mid(text.indexOf(key) + key.size()).split('\n').first().toInt();
    }
    return sum;
}

TEST(Connection, versionsAndFormats) {
    const struct {
        const char* firmware;
        const char* entrySize;
        bool isAccepted;
        const char* alert;
    } cases[] = {
        {"0.9", "3", false, ""},
        {"1.0", "3", false, ""},
        {"1.1", "3", true, ""},
        {"2.0", "3", true, ""},
        {"1.4", "4", false,
         "Aquelon|Device Error!|Error: port closed: unsupported sequence data format.|OK"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.firmware);
        const Journey journey({QStringLiteral("--firmware"), QLatin1String(c.firmware),
                               QStringLiteral("--entry-size"), QLatin1String(c.entrySize)});
        if (*c.alert) {
            EXPECT_EQ(journey.dialog("Device Error!"), c.alert);
            EXPECT_TRUE(journey.press("OK") && journey.waitForNoDialog());
        }
        EXPECT_TRUE(Journey::waitUntil([&] {
            return journey.count("CmdGetVersion") > 0 &&
                   journey.controller(QLatin1String("inUse")).toBool() == c.isAccepted;
        }));
        EXPECT_TRUE(journey.waitForText(c.isAccepted ? "CONNECTED" : "NOT CONNECTED"));
        EXPECT_TRUE(journey.dialogs().empty());
        EXPECT_EQ(journey.count("CmdGetSequenceDataInfo"), c.isAccepted || *c.alert ? 1 : 0);
    }
}

TEST(Connection, amongTwoThePersonChooses) {
    const std::string item = "Aquelon Controller /dev/";
    const Journey journey({QStringLiteral("--devices"), QStringLiteral("2")});
    ASSERT_TRUE(journey.waitForText("NOT CONNECTED"));
    ASSERT_TRUE(calmsDown(journey));
    EXPECT_TRUE(journey.commands().empty());
    ASSERT_TRUE(journey.chooseMenu("Open Device..."));
    ASSERT_TRUE(Journey::waitUntil([&] {
        return journey.find("combo box", item + Journey::port(0).toStdString()).isFocused();
    }));
    Journey::keys("Down");
    ASSERT_TRUE(journey.waitForText(item + Journey::port(1).toStdString()));
    ASSERT_TRUE(journey.press("OK"));
    ASSERT_TRUE(journey.waitForText("CONNECTED"));

    // From now on the other one is never opened, whatever happens.
    journey.control(QStringLiteral("unplug ") + Journey::port(1));
    EXPECT_EQ(journey.dialog("Device Error!"), removed);
    ASSERT_TRUE(journey.press("OK"));
    ASSERT_TRUE(journey.waitForNoDialog());
    journey.control(QStringLiteral("unplug ") + Journey::port(0));
    journey.control(QStringLiteral("plug ") + Journey::port(0));
    EXPECT_TRUE(calmsDown(journey));
    journey.control(QStringLiteral("plug ") + Journey::port(1));
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    for (const WireEvent& event : journey.wire())
        EXPECT_TRUE(event.port == Journey::port(1).toStdString() ||
                    event.kind == WireEvent::Kind::Note)
            << event.toLine();
}

TEST(Connection, leavesForeignDevicesAloneConnectsFastAndThenSleeps) {
    Journey journey({QStringLiteral("--no-device"), QStringLiteral("--foreign"),
                     QStringLiteral("--builtin"), QStringLiteral("--pace")});
    ASSERT_TRUE(journey.waitForText("NOT CONNECTED"));
    EXPECT_FALSE(journey.find("push button", "Send to device").isEnabled());
    journey.control(QStringLiteral("plug"));
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    EXPECT_TRUE(journey.find("push button", "Send to device").isEnabled());
    EXPECT_EQ(journey.commands(),
              (std::vector<std::string>{"CmdGetVersion", "CmdGetSequenceDataInfo"}));
    EXPECT_TRUE(journey.dialogs().empty());
    const auto wire = journey.wire();
    const auto plugged = std::ranges::find(wire, "plugged", &WireEvent::text);
    const auto opened = std::ranges::find(wire, "AnswerSequenceDataInfo", &WireEvent::text);
    ASSERT_TRUE(plugged != wire.end() && opened != wire.end());
    RecordProperty("connectSeconds", std::to_string(opened->seconds - plugged->seconds));
    EXPECT_LT(opened->seconds - plugged->seconds, 2.0 + 1.0) << "a scan and the open sequence";

    // Five scans in ten seconds, and one of the log's thread. Some time after drawing Qt still
    // looks through its pictures and ends its helping threads, so a window may be a disturbed one.
    EXPECT_TRUE(calmsDown(journey));
    int least = std::numeric_limits<int>::max();
    for (int window = 0; window < 4 && least > 6; ++window) {
        const int before = sleeps(journey);
        QThread::sleep(10);
        least = std::min(least, sleeps(journey) - before);
    }
    RecordProperty("wakeUpsInTenSeconds", least);
    EXPECT_LE(least, 6);
    EXPECT_GE(least, 4) << "the scans themselves were not seen";
    journey.signal(SIGHUP);
    EXPECT_EQ(journey.waitForEnd(), 0);
}

TEST(Connection, pulledCableIsToldOnceAndMendsItself) {
    using Do = std::function<void(const Journey&)>;
    const auto nothing = [](const Journey&) {};
    const auto unplug = [](const Journey& j) { j.control(QStringLiteral("unplug")); };
    const struct {
        const char* name;
        Do pull;
        const char* othersOpen;
        Do closeOthers;
        int port; ///< where it is plugged in again
    } cases[] = {
        {"idle", unplug, "", nothing, 0},
        {"in a load",
         [](const Journey& j) {
             j.control(QStringLiteral("fault unplug#46@1"));
             EXPECT_TRUE(j.press("Load from device"));
         },
         "", nothing, 0},
        {"in a send",
         [](const Journey& j) {
             j.control(QStringLiteral("fault unplug#44@2"));
             EXPECT_TRUE(j.press("Send to device") && j.press("Yes"));
         },
         "", nothing, 3},
        {"in a dialog",
         [unplug](const Journey& j) {
             EXPECT_TRUE(j.press("Send to device"));
             EXPECT_NE(j.dialog("The device settings will be overwritten!"), "");
             unplug(j);
         },
         "2 dialogs: ",
         [](const Journey& j) {
             EXPECT_TRUE(j.press("Yes"));
             EXPECT_EQ(j.dialog("Could not send settings to device!"),
                       "Aquelon|Could not send settings to device!|Controller not connected.|OK");
             EXPECT_TRUE(j.press("OK"));
         },
         0},
    };
    const Journey journey({QStringLiteral("--pace")});
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_TRUE(journey.waitForText("CONNECTED"));
        c.pull(journey);
        EXPECT_EQ(journey.dialog("Device Error!"), c.othersOpen + removed);
        EXPECT_TRUE(calmsDown(journey));
        ASSERT_TRUE(journey.press("OK"));
        c.closeOthers(journey);
        ASSERT_TRUE(journey.waitForNoDialog());
        EXPECT_TRUE(journey.shows("NOT CONNECTED"));
        EXPECT_TRUE(calmsDown(journey));
        EXPECT_TRUE(journey.dialogs().empty());
        EXPECT_EQ(journey.control(QStringLiteral("plug ") + Journey::port(c.port)),
                  QStringLiteral("ok"));
    }
    EXPECT_TRUE(journey.waitForText("CONNECTED"));
    EXPECT_EQ(journey.title(), "Aquelon - Untitled");
}

TEST(Connection, silenceIsToldOnceAfterFiveTries) {
    // It ends by a signal while the alert is open.
    const Journey journey({QStringLiteral("--pace")});
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    journey.control(QStringLiteral("fault silence"));
    ASSERT_TRUE(journey.press("Load from device"));
    EXPECT_EQ(journey.dialog("Device Error!"),
              "Aquelon|Device Error!|Error: port closed: too many timeouts while trying to "
              "send.|OK");
    std::vector<double> sent;
    for (const WireEvent& event : journey.wire()) {
        if (event.text == "CmdGetTaskMode")
            sent.push_back(event.seconds);
    }
    ASSERT_EQ(sent.size(), 5U);
    for (std::size_t i = 1; i < sent.size(); ++i)
        EXPECT_NEAR(sent[i] - sent[i - 1], 0.2, 0.1);
}

} // namespace

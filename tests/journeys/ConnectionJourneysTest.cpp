#include "journeys/Journey.h"

#include <QElapsedTimer>
#include <QThread>

#include <time.h>

#include <algorithm>
#include <csignal>

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

/// In the panel that offers two.
void choose(const Journey& journey, int index) {
    const auto item = [](int of) {
        return "Aquelon Controller /dev/" + Journey::port(of).toStdString();
    };
    ASSERT_TRUE(journey.chooseMenu("Open Device..."));
    ASSERT_TRUE(Journey::waitUntil([&] {
        return journey.find("combo box", item(0)).isFocused() ||
               journey.find("combo box", item(1)).isFocused();
    }));
    Journey::keys(index == 0 ? "Home" : "End");
    ASSERT_TRUE(journey.waitForText(item(index)));
    ASSERT_TRUE(journey.press("OK"));
}

TEST(Connection, amongTwoThePersonChooses) {
    const Journey journey("--devices 2");
    ASSERT_TRUE(journey.waitForText("NOT CONNECTED"));
    ASSERT_TRUE(calmsDown(journey));
    EXPECT_TRUE(journey.commands().empty());
    choose(journey, 1);
    ASSERT_TRUE(journey.waitForText("CONNECTED"));

    // From now on the other one is never opened, whatever happens.
    journey.control("unplug", 1);
    EXPECT_EQ(journey.dialog("Device Error!"), removed);
    ASSERT_TRUE(journey.press("OK") && journey.waitForNoDialog());
    journey.control("unplug", 0);
    journey.control("plug", 0);
    EXPECT_TRUE(calmsDown(journey));
    journey.control("plug", 1);
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    for (const WireEvent& event : journey.wire())
        EXPECT_TRUE(event.port == Journey::port(1).toStdString() ||
                    event.kind == WireEvent::Kind::Note)
            << event.toLine();
}

TEST(Connection, leavesForeignDevicesAloneAndConnectsFast) {
    Journey journey("--no-device --foreign --builtin --pace");
    ASSERT_TRUE(journey.waitForText("NOT CONNECTED"));
    journey.control("plug");
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    EXPECT_EQ(journey.commands(),
              (std::vector<std::string>{"CmdGetVersion", "CmdGetSequenceDataInfo"}));
    EXPECT_TRUE(journey.dialogs().empty());
    const auto wire = journey.wire();
    const auto plugged = std::ranges::find(wire, "plugged", &WireEvent::text);
    const auto opened = std::ranges::find(wire, "AnswerSequenceDataInfo", &WireEvent::text);
    ASSERT_TRUE(plugged != wire.end() && opened != wire.end());
    EXPECT_LT(opened->seconds - plugged->seconds, 2.0 + 1.0) << "a scan and the open sequence";

    journey.signal(SIGHUP);
    EXPECT_EQ(journey.waitForEnd(), 0);
}

} // namespace

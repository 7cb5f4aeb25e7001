#include "journeys/Journey.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QTime>

#include <algorithm>
#include <csignal>
#include <fstream>

namespace {

constexpr double levelsInterval = 1.0;   // seconds from an answer to the next levels
constexpr double timerTolerance = 0.005; // seconds; a precise timer's, and the clocks' rounding
constexpr int full = 254;                // the level of all light
const std::string enable = "CmdEnableDemoMode";
const std::string levels = "CmdSetDemoModeLevels";
const std::string disable = "CmdDisableDemoMode";

class LampJourneys : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(journey.waitForText("CONNECTED"));
        journey.control("fault delay=150");
        curve = journey.find("list", "Light program curve");
    }

    /// The lamp as it was told: cold and warm.
    std::vector<int> told() const {
        const QJsonArray values = journey.controller("demoLevels").toArray();
        return {values[0].toInt(), values[1].toInt()};
    }
    void expectTold(int cold, int warm) const {
        expectSoon([this] { return told(); }, std::vector{cold, warm});
    }

    /// The sign in the brand bar.
    std::string sign() const {
        const auto isSign = [](const UiElement& element) {
            const std::string name = element.name();
            return element.role() == "label" &&
                   (name.starts_with("DEMO ") || name.starts_with("LIVE PREVIEW"));
        };
        const UiElement found = journey.find("frame", {}).find(isSign);
        return found ? found.name() : std::string();
    }

    /// Levels leave room for the answer and the interval after it, and nothing is sent to a lamp
    /// that was not taken or was given back, which is the end.
    void expectOrderlyLine() const {
        double free = 0.0;
        bool isTaken = false;
        bool isRepeated = false; // since its answer did not come in time, on a busy computer
        std::vector<std::uint8_t> shown;
        std::string last;
        for (const WireEvent& event : journey.wire()) {
            if (event.kind == WireEvent::Kind::Sent && last == levels && !isRepeated) {
                free = event.seconds + levelsInterval - timerTolerance;
            } else if (event.kind == WireEvent::Kind::Received) {
                if (event.text == levels) {
                    EXPECT_TRUE(isTaken) << event.toLine();
                    isRepeated = event.bytes == shown && event.seconds < free;
                    EXPECT_TRUE(isRepeated || event.seconds >= free) << event.toLine();
                    shown = event.bytes;
                }
                isTaken = (isTaken || event.text == enable) && event.text != disable;
            } else if (event.kind == WireEvent::Kind::Note) {
                free = 0.0;
                isTaken = false;
            }
            last = event.text;
        }
        EXPECT_FALSE(isTaken);
        EXPECT_FALSE(journey.controller("demoActive").toBool());
    }

    void pullTheCableAndPlugItInAgain(const std::string& signWhilePulled) const {
        const int shown = journey.count(levels);
        journey.control("unplug");
        EXPECT_NE(journey.dialog("Device Error!"), "");
        ASSERT_TRUE(journey.press("OK") && journey.waitForNoDialog());
        ASSERT_TRUE(Journey::waitUntil([&] {
            const std::string text = sign();
            return text.starts_with(signWhilePulled) &&
                   text.ends_with(", waiting for the controller");
        })) << sign();
        journey.control("plug");
        ASSERT_TRUE(journey.waitForCommand(levels, shown + 1));
        EXPECT_TRUE(journey.controller("demoActive").toBool());
    }

    Journey journey;
    UiElement curve;
};

TEST_F(LampJourneys, liveModeFollowsTheHand) {
    const UiElement liveMode = journey.find("check box", "Live mode");
    Journey::click(liveMode);
    expectSoon([this] { return sign(); }, "LIVE PREVIEW: select a point or the task light");
    ASSERT_TRUE(journey.waitForCommand(enable));

    // The first point is cold light alone.
    const QRect plot = curve.screenRect();
    std::vector<QPoint> way;
    for (int y = plot.bottom(); y > plot.top() - 40; y -= 2)
        way.emplace_back(plot.left() + 100, y);
    Journey::drag(curve.children().front(), way);
    expectTold(full, 0);
    EXPECT_LE(journey.count(levels), 5); // of some two hundred steps

    Journey::keys("Right Right");
    expectTold(full, full);
    Journey::keys("--repeat 10 shift+Down");
    expectTold(0, 0);
    const QRect intensity = journey.find("slider", "Point 3, 15:00, Intensity").screenRect();
    Journey::click(QPoint(intensity.right() - 1, intensity.center().y()));
    expectTold(full, full);
    const QRect color = journey.find("slider", "Task light colour temperature").screenRect();
    Journey::click(QPoint(color.left() + 1, color.center().y()));
    expectTold(0, full);

    pullTheCableAndPlugItInAgain("LIVE PREVIEW");
    expectTold(0, full);
    EXPECT_TRUE(liveMode.isChecked());
    // The last edit goes out before the lamp is given back.
    Journey::keys("Left Left Left");
    Journey::click(liveMode);
    ASSERT_TRUE(journey.waitForCommand(disable));
    expectSoon([this] { return sign(); }, "");
    expectOrderlyLine();
}

TEST_F(LampJourneys, everyCommandHasItsKey) {
    Journey::keys("ctrl+i");
    expectSoon([this] { return sign(); }, "LIVE PREVIEW: select a point or the task light");
    Journey::keys("ctrl+i");
    ASSERT_TRUE(journey.waitForCommand(disable));
    Journey::keys("ctrl+r");
    expectSoon([this] { return sign().starts_with("DEMO "); }, true);
    Journey::keys("ctrl+r");
    expectSoon([this] { return sign(); }, "");
    Journey::keys("ctrl+l");
    ASSERT_TRUE(journey.waitForCommand("CmdGetTaskMode"));
    Journey::keys("F1");
    const std::string opened = qEnvironmentVariable("HOME").toStdString() + "/opened";
    expectSoon(
        [&opened] {
            std::string page;
            std::getline(std::ifstream(opened), page);
            return page.ends_with("/guide/index.html");
        },
        true);
    const std::pair<const char*, const char*> dialogs[] = {
        {"ctrl+d", "Controller to connect to:"},
        {"ctrl+t", "Controller's clock"},
        {"ctrl+e", "The device settings will be overwritten!"}};
    for (const auto& [key, text] : dialogs) {
        expectSoon([this] { return curve.isFocused(); }, true);
        Journey::keys(key);
        EXPECT_NE(journey.dialog(text), "") << key;
        Journey::keys("Escape");
        ASSERT_TRUE(journey.waitForNoDialog());
    }
}

TEST_F(LampJourneys, workDuringADemoDoesNoHarm) {
    ASSERT_TRUE(journey.press("Run Demo"));
    ASSERT_TRUE(journey.waitForCommand(levels));
    // 1440 minutes in 115.2 s, in the long run.
    const auto minute = [this] {
        return QTime::fromString(QString::fromStdString(sign()).mid(5, 5));
    };
    QElapsedTimer watch;
    watch.start();
    const QTime began = minute();
    EXPECT_TRUE(curve.children().empty());
    Journey::click(journey.find("slider", "Point 1, 08:30, Intensity"));
    ASSERT_TRUE(journey.press("Delete point"));
    expectSoon([this] { return bool(journey.find("slider", "Point 7, 23:30, Intensity")); }, false);
    ASSERT_TRUE(journey.press("Load from device") && journey.press("No"));
    ASSERT_TRUE(journey.waitForText("11:00"));
    pullTheCableAndPlugItInAgain("DEMO ");
    const double pace = began.secsTo(minute()) / 60.0 / (double(watch.elapsed()) / 1000.0);
    EXPECT_NEAR(pace, 12.5, 1.25);

    ASSERT_TRUE(journey.press("Stop Demo"));
    ASSERT_TRUE(journey.waitForCommand(disable));
    expectSoon([this] { return curve.children().size(); }, 4U);
    expectSoon([this] { return sign(); }, "");
    EXPECT_TRUE(journey.find("push button", "Run Demo").isEnabled());
    expectOrderlyLine();
}

TEST(LampOnTheWayOut, isGivenBackLast) {
    using Leave = void (*)(const Journey&);
    const std::pair<const char*, Leave> ways[] = {
        {"Live mode", [](const Journey&) { Journey::keys("alt+F4"); }},
        {"Run Demo", [](const Journey&) { Journey::keys("ctrl+q"); }},
        {"Live mode", [](const Journey& journey) { journey.signal(SIGTERM); }}};
    for (const auto& [mode, leave] : ways) {
        SCOPED_TRACE(mode);
        Journey journey;
        ASSERT_TRUE(journey.waitForText("CONNECTED"));
        journey.control("fault delay=150");
        ASSERT_TRUE(journey.press(mode));
        ASSERT_TRUE(journey.waitForCommand(enable));
        leave(journey);
        EXPECT_EQ(journey.waitForEnd(), 0);
        EXPECT_EQ(journey.commands().back(), disable);
        const auto wire = journey.wire();
        EXPECT_TRUE(std::ranges::any_of(wire.end() - 2, wire.end(), [](const WireEvent& event) {
            return event.kind == WireEvent::Kind::Sent;
        })) << "its answer was not awaited";
    }
}

} // namespace

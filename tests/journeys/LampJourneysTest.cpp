#include "journeys/Journey.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QTime>

#include <algorithm>
#include <csignal>

namespace {

constexpr double levelsInterval = 1.0;   // seconds from an answer to the next levels
constexpr double timerTolerance = 0.005; // seconds; a precise timer's, and the clocks' rounding
const QString slow = QStringLiteral("fault delay=150");
constexpr int full = 254; // the level of all light
const std::string enable = "CmdEnableDemoMode";
const std::string levels = "CmdSetDemoModeLevels";
const std::string disable = "CmdDisableDemoMode";

class LampJourneys : public testing::Test {
protected:
    void startWithSlowController() {
        ASSERT_TRUE(journey.waitForText("CONNECTED"));
        ASSERT_EQ(journey.control(slow), QStringLiteral("ok"));
        curve = journey.find("list", "Light program curve");
    }

    /// The lamp as it was told: cold and warm.
    std::vector<int> told() const {
        const QJsonArray values = journey.controller(QLatin1String("demoLevels")).toArray();
        return {values[0].toInt(), values[1].toInt()};
    }
    bool isDriven() const { return journey.controller(QLatin1String("demoActive")).toBool(); }

    /// The sign in the brand bar, without the time of a demo's.
    std::string sign() const {
        const auto isSign = [](const UiElement& element) {
            const std::string name = element.name();
            return element.role() == "label" &&
                   (name.starts_with("DEMO ") || name.starts_with("LIVE PREVIEW"));
        };
        const UiElement found = journey.find("frame", {}).find(isSign);
        return found ? found.name() : std::string();
    }

    /// The preview's commands on the line.
    std::vector<WireEvent> preview() const {
        auto events = journey.wire();
        std::erase_if(events, [](const WireEvent& event) {
            return event.kind != WireEvent::Kind::Received ||
                   (event.text != enable && event.text != levels && event.text != disable);
        });
        return events;
    }

    /// Levels leave room for the answer and the interval after it, and nothing is sent to a lamp
    /// that was not taken or was given back.
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
    }

    void pullTheCableAndPlugItInAgain(const std::string& signWhilePulled) const {
        const int enables = journey.count(enable);
        const int shown = journey.count(levels);
        EXPECT_EQ(journey.control(QStringLiteral("unplug")), QStringLiteral("ok"));
        EXPECT_NE(journey.dialog("Device Error!"), "");
        EXPECT_EQ(journey.dialogs().size(), 1U);
        ASSERT_TRUE(journey.press("OK"));
        ASSERT_TRUE(journey.waitForNoDialog());
        ASSERT_TRUE(Journey::waitUntil([&] {
            const std::string text = sign();
            return text.starts_with(signWhilePulled) &&
                   text.ends_with(", waiting for the controller");
        })) << sign();
        EXPECT_EQ(journey.control(QStringLiteral("plug")), QStringLiteral("ok"));
        ASSERT_TRUE(journey.waitForCommand(enable, enables + 1));
        ASSERT_TRUE(journey.waitForCommand(levels, shown + 1));
        EXPECT_TRUE(isDriven());
    }

    Journey journey;
    UiElement curve;
};

TEST_F(LampJourneys, liveModeFollowsTheHand) {
    startWithSlowController();
    const UiElement liveMode = journey.find("check box", "Live mode");
    Journey::click(liveMode);
    expectSoon([this] { return sign(); }, "LIVE PREVIEW: select a point or the task light");
    ASSERT_TRUE(journey.waitForCommand(enable));

    // The first point is cold light alone.
    const UiElement first = curve.children().front();
    const QRect plot = curve.screenRect();
    std::vector<QPoint> way;
    for (int y = plot.bottom(); y > plot.top() - 40; y -= 2)
        way.emplace_back(plot.left() + 100, y);
    Journey::drag(first, way);
    expectSoon([this] { return told(); }, std::vector{full, 0});
    const int afterDrag = journey.count(levels);
    EXPECT_LE(afterDrag, 5); // of some two hundred steps

    Journey::keys("Right Right");
    expectSoon([this] { return told(); }, std::vector{full, full});
    Journey::keys("--repeat 10 shift+Down");
    expectSoon([this] { return told(); }, std::vector{0, 0});

    const UiElement intensity = journey.find("slider", "Point 3, 15:00, Intensity");
    Journey::drag(intensity, {intensity.screenRect().center(),
                              QPoint(intensity.screenRect().right(), intensity.screenRect().y())});
    expectSoon([this] { return told(); }, std::vector{full, full});

    const UiElement color = journey.find("slider", "Task light colour temperature");
    Journey::click(QPoint(color.screenRect().left() + 1, color.screenRect().center().y()));
    expectSoon([this] { return told(); }, std::vector{0, full});
    const UiElement taskLight = journey.find("slider", "Task light intensity");
    Journey::click(QPoint(taskLight.screenRect().left() + 1, taskLight.screenRect().center().y()));
    expectSoon([this] { return told(); }, std::vector{0, 0});
    Journey::click(QPoint(taskLight.screenRect().right() - 1, taskLight.screenRect().center().y()));
    expectSoon([this] { return told(); }, std::vector{0, full});

    pullTheCableAndPlugItInAgain("LIVE PREVIEW");
    expectSoon([this] { return told(); }, std::vector{0, full});
    EXPECT_TRUE(liveMode.isChecked());

    // The last edit goes out before the lamp is given back.
    Journey::keys("Left Left Left");
    Journey::click(liveMode);
    ASSERT_TRUE(journey.waitForCommand(disable));
    expectSoon([this] { return sign(); }, "");
    EXPECT_EQ(preview().back().text, disable);
    EXPECT_FALSE(isDriven());
    expectOrderlyLine();
}

TEST_F(LampJourneys, workDuringADemoDoesNoHarm) {
    startWithSlowController();
    const QString path = journey.file(QStringLiteral("reef.sq"));
    ASSERT_TRUE(journey.chooseMenu("Save As..."));
    ASSERT_TRUE(journey.chooseFile(path));
    ASSERT_TRUE(Journey::waitUntil([this] { return journey.title() == "Aquelon - reef.sq"; }));

    ASSERT_TRUE(journey.press("Run Demo"));
    ASSERT_TRUE(journey.waitForCommand(levels));
    EXPECT_EQ(preview().front().text, enable);
    // 1440 minutes in 115.2 s, in the long run.
    const auto minute = [this] {
        return QTime::fromString(QString::fromStdString(sign()).mid(5, 5));
    };
    QElapsedTimer watch;
    watch.start();
    const QTime began = minute();
    const auto moves = [this] {
        const std::string before = sign();
        return before.starts_with("DEMO ") && Journey::waitUntil([&] { return sign() > before; });
    };
    EXPECT_TRUE(moves());
    EXPECT_TRUE(curve.children().empty());

    const UiElement intensity = journey.find("slider", "Point 1, 08:30, Intensity");
    Journey::click(intensity);
    Journey::keys("Right");
    ASSERT_TRUE(journey.press("Delete point"));
    expectSoon([this] { return bool(journey.find("slider", "Point 7, 23:30, Intensity")); }, false);
    EXPECT_TRUE(moves());

    ASSERT_TRUE(journey.press("Load from device"));
    ASSERT_NE(journey.dialog("Save changes before loading settings"), "");
    ASSERT_TRUE(journey.press("No"));
    ASSERT_TRUE(journey.waitForNoDialog());
    ASSERT_TRUE(journey.waitForText("11:00"));
    EXPECT_TRUE(moves());

    ASSERT_TRUE(journey.chooseMenu("Open..."));
    ASSERT_TRUE(journey.chooseFile(path));
    ASSERT_TRUE(journey.waitForText("08:30"));
    pullTheCableAndPlugItInAgain("DEMO ");
    EXPECT_TRUE(moves());
    const double pace = began.secsTo(minute()) / 60.0 / (double(watch.elapsed()) / 1000.0);
    EXPECT_NEAR(pace, 12.5, 1.25);

    ASSERT_TRUE(journey.press("Stop Demo"));
    ASSERT_TRUE(journey.waitForCommand(disable));
    expectSoon([this] { return curve.children().size(); }, 7U);
    expectSoon([this] { return sign(); }, "");
    EXPECT_TRUE(journey.find("push button", "Run Demo").isEnabled());
    EXPECT_EQ(preview().back().text, disable);
    expectOrderlyLine();
}

struct WayOut {
    const char* name;
    const char* mode; ///< the control that takes the lamp
    std::function<void(const Journey&)> leave;
};

class LampOnTheWayOut : public testing::TestWithParam<WayOut> {};

TEST_P(LampOnTheWayOut, isGivenBackLast) {
    Journey journey;
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    ASSERT_EQ(journey.control(slow), QStringLiteral("ok"));
    ASSERT_TRUE(journey.press(GetParam().mode));
    ASSERT_TRUE(journey.waitForCommand(enable));
    GetParam().leave(journey);
    EXPECT_EQ(journey.waitForEnd(), 0);
    EXPECT_EQ(journey.commands().back(), disable);
    const auto wire = journey.wire();
    EXPECT_TRUE(std::ranges::any_of(wire.end() - 2, wire.end(), [](const WireEvent& event) {
        return event.kind == WireEvent::Kind::Sent;
    })) << "its answer was not awaited";
}

INSTANTIATE_TEST_SUITE_P(
    Ways, LampOnTheWayOut,
    testing::Values(
        WayOut{"closedWindow", "Live mode", [](const Journey&) { Journey::keys("alt+F4"); }},
        WayOut{"quit", "Run Demo", [](const Journey&) { Journey::keys("ctrl+q"); }},
        WayOut{"terminated", "Live mode", [](const Journey& journey) { journey.signal(SIGTERM); }},
        WayOut{"interrupted", "Run Demo", [](const Journey& journey) { journey.signal(SIGINT); }}),
    [](const auto& way) { return std::string(way.param.name); });

} // namespace

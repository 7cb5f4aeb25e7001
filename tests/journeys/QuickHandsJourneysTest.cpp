#include "journeys/Journey.h"

#include <QJsonArray>

namespace {

/// Hands that do not wait: everything in one `hands` call comes in one go.
class QuickHandsJourneys : public testing::Test, protected Journey {
protected:
    static std::string hold(QPoint place) { return at(place) + " mousedown 1"; }

    void SetUp() override {
        ASSERT_TRUE(waitForText("CONNECTED"));
        // Hands that do not wait for anything else wait for the window's place on the screen.
        const UiElement curve = find("list", "Light program curve");
        expectSoon([&] { return curve.isFocused() && curve.screenRect().x() > 0; }, true);
    }

    QPoint place(const std::string& time, double value) const {
        return placeOn(cell(time, "Intensity"), value);
    }
    UiElement point(const std::string& time) const {
        return find("list", "Light program curve").find([&](const UiElement& element) {
            return element.name().find(", " + time + ", ") != std::string::npos;
        });
    }
    QPoint disc(const std::string& time) const { return point(time).screenRect().center(); }
    /// "25 %, selected"
    std::string light(const std::string& time) const {
        const std::string name = point(time).name();
        const auto from = name.find("intensity ");
        if (from == std::string::npos)
            return "no such point";
        return name.substr(from + 10, name.find(',', from) - from - 10) +
               (point(time).isSelected() ? ", selected" : "");
    }
    std::size_t count() const { return find("list", "Light program curve").children().size(); }
    void typeTime(const std::string& time, const std::string& text) const {
        click(cell(time, "Time"));
        expectSoon([&] { return cell(time, "Time").isFocused(); }, true);
        hands("key ctrl+a type " + text);
    }
};

TEST_F(QuickHandsJourneys, aPressCountsForThePointUnderThePointer) {
    typeTime("08:30", "1200");
    const QPoint quarter = place("10:00", 0.25);
    hands(at(quarter) + " click 1");
    expectSoon([&] { return light("10:00"); }, "25 %, selected");
    EXPECT_EQ(light("12:00"), "0 %");
    expectSoon([&] { return cell("10:00", "Intensity").isFocused(); }, true);

    // The same with its disc, and the lamp follows it.
    ASSERT_TRUE(press("Live mode"));
    typeTime("12:00", "0930");
    const QPoint from = disc("10:00");
    const QPoint to(from.x(), disc("15:00").y());
    hands(hold(from) + ' ' + at(from - QPoint(0, 20)) + ' ' + at(to) + " mouseup 1");
    expectSoon([&] { return light("10:00"); }, "100 %, selected");
    EXPECT_EQ(light("09:30"), "0 %");
    expectSoon([&] { return controller("lamp").toArray().first().toInt(); }, 254);

    // Another field is no slider: it stores nothing by which its point could be known.
    typeTime("09:30", "1100");
    hands(at(cell("10:00", "Time").screenRect().center()) + " click 1");
    expectSoon([&] { return cell("10:00", "Time").isFocused(); }, true);
    EXPECT_EQ(light("11:00") + ", " + light("10:00"), "0 %, 100 %, selected");
}

TEST_F(QuickHandsJourneys, keysGoToThePointThatMoves) {
    click(cell("08:30", "Time"));
    expectSoon([&] { return cell("08:30", "Time").isFocused(); }, true);
    hands("key --delay 0 ctrl+a Home Up Up Up");
    expectSoon([&] { return light("11:30"); }, "0 %, selected");
    EXPECT_EQ(light("10:00"), "80 %");
    expectSoon([&] { return cell("11:30", "Time").isFocused(); }, true);
}

TEST_F(QuickHandsJourneys, aDragEndsWithItsPoint) {
    const QPoint from = disc("10:00");
    // The window manager holds a press back for a moment, but no key.
    hands(hold(from) + " sleep 0.2 " + at(from + QPoint(0, 30)) + " key --delay 0 Delete " +
          at(from + QPoint(0, 80)));
    expectSoon([&] { return count(); }, 6U);
    hands(at(from + QPoint(0, 120)) + " mouseup 1");
    expectSoon([&] { return light("15:00"); }, "100 %, selected");
    EXPECT_EQ(light("08:30"), "0 %");

    // A load takes the pressed point away.
    hands(hold(disc("20:00")));
    ASSERT_TRUE(chooseMenu("Load from Device"));
    ASSERT_TRUE(press("No"));
    ASSERT_TRUE(waitForCommand("CmdGetSequenceData", 2));
    hands(at(from + QPoint(0, 60)) + " mouseup 1");
}

TEST_F(QuickHandsJourneys, focusAndSelectionAreOne) {
    click(place("10:00", 0.8));
    hands("key --delay 0 ctrl+plus ctrl+plus");
    expectSoon([&] { return cell("13:45", "Intensity").isFocused(); }, true);
    EXPECT_EQ(light("13:45"), "50 %, selected");
    hands("key --delay 0 ctrl+minus ctrl+minus");
    expectSoon([&] { return count(); }, 7U);
    expectSoon([&] { return cell("10:00", "Intensity").isFocused(); }, true);

    // From the curve to the row of its point, and in the last row: what is selected then.
    click(disc("23:30"));
    keys("Tab Tab");
    expectSoon([&] { return cell("23:30", "Colour temperature").isFocused(); }, true);
    keys("ctrl+minus");
    expectSoon([&] { return cell("22:30", "Colour temperature").isFocused(); }, true);
    expectSoon([&] { return point("22:30").isSelected(); }, true);
}

} // namespace

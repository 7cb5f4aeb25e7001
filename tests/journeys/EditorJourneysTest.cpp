#include "journeys/Journey.h"

#include <algorithm>

namespace {

/// The curve and the table as a person reads them. Rows count from 1.
struct Editor {
    explicit Editor(const std::string& options) : journey(options) {
        curve = journey.find("list", "Light program curve");
        add = journey.find("push button", "Add point");
        remove = journey.find("push button", "Delete point");
    }

    std::size_t count() const { return curve.children().size(); }
    UiElement point(std::size_t row) const {
        const auto points = curve.children();
        return row <= points.size() ? points[row - 1] : UiElement();
    }
    std::string pointName(std::size_t row) const {
        const UiElement item = point(row);
        return (item ? item.name() : std::string()) + (item.isSelected() ? ", selected" : "");
    }
    void expectPoint(std::size_t row, const std::string& rest) const {
        expectSoon([&] { return pointName(row); }, "Point " + std::to_string(row) + " of " + rest);
    }
    UiElement cell(int row, const std::string& column) const {
        return journey.cell("Point " + std::to_string(row), column);
    }
    static void typeInto(const UiElement& field, const std::string& text) {
        Journey::click(field);
        Journey::waitUntil([&] { return field.isFocused(); });
        Journey::hands("key ctrl+a type " + text);
        Journey::keys("Return");
    }

    void curveAndTableFollowEachOther() const {
        const UiElement third = point(3);
        const QRect plot = curve.screenRect();
        const QPoint above(third.screenRect().center().x(), plot.top() - 30);
        const QPoint below(above.x(), plot.bottom() + 30);
        const UiElement intensity = cell(3, "Intensity");
        Journey::drag(third, {QPoint(above.x(), plot.center().y()), below});
        expectPoint(3, "7, 15:00, intensity 0 %, colour temperature 50 %, selected");
        expectSoon([&] { return intensity.value(); }, 0.0);
        // The popover's grey band comes along.
        Journey::drag(third, {{above.x(), plot.center().y()}});
        const QPoint fromPoint(-80, -89);
        expectSoon([&] { return Journey::colorAt(third.screenRect().center() + fromPoint); },
                   "808080");
        EXPECT_NE(Journey::colorAt(QPoint(above.x(), plot.bottom() - 40) + fromPoint), "808080");
        Journey::drag(third, {plot.center(), above});
        expectSoon([&] { return intensity.value(); }, 100.0);
        // A hand that trembles does not drag, and nor does a pointer that only passes over.
        Journey::drag(third, {third.screenRect().center() + QPoint(0, 2)});
        Journey::hands(Journey::at(plot.center()));
        EXPECT_EQ(intensity.value(), 100.0);
        expectSoon([this] { return remove.isEnabled(); }, true);
        Journey::click(Journey::placeOn(cell(2, "Intensity"), 0.25));
        expectPoint(2, "7, 10:00, intensity 25 %, colour temperature 56 %, selected");
        Journey::keys("Right Up Up");
        Journey::click(Journey::placeOn(cell(2, "Colour temperature"), 0.75));
        expectPoint(2, "7, 10:00, intensity 28 %, colour temperature 75 %, selected");
        Journey::keys("Left Down");
        expectPoint(2, "7, 10:00, intensity 28 %, colour temperature 74 %, selected");
    }

    void timesAreTypedAndStepped() const {
        const UiElement third = cell(3, "Time");
        typeInto(third, "10:00");
        expectSoon([&] { return third.text() + ", " + third.description(); },
                   "15:00, Another point already has the time 10:00.");
        EXPECT_TRUE(third.isFocused());

        typeInto(third, "7:15");
        expectPoint(1, "7, 07:15, intensity 100 %, colour temperature 50 %, selected");
        expectSoon(
            [&] {
                return cell(1, "Time").text() + (cell(1, "Time").isFocused() ? ", focused" : "");
            },
            "07:15, focused");
        // Past its neighbour by a key, and on.
        Journey::keys("Up Up");
        expectPoint(2, "7, 09:15, intensity 100 %, colour temperature 50 %, selected");
        expectSoon([&] { return cell(2, "Time").isFocused(); }, true);
        // The hour alone is selected; typing goes on to the minutes.
        Journey::hands("type 0945");
        Journey::keys("Return");
        expectPoint(2, "7, 09:45, intensity 100 %, colour temperature 50 %, selected");
        Journey::hands("type 12");
        Journey::keys("Escape");
        expectSoon([&] { return cell(2, "Time").text(); }, "09:45");
        EXPECT_EQ(cell(1, "Time").text(), "08:30");
    }

    Journey journey;
    UiElement curve, add, remove;
};

TEST(EditorJourneys, programIsEditedWhileConnected) {
    const Editor editor("");
    ASSERT_TRUE(editor.journey.waitForText("CONNECTED"));
    editor.curveAndTableFollowEachOther();
    editor.timesAreTypedAndStepped();
    EXPECT_EQ(editor.journey.count("CmdSetSequenceData"), 0); // nothing is sent unasked
}

TEST(EditorJourneys, windowIsWorkedWithoutAControllerAndWithoutAPointer) {
    const Editor editor("--no-device");
    const Journey& journey = editor.journey;
    ASSERT_TRUE(journey.waitForText("NOT CONNECTED"));
    expectSoon([&] { return editor.curve.isFocused(); }, true);
    std::vector<std::string> expected{"Light program curve"};
    for (int row = 1; row <= 7; ++row)
        for (const char* column : {"Time", "Colour temperature", "Intensity"})
            expected.push_back(editor.cell(row, column).name());
    expected.insert(expected.end(),
                    {"Add point", "Delete point", "Help on Task light", "Task light duration",
                     "Task light colour temperature", "Task light intensity", "Programmed mode",
                     "Help on the connection status", "Light program curve"});
    const auto controls = journey.find("frame", {}).findAll([&](const UiElement& element) {
        return element.role() != "filler" && std::ranges::count(expected, element.name()) > 0;
    });
    const auto focused = [&] {
        const auto found = std::ranges::find_if(controls, &UiElement::isFocused);
        return found == controls.end() ? std::string() : found->name();
    };
    for (std::size_t step = 1; step < expected.size(); ++step) {
        Journey::keys("Tab");
        expectSoon(focused, expected[step]);
    }
    EXPECT_TRUE(editor.point(7).isSelected()) << "by the focus that came to its cells";
}

TEST(EditorJourneys, analogModeLeavesTheTaskLight) {
    const Editor editor("");
    const Journey& journey = editor.journey;
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    const UiElement cell = editor.cell(2, "Intensity");
    ASSERT_TRUE(journey.press("Programmed mode"));
    expectSoon([&] { return editor.curve.isEnabled() || cell.isEnabled(); }, false);
    EXPECT_EQ(editor.add.description(), "Not while the lamp follows its analog 1-10 V input");
    EXPECT_EQ(editor.count(), 0U);
    ASSERT_TRUE(journey.waitForCommand("CmdSetDeviceMode"));

    // The curve leads through a demo all the same.
    Journey::keys("ctrl+r");
    expectSoon([&] { return editor.curve.isFocused(); }, true);
    Journey::keys("Right space");
    ASSERT_TRUE(journey.waitForText("DEMO 08:30 PAUSED: press Space to go on"));
    EXPECT_FALSE(cell.isEnabled());
    Journey::keys("ctrl+r");
    expectSoon([&] { return editor.curve.isEnabled(); }, false);

    const UiElement duration = journey.find("spin button", "Task light duration");
    Editor::typeInto(duration, "256:00");
    expectSoon([&] { return duration.description(); },
               "Type minutes and seconds up to 255 min 59 s, for example 1:30.");

    Journey::keys("ctrl+z");
    expectSoon([&] { return editor.count(); }, 7U);
    ASSERT_TRUE(journey.waitForCommand("CmdSetDeviceMode", 2));
    EXPECT_TRUE(journey.controller("programMode").toBool());
}

} // namespace

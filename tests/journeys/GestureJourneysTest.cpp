#include "journeys/Journey.h"

#include <QFile>
#include <QJsonArray>

namespace {

/// The whole program as text, so that a gesture is seen to do what it does and nothing else.
class GestureJourneys : public testing::Test, protected Journey {
protected:
    void SetUp() override {
        curve = find("list", "Light program curve");
        expectSoon([&] { return curve.isFocused() && curve.screenRect().x() > 0; }, true);
        m_program = program();
    }

    /// Where a time and an intensity lie on the curve, for `hands`.
    std::string at(int hour, int minute, double intensity) const {
        const QRect view = curve.screenRect();
        const double day = (hour * 60 + minute) / 1440.0;
        return Journey::at(QPointF(view.left() + 60 + (view.width() - 120) * day,
                                   view.top() + 40 + (view.height() - 80) * (1.0 - intensity))
                               .toPoint());
    }
    /// The middle of the time tag of a point.
    std::string tag(int hour, int minute) const {
        return at(hour, minute, -22.0 / (curve.screenRect().height() - 80));
    }
    /// "08:30 0 100, 10:00 80 56": times, intensities and colour temperatures; the selected point
    /// with a star.
    std::string program() const {
        std::string text;
        for (const UiElement& point : curve.children()) {
            const QStringList words = QString::fromStdString(point.name())
                                          .remove(QLatin1Char(','))
                                          .split(QLatin1Char(' '));
            const auto word = [&](int index) { return words.value(index).toStdString(); };
            text += (text.empty() ? "" : ", ") + word(4) + ' ' + word(6) + ' ' + word(10) +
                    (point.isSelected() ? "*" : "");
        }
        return text;
    }
    static std::string withoutStar(std::string text) {
        std::erase(text, '*');
        return text;
    }
    /// Expects the gesture to put `after` in the place of `before`, and counts it as one step.
    void step(const std::string& gesture, const std::string& before, const std::string& after,
              std::source_location where = std::source_location::current()) {
        hands(gesture);
        expect(before, after, where);
        ++m_steps;
    }
    void expect(const std::string& before, const std::string& after,
                std::source_location where = std::source_location::current()) {
        std::string expected = withoutStar(m_program);
        const auto place = expected.find(before);
        ASSERT_NE(place, std::string::npos) << before << " in " << expected;
        expected.replace(place, before.size(), after);
        expectSoon([&] { return program(); }, expected, where);
        m_program = expected;
    }
    std::string undoEntry() const {
        const UiElement entry = front().find(
            [](const UiElement& element) { return element.name().starts_with("Undo"); },
            UiElement::Search::Hidden);
        return entry.name() + (entry.isEnabled() ? "" : ", disabled");
    }
    void undoEverything() {
        for (; m_steps > 0; --m_steps)
            hands("key ctrl+z");
        expectSoon([&] { return withoutStar(program()); }, start);
        ASSERT_TRUE(waitUntil([&] { return !title().ends_with('*'); }));
        EXPECT_EQ(undoEntry(), "Undo, disabled");
    }

    UiElement curve;
    const std::string start = "08:30 0 100, 10:00 80 56, 15:00 100 50, 20:00 80 56, 21:00 50 92, "
                              "22:30 15 100, 23:30 0 100";
    std::string m_program;
    int m_steps = 0;
};

TEST_F(GestureJourneys, handsOnTheCurve) {
    const std::string held = " mousedown 1 sleep 0.2 "; // a window manager holds a press back
    // Drags: plainly to the pointer, with Ctrl a tenth of the way, back by Escape.
    step(at(15, 0, 1.0) + held + at(15, 0, 0.7) + ' ' + at(15, 0, 0.5) + " mouseup 1",
         "15:00 100 50", "15:00 50 50*");
    step(at(15, 0, 0.5) + held + "keydown ctrl " + at(15, 0, 0.6) + ' ' + at(15, 0, 0.9) +
             " mouseup 1 keyup ctrl",
         "15:00 50 50", "15:00 54 50*");
    hands(at(15, 0, 0.54) + held + at(15, 0, 0.2));
    expect("15:00 54 50", "15:00 20 50*");
    hands("key Escape " + at(15, 0, 0.1) + " mouseup 1");
    expect("15:00 20 50", "15:00 54 50*");

    // The time tag of the selected point: past others, over taken minutes, far outside the day.
    step(tag(15, 0) + held + tag(14, 0) + ' ' + tag(9, 3) + " mouseup 1",
         "10:00 80 56, 15:00 54 50", "09:05 54 50*, 10:00 80 56");
    step(tag(9, 5) + held + tag(9, 30) + ' ' + tag(10, 1) + " mouseup 1",
         "09:05 54 50, 10:00 80 56", "10:00 80 56, 10:05 54 50*");
    step(tag(10, 5) + held + "keydown ctrl " + tag(11, 0) + ' ' + tag(10, 48) +
             " mouseup 1 keyup ctrl",
         "10:05 54 50", "10:48 54 50*");
    step(tag(10, 48) + held + tag(9, 0) + ' ' + Journey::at({0, 500}) + " mouseup 1",
         "08:30 0 100, 10:00 80 56, 10:48 54 50", "00:00 54 50*, 08:30 0 100, 10:00 80 56");
    hands(tag(0, 0) + held + tag(2, 0) + ' ' + tag(6, 0) + " key Escape mouseup 1");
    expect("00:00 54 50", "00:00 54 50*");

    // A menu or a demo in the middle of a drag ends it, and the tag goes on with its own point.
    step(at(10, 0, 0.8) + held + at(10, 0, 0.7) + " key Menu sleep 0.3 key Escape " +
             at(10, 0, 0.2) + " mouseup 1",
         "10:00 80 56", "10:00 70 56*");
    step("key Up", "10:00 70 56", "10:00 71 56*");
    hands("key Escape");
    expect("10:00 71 56", "10:00 71 56");
    step(at(10, 0, 0.71) + " click 1 " + tag(10, 0) + held + tag(11, 0) + " key Right " +
             tag(12, 0) + " mouseup 1",
         "10:00 71 56, 20:00 80 56", "12:00 71 56, 20:00 80 56*");
    hands("key ctrl+z ctrl+z ctrl+z");
    m_steps -= 3;
    expect("12:00 71 56", "10:00 80 56*");

    // A double click adds a point on the curve, and on a taken minute beside it.
    const std::string twice = " click --repeat 2 --delay 40 1";
    step(at(9, 14, 0.9) + twice, "08:30 0 100, ", "08:30 0 100, 09:15 40 78*, ");
    step(at(20, 0, 0.2) + twice, "20:00 80", "19:59 80 56*, 20:00 80");
    step(at(4, 12, 0.2) + " keydown ctrl" + twice + " keyup ctrl", "08:30 0",
         "04:12 27 75*, 08:30 0");

    // Undo and Delete in the middle of a drag end it.
    hands(at(10, 0, 0.8) + held + at(10, 0, 0.5) + " key ctrl+z " + at(10, 0, 0.3) + " mouseup 1");
    expect("10:00 80 56", "10:00 80 56*");
    step(at(10, 0, 0.8) + held + at(10, 0, 0.5) + " key Delete " + at(10, 0, 0.3) + " mouseup 1",
         "10:00 80 56, 19:59 80 56", "19:59 80 56*");
    undoEverything();
}

TEST_F(GestureJourneys, typedPastedAndWholeProgramsComeBackToTheSameFile) {
    const auto saveAs = [&](const QString& name) {
        EXPECT_TRUE(chooseMenu("Save As...") && chooseFile(file(name)));
        EXPECT_TRUE(waitForTitle("Aquelon - " + name.toStdString()));
        QFile saved(file(name));
        return saved.open(QIODevice::ReadOnly) ? saved.readAll() : QByteArray();
    };
    ASSERT_TRUE(waitForText("CONNECTED"));
    const QByteArray before = saveAs(QStringLiteral("before.sq"));

    // Fields at a point: by a double click, by F2, and refused.
    step(at(15, 0, 1.0) + " click --repeat 2 --delay 40 1 sleep 0.2 type --args 1 14.30",
         "15:00 100 50", "15:00 100 50*");
    --m_steps;
    step("key Tab type --args 1 62,5 key Tab type --args 1 +5 key Return", "15:00 100 50",
         "14:30 63 55*");
    hands("key F2 sleep 0.2 type --args 1 10 key Return");
    expectSoon([&] { return shows("Another point already has the time 10:00."); }, true);
    hands("key ctrl+a type --args 1 +30 key Return");
    expect("14:30 63 55", "15:00 63 55*");
    ++m_steps;

    // Menus: of a point, of a place, by the key.
    step(at(20, 0, 0.8) + " click 3 sleep 0.3 key d", "20:00 80 56, 21:00 50 92", "21:00 50 92*");
    step(at(18, 0, 0.2) + " click 3 sleep 0.3 key a", "21:00", "18:00 56 74*, 21:00");
    step("key Home Menu sleep 0.3 key d", "08:30 0 100, 10:00 80 56", "10:00 80 56*");

    // Cut and paste lose nothing, of one point and of all.
    step("key ctrl+x", "10:00 80 56, 15:00 63 55", "15:00 63 55*");
    step("key ctrl+v", "15:00", "10:00 80 56*, 15:00");
    const std::string all = m_program;
    step("key Escape ctrl+x", withoutStar(all), "");
    step("key ctrl+v", "", all);

    // A digit and the wheel on a slider.
    step("key Tab Tab Tab type --args 1 37 key Return", "10:00 80 56", "10:00 37 56*");
    const auto slider = [&] { return cell("10:00", "Intensity").screenRect().center(); };
    step(Journey::at(slider()) + " click 5 click 5", "10:00 37 56", "10:00 35 56*");

    step("key alt+e sleep 0.2 key h sleep 0.4 type --args 1 0:30 key Return",
         withoutStar(m_program),
         "00:00 0 100, 10:30 35 56*, 15:30 63 55, 18:30 56 74, 21:30 50 92, 23:00 15 100");
    step("key alt+e sleep 0.2 key i sleep 0.4 type --args 1 200 key Return", withoutStar(m_program),
         "00:00 0 100, 10:30 70 56*, 15:30 100 55, 18:30 100 74, 21:30 100 92, 23:00 30 100");
    undoEverything();
    EXPECT_EQ(saveAs(QStringLiteral("after.sq")), before);
}

TEST_F(GestureJourneys, keysOnTheCurve) {
    step("key Home Right Right Left Up Up Up Down shift+Down", "10:00 80 56", "10:00 72 56*");
    // The window manager of the journeys has its own use for Alt with Shift.
    step("key alt+Right alt+Right alt+Left", "10:00 72 56", "10:05 72 56*");
    keys("ctrl+z ctrl+shift+z ctrl+z ctrl+shift+z");
    expectSoon([&] { return undoEntry(); }, "Undo Move 10:00 to 10:05");
    step("key Insert", "15:00 100", "12:33 50 50*, 15:00 100");
    step("key Delete", "10:05 72 56, 12:33 50 50", "10:05 72 56*");
    // Quicker than any hand, and to the same program.
    std::string quick = "key --delay 0";
    for (int i = 0; i < 100; ++i)
        quick += i % 2 ? " ctrl+shift+z" : " ctrl+z";
    hands(quick);
    undoEverything();
}

TEST_F(GestureJourneys, theLampShowsWhatAnUndoChanges) {
    ASSERT_TRUE(waitForText("CONNECTED") && press("Live mode"));
    const auto lamp = [&] {
        const QJsonArray levels = controller("lamp").toArray();
        return std::to_string(levels.at(0).toInt()) + ' ' + std::to_string(levels.at(1).toInt());
    };
    hands("key Home Right");
    expectSoon(lamp, "246 241");
    hands("key shift+Down shift+Down");
    expectSoon(lamp, "235 230");
    click(placeOn(find("slider", "Task light intensity"), 0.25));
    expectSoon(lamp, "203 203");
    hands("key ctrl+z");
    expectSoon(lamp, "254 254");
    hands("key ctrl+z");
    expectSoon(lamp, "246 241");
}

} // namespace

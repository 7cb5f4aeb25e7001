#include "controls/AQTimeDurationEdit.h"
#include "controls/AQTimeEdit.h"
#include "controls/RecordingDelegate.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace {

struct TimeEditTest : ::testing::Test {
    RecordingDelegate delegate;
    QWidget window;
    AQTimeEdit edit{&window};
    AQTimeDurationEdit duration{&window};

    TimeEditTest() {
        window.resize(300, 120);
        edit.setGeometry(0, 0, 120, 30);
        duration.setGeometry(0, 40, 120, 30);
        edit.setDelegate(&delegate);
        duration.setDelegate(&delegate);
        edit.setTime({7, 30, 0});
        duration.setTime({0, 1, 0});
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        focus(duration);
        focus(edit);
    }

    static void focus(AQTimeValueView& view) { view.setFocus(Qt::TabFocusReason); }
    static QWidget* field() { return QApplication::focusWidget(); }
    static QString shown(const AQTimeValueView& view) {
        return view.findChild<QLineEdit*>()->text();
    }
    static void type(const char* text) { QTest::keyClicks(field(), QString::fromLatin1(text)); }
    static void press(Qt::Key key) { QTest::keyClick(field(), key); }
};

TEST_F(TimeEditTest, typedTextIsADraftUntilEnterOrTheLossOfFocus) {
    QSignalSpy announced(&edit, &AQTimeValueView::timeChanged);
    type("0705");
    EXPECT_EQ(edit.time(), (AQTime{7, 30, 0}));
    EXPECT_TRUE(delegate.asked.empty());
    press(Qt::Key_Return);
    EXPECT_EQ(edit.time(), (AQTime{7, 5, 0}));
    EXPECT_EQ(shown(edit), QStringLiteral("07:05"));
    type("9");
    press(Qt::Key_Tab);
    EXPECT_EQ(edit.time(), (AQTime{9, 0, 0}));
    ASSERT_EQ(delegate.changes.size(), 2U);
    EXPECT_EQ(delegate.changes.back().value<AQTime>(), (AQTime{9, 0, 0}));
    EXPECT_EQ(announced.count(), 2);
}

TEST_F(TimeEditTest, keysAndWheelStepTheSectionUnderTheCaret) {
    press(Qt::Key_Up);
    EXPECT_EQ(edit.time(), (AQTime{8, 30, 0}));
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    EXPECT_EQ(edit.time(), (AQTime{8, 29, 0}));
    press(Qt::Key_Left);
    press(Qt::Key_Down);
    EXPECT_EQ(edit.time(), (AQTime{7, 29, 0}));

    const auto turn = [](QWidget* target) {
        QWheelEvent event(QPointF(5, 5), target->mapToGlobal(QPointF(5, 5)), {}, {0, 120},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(target, &event);
    };
    QWidget* timeField = field();
    turn(timeField);
    EXPECT_EQ(edit.time(), (AQTime{8, 29, 0}));
    focus(duration);
    turn(timeField);
    EXPECT_EQ(edit.time(), (AQTime{8, 29, 0})) << "scrolling past an unfocused editor";
}

TEST_F(TimeEditTest, typingGoesOnFromACompleteHourToTheMinutes) {
    press(Qt::Key_Up); // selects the hour alone
    type("1245");
    press(Qt::Key_Return);
    EXPECT_EQ(edit.time(), (AQTime{12, 45, 0}));
}

TEST_F(TimeEditTest, aRefusedTimeIsShownAsSuchAndTheOldOneKept) {
    delegate.verdict = [](const QVariant& value) { return value.value<AQTime>().hour != 12; };
    QSignalSpy refused(&edit, &AQTimeValueView::refused);
    type("12");
    press(Qt::Key_Return);
    EXPECT_EQ(edit.time(), (AQTime{7, 30, 0}));
    EXPECT_EQ(shown(edit), QStringLiteral("07:30"));
    EXPECT_TRUE(edit.showsRefusal());
    EXPECT_TRUE(delegate.changes.empty());
    ASSERT_EQ(refused.count(), 1);
    const QString reason = QStringLiteral("Another point already has the time 12:00.");
    EXPECT_EQ(refused.at(0).at(0).toString(), reason);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QToolTip::text() == reason; }));

    edit.setTime({11, 30, 0});
    press(Qt::Key_Up);
    EXPECT_EQ(edit.time(), (AQTime{11, 30, 0})) << "a step is refused alike";
    type("8");
    EXPECT_FALSE(edit.showsRefusal()) << "typing on ends the complaint";
    press(Qt::Key_Return);
    EXPECT_EQ(edit.time(), (AQTime{8, 30, 0}));
}

TEST_F(TimeEditTest, theReasonStaysInSightWhenTheFocusGoesOn) {
    type("99");
    press(Qt::Key_Tab);
    EXPECT_TRUE(edit.showsRefusal());
    EXPECT_TRUE(duration.isWindowFocus());
    EXPECT_TRUE(QTest::qWaitFor(
        [] { return QToolTip::isVisible() && QToolTip::text().contains(QLatin1String("07:30")); }));
}

TEST_F(TimeEditTest, nonsenseKeepsTheLastValueWithoutAskingAnyone) {
    QSignalSpy refused(&edit, &AQTimeValueView::refused);
    for (const char* text : {"noon", "25:00", "7:75"}) {
        type(text);
        press(Qt::Key_Return);
        EXPECT_EQ(shown(edit), QStringLiteral("07:30")) << text;
    }
    EXPECT_EQ(refused.count(), 3);
    EXPECT_TRUE(delegate.asked.empty());
}

TEST_F(TimeEditTest, escapeDropsTheDraftAndOnlyThenLeavesTheKeyToTheWindow) {
    type("12");
    press(Qt::Key_Escape);
    EXPECT_EQ(shown(edit), QStringLiteral("07:30"));
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(field(), &escape);
    EXPECT_FALSE(escape.isAccepted());
    focus(duration);
    EXPECT_TRUE(delegate.asked.empty());
}

TEST_F(TimeEditTest, theSameTimeAsksAndReportsNothing) {
    edit.setTime({7, 30, 15});
    type("7:30");
    press(Qt::Key_Return);
    EXPECT_TRUE(delegate.asked.empty());
    EXPECT_EQ(edit.time(), (AQTime{7, 30, 15}));
}

TEST_F(TimeEditTest, aProgrammaticSetIsLimitedAndReportsNothing) {
    edit.setObjectValue(QVariant::fromValue(AQTime{9, 15, 0}));
    edit.setObjectValue(QStringLiteral("10:00"));
    EXPECT_EQ(edit.time(), (AQTime{9, 15, 0}));
    duration.setTime({9, 0, 0});
    EXPECT_EQ(duration.time(), (AQTime{4, 15, 59}));
    EXPECT_TRUE(delegate.asked.empty());
    EXPECT_TRUE(delegate.changes.empty());
}

TEST_F(TimeEditTest, theDelegateMayMoveTheEditorToAnotherTimeWhileItReports) {
    QObject::connect(&edit, &AQTimeValueView::timeChanged, &edit, [this] {
        edit.setTime({1, 2, 0});
    });
    type("8");
    press(Qt::Key_Return);
    EXPECT_EQ(shown(edit), QStringLiteral("01:02"));
}

TEST_F(TimeEditTest, theDurationIsEditedInMinutesAndSeconds) {
    focus(duration);
    EXPECT_EQ(shown(duration), QStringLiteral("1 min 00 s"));
    press(Qt::Key_Up);
    EXPECT_EQ(duration.time(), (AQTime{0, 2, 0}));
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    EXPECT_EQ(duration.time(), (AQTime{0, 1, 59}));
    QTest::keyClick(field(), Qt::Key_A, Qt::ControlModifier);
    type("255:59");
    press(Qt::Key_Return);
    EXPECT_EQ(duration.time(), (AQTime{4, 15, 59}));
    press(Qt::Key_Up);
    EXPECT_EQ(duration.time(), (AQTime{4, 15, 59}));
}

TEST_F(TimeEditTest, focusIsReportedAndTheInnerFieldBearsTheName) {
    edit.setAccessibleName(QStringLiteral("Time of point 3"));
    focus(duration);
    delegate.focused.clear();
    focus(edit);
    EXPECT_EQ(delegate.focused, (std::vector<const AQValueView*>{&edit}));
    EXPECT_TRUE(edit.isWindowFocus());
    EXPECT_EQ(field()->accessibleName(), QStringLiteral("Time of point 3"));
}

} // namespace

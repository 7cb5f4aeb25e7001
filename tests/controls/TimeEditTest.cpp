#include "controls/AQTimeDurationEdit.h"
#include "controls/AQTimeEdit.h"
#include "controls/RecordingDelegate.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace {

struct TimeEditTest : ::testing::Test {
    RecordingDelegate delegate;
    QWidget window;
    AQTimeEdit edit{&window};
    AQTimeDurationEdit duration{&window};

    TimeEditTest() {
        duration.setGeometry(0, 40, 120, 30);
        edit.setDelegate(&delegate);
        duration.setDelegate(&delegate);
        edit.setTime({7, 30, 0});
        duration.setTime({0, 1, 0});
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        duration.setFocus(Qt::TabFocusReason);
        edit.setFocus(Qt::TabFocusReason); // selects the text
    }

    static QWidget* field() { return QApplication::focusWidget(); }
    QString shown() const { return edit.findChild<QLineEdit*>()->text(); }
    static void type(const char* text, Qt::Key end = Qt::Key_Return) {
        QTest::keyClicks(field(), QString::fromLatin1(text));
        QTest::keyClick(field(), end);
    }
    static void press(std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys)
            QTest::keyClick(field(), key);
    }
};

TEST_F(TimeEditTest, typedTextIsADraftUntilEnterOrTheLossOfFocus) {
    QTest::keyClicks(field(), QStringLiteral("0705"));
    EXPECT_EQ(edit.time(), (AQTime{7, 30, 0}));
    EXPECT_TRUE(delegate.asked.empty());
    press({Qt::Key_Return});
    EXPECT_EQ(edit.time(), (AQTime{7, 5, 0}));
    EXPECT_EQ(shown(), QStringLiteral("07:05"));
    type("12", Qt::Key_Escape);
    EXPECT_EQ(shown(), QStringLiteral("07:05"));
    type("7:05");
    EXPECT_EQ(delegate.asked.size(), 1U) << "the same time asks nothing";
    press({Qt::Key_Up}); // selects the hour alone; typing goes on to the minutes
    type("0945", Qt::Key_Tab);
    EXPECT_TRUE(duration.isWindowFocus());
    ASSERT_EQ(delegate.changes.size(), 3U);
    EXPECT_EQ(delegate.changes.back().value<AQTime>(), (AQTime{9, 45, 0}));
}

TEST_F(TimeEditTest, keysAndWheelStepTheSectionUnderTheCaret) {
    press({Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Down, Qt::Key_Down});
    EXPECT_EQ(edit.time(), (AQTime{6, 29, 0}));

    QWheelEvent wheel(QPointF(5, 5), field()->mapToGlobal(QPointF(5, 5)), {}, {0, 120},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QWidget* timeField = field();
    QCoreApplication::sendEvent(timeField, &wheel);
    EXPECT_EQ(edit.time(), (AQTime{7, 29, 0}));
    duration.setFocus(Qt::TabFocusReason);
    QCoreApplication::sendEvent(timeField, &wheel);
    EXPECT_EQ(edit.time(), (AQTime{7, 29, 0})) << "scrolling past an unfocused editor";
    press({Qt::Key_Up, Qt::Key_Right, Qt::Key_Down});
    EXPECT_EQ(duration.time(), (AQTime{0, 1, 59}));
}

TEST_F(TimeEditTest, aRefusedTimeIsShownAsSuchAndTheOldOneKept) {
    delegate.verdict = [](const QVariant& value) { return value.value<AQTime>().hour != 12; };
    QSignalSpy refused(&edit, &AQTimeValueView::refused);
    type("12");
    EXPECT_EQ(shown(), QStringLiteral("07:30"));
    EXPECT_TRUE(edit.showsRefusal());
    EXPECT_TRUE(delegate.changes.empty());
    ASSERT_EQ(refused.count(), 1);
    EXPECT_EQ(refused.at(0).at(0).toString(),
              QStringLiteral("Another point already has the time 12:00."));

    edit.setTime({11, 30, 0});
    press({Qt::Key_Up});
    EXPECT_EQ(edit.time(), (AQTime{11, 30, 0})) << "a step is refused alike";
    type("8");
    EXPECT_EQ(edit.time(), (AQTime{8, 30, 0}));

    delegate.asked.clear();
    type("noon");
    type("99", Qt::Key_Tab);
    EXPECT_EQ(shown(), QStringLiteral("08:30"));
    EXPECT_EQ(refused.count(), 4) << "nonsense keeps the last value";
    EXPECT_TRUE(delegate.asked.empty()) << "without asking anyone";
    EXPECT_TRUE(edit.showsRefusal()) << "also when the focus goes on";
}

} // namespace

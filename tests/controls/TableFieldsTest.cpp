#include "controls/AQValueView.h"
#include "controls/points/AQPointList.h"
#include "controls/points/AQPointRow.h"
#include "controls/sliders/SliderField.h"
#include "data/AQDataSource.h"
#include "data/History.h"
#include "data/PointColumn.h"

#include <QAction>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// A table of two rows before another field, in a window that has the focus and whose actions have
/// the usual keys.
struct TableFields : ::testing::Test {
    NotificationCenter notifications;
    AQDataSource document{notifications};
    QWidget window;
    AQPointList list{document.sequence(), document.selection(), &window};
    QLineEdit before{&window};
    int turns = 0;
    std::string heard; ///< what the window's actions did

    TableFields() {
        document.sequence().replacePoints(
            {{.time = {8, 0, 0}, .brightness = 0.2}, {.time = {9, 0, 0}, .brightness = 0.3}});
        document.sequence().notifyDataChange(nullptr, false);
        document.history().restart();
        const QList keys{QKeySequence::Undo, QKeySequence::Redo, QKeySequence::Copy,
                         QKeySequence::Cut, QKeySequence::Paste};
        for (const auto key : keys) {
            auto* action = new QAction(&window);
            action->setShortcuts(key);
            window.addAction(action);
            const char letter = "URCXV"[keys.indexOf(key)];
            QObject::connect(action, &QAction::triggered, &window,
                             [this, letter] { heard += letter; });
        }
        QObject::connect(&list, &AQPointList::deleteRequested, &window,
                         [this] { heard += 'D' + std::to_string(list.selectedRow()); });
        list.resize(800, 300);
        list.setTabAnchor(before);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        list.focusEditor(0, PointColumn::brightness, Qt::TabFocusReason);
        QObject::connect(&notifications, &NotificationCenter::sectionChanged, &window,
                         [this] { ++turns; });
    }
    AQValueView& slider() { return list.rowAt(0)->editor(PointColumn::brightness); }
    double brightness() const { return document.sequence().at(0).brightness; }
    void type(const char* text) {
        for (; *text; ++text)
            QTest::keyClick(window.focusWidget(), *text);
    }
    std::string press(const char* keys) {
        heard.clear();
        for (const QString& key : QString::fromLatin1(keys).split(u' ')) {
            const QKeyCombination combination = QKeySequence(key)[0];
            QTest::keyClick(window.focusWidget(), combination.key(),
                            combination.keyboardModifiers());
        }
        return heard;
    }
    bool isOpen() {
        const auto* field = slider().findChild<SliderField*>();
        return field && field->isVisible();
    }
};

TEST_F(TableFields, aTypedValueIsKeptOrDroppedAsItIsLeft) {
    const struct {
        const char* text;
        double value;
        bool isOpen;
        int focusedRow;
    } table[] = {{"45\r", 0.45, false, 0},      {",5\r", 0.005, false, 0}, {"+5\r", 0.25, false, 0},
                 {"-2.5 %\r", 0.175, false, 0}, {"-90\r", 0.0, false, 0},  {"7\x1b", 0.2, false, 0},
                 {"120\r", 0.2, true, 0},       {"4\b\r", 0.2, false, 0},  {"9\t", 0.09, false, 1},
                 {"--\t", 0.2, false, 1}};
    for (const auto& [text, value, isLeftOpen, row] : table) {
        document.history().restart();
        type(text);
        EXPECT_DOUBLE_EQ(brightness(), value) << text;
        EXPECT_EQ(isOpen(), isLeftOpen) << text;
        EXPECT_EQ(document.history().canUndo(), value != 0.2) << text;
        EXPECT_GE(list.rowAt(row)->focusedColumn(), 0) << text;
        if (isLeftOpen)
            type("\x1b");
        if (document.history().canUndo())
            document.history().undo();
        EXPECT_DOUBLE_EQ(brightness(), 0.2) << text << " is one step";
        list.focusEditor(0, PointColumn::brightness, Qt::TabFocusReason);
    }
}

TEST_F(TableFields, theRowHasTheFocusMeanwhileAndTurnsToNobody) {
    type("5");
    EXPECT_EQ(list.rowAt(0)->focusedColumn(), PointColumn::brightness);
    QTest::keyClick(window.focusWidget(), Qt::Key_Up);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(brightness(), 0.2) << "the slider beneath heard the key";
    type("\x1b");
    EXPECT_EQ(turns, 0) << "the focus never left";

    // Another point is selected, and then this one goes.
    type("5");
    document.selection().select(document.sequence().idAt(1), nullptr);
    EXPECT_EQ(document.selection().row(), 1);
    EXPECT_DOUBLE_EQ(brightness(), 0.05);
    list.focusEditor(0, PointColumn::brightness, Qt::TabFocusReason);
    type("8");
    document.sequence().deleteWithRow(0, nullptr);
    EXPECT_EQ(document.selection().row(), 0);
    EXPECT_DOUBLE_EQ(brightness(), 0.3);
    type("9");
    slider().setEnabled(false);
    EXPECT_DOUBLE_EQ(brightness(), 0.3);
    EXPECT_FALSE(isOpen());
}

TEST_F(TableFields, theWindowHasThoseThatNothingTypedNeeds) {
    constexpr auto keys = "Ctrl+C Ctrl+X Ctrl+V Ctrl+Z Ctrl+Shift+Z Delete";
    for (int column = 0; column < PointColumn::count; ++column) {
        list.focusEditor(1, column, Qt::TabFocusReason);
        EXPECT_EQ(press(keys), "CXVURD1") << column;
    }
    list.focusEditor(1, PointColumn::time, Qt::TabFocusReason);
    EXPECT_EQ(press("1 Ctrl+A Ctrl+X Ctrl+V Delete 9 Ctrl+Z"), "");
    EXPECT_EQ(press("Escape Ctrl+Z Delete"), "UD1");
    EXPECT_FALSE(document.history().canUndo());
}

TEST_F(TableFields, aTypedTimeIsAStepOfItsOwnAndStepKeysAreOne) {
    list.focusEditor(1, PointColumn::time, Qt::TabFocusReason);
    press("Up Up Ctrl+A 1 6 0 5 Return Ctrl+A 1 6 0 6 Return Up Up");
    std::string times;
    while (document.history().canUndo()) {
        document.history().undo();
        const AQTime time = document.sequence().at(1).time;
        times += std::to_string(time.minuteOfDay()) + ' ';
    }
    EXPECT_EQ(times, "966 965 660 540 ");
}

} // namespace

#include "controls/sliders/SliderField.h"
#include "controls/AQValueView.h"
#include "controls/points/AQPointList.h"
#include "controls/points/AQPointRow.h"
#include "data/AQDataSource.h"
#include "data/History.h"
#include "data/PointColumn.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// A table of two rows before another field, in a window that has the focus.
struct SliderFields : ::testing::Test {
    NotificationCenter notifications;
    AQDataSource document{notifications};
    QWidget window;
    AQPointList list{document.sequence(), document.selection(), &window};
    QLineEdit before{&window};
    int turns = 0;

    SliderFields() {
        document.sequence().replacePoints(
            {{.time = {8, 0, 0}, .brightness = 0.2}, {.time = {9, 0, 0}, .brightness = 0.3}});
        document.sequence().notifyDataChange(nullptr, false);
        document.history().restart();
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
    bool isOpen() {
        const auto* field = slider().findChild<SliderField*>();
        return field && field->isVisible();
    }
};

TEST_F(SliderFields, aTypedValueIsKeptOrDroppedAsItIsLeft) {
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

TEST_F(SliderFields, theRowHasTheFocusMeanwhileAndTurnsToNobody) {
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

} // namespace

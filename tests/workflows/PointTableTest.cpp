#include "workflows/PointTable.h"
#include "controls/AQSliderBrightness.h"
#include "controls/AQSliderColorTemp.h"
#include "controls/AQTimeEdit.h"
#include "data/AQDataSource.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

namespace {

class PointTableTest : public testing::Test {
protected:
    template <class Control>
    Control& cell(int row, int column) {
        auto* control =
            dynamic_cast<Control*>(m_view.indexWidget(m_view.model()->index(row, column)));
        EXPECT_TRUE(control);
        return *control;
    }
    void enterTime(int row, const char* text) {
        auto* field = cell<AQTimeEdit>(row, 0).findChild<QLineEdit*>();
        field->selectAll();
        QTest::keyClicks(field, QLatin1String(text));
        QTest::keyClick(field, Qt::Key_Return);
    }
    bool settlesAt(int row) {
        return QTest::qWaitFor([&] { return m_table.selectedRow() == row; }, 1000);
    }

    NotificationCenter m_notifications;
    AQDataSource m_data{m_notifications};
    QTableView m_view;
    QPushButton m_add;
    QPushButton m_delete;
    QAction m_menuAdd;
    QAction m_menuDelete;
    PointTable m_table{m_data, {m_view, m_add, m_delete, m_menuAdd, m_menuDelete}};
    QSignalSpy m_sections{&m_notifications, &NotificationCenter::sectionChanged};
};

TEST_F(PointTableTest, cellsEditTheirPointAndFollowTheDocument) {
    cell<AQSliderBrightness>(2, 2).userSetValue(0.25);
    cell<AQSliderColorTemp>(2, 1).userSetValue(0.75);
    EXPECT_EQ(m_data.sequence().at(2), (AQTimePoint{{15, 0, 0}, 0.75, 0.25}));
    EXPECT_EQ(cell<AQSliderColorTemp>(2, 1).maxValue(), 0.25);
    EXPECT_TRUE(m_data.isDirty());
    // Values that come from the document are no edits: loading must not mark it dirty.
    m_table.onTableItemAdd();
    m_data.setIsDirty(false);
    m_data.loadDefaults();
    EXPECT_FALSE(m_data.isDirty());
    EXPECT_EQ(cell<AQSliderBrightness>(2, 2).value(), 1.0);
    EXPECT_EQ(m_data.sequence().at(2).brightness, 1.0);
}

TEST_F(PointTableTest, takenTimeIsRefusedAndAPointThatPassesItsNeighboursStaysSelected) {
    m_view.selectRow(1);
    enterTime(1, "15:00");
    EXPECT_EQ(m_data.sequence().at(1).time, (AQTime{10, 0, 0}));
    EXPECT_FALSE(m_data.isDirty());
    enterTime(1, "21:30");
    EXPECT_TRUE(settlesAt(4));
    EXPECT_EQ(cell<AQTimeEdit>(4, 0).time(), (AQTime{21, 30, 0}));
    EXPECT_EQ(cell<AQTimeEdit>(1, 0).time(), (AQTime{15, 0, 0}));
}

TEST_F(PointTableTest, selectionIsSharedBothWays) {
    m_view.selectRow(3);
    EXPECT_EQ(m_sections.last().at(0), 3);
    EXPECT_TRUE(m_delete.isEnabled());
    const auto announced = m_sections.size();
    m_data.sequence().notifySelectionChange(5, nullptr);
    EXPECT_EQ(m_table.selectedRow(), 5);
    m_data.sequence().notifySelectionChange(-1, nullptr);
    EXPECT_EQ(m_table.selectedRow(), -1);
    EXPECT_FALSE(m_delete.isEnabled());
    EXPECT_EQ(m_sections.size(), announced + 2) << "following is not announced again";
    m_table.aqGotFocus(cell<AQSliderBrightness>(2, 2));
    EXPECT_EQ(m_sections.last().at(0), 2);
}

TEST_F(PointTableTest, addsUntilTheLimitAndDeletesUntilEmpty) {
    for (int count = 8; count <= 20; ++count) {
        EXPECT_TRUE(m_add.isEnabled());
        m_view.clearSelection();
        m_add.click();
        EXPECT_TRUE(settlesAt(7)) << "the latest free minute lies before the points added so far";
        EXPECT_EQ(m_data.sequence().count(), count);
    }
    EXPECT_FALSE(m_add.isEnabled());
    EXPECT_FALSE(m_menuAdd.isEnabled());
    EXPECT_TRUE(m_menuAdd.toolTip().contains(QLatin1String("20")));

    m_view.selectRow(19);
    for (int count = 19; count >= 0; --count) {
        m_delete.click();
        EXPECT_EQ(m_data.sequence().count(), count);
        EXPECT_TRUE(settlesAt(count - 1)) << "the next row, or the last, is selected";
    }
    EXPECT_FALSE(m_delete.isEnabled());
    EXPECT_TRUE(m_add.isEnabled());
}

TEST_F(PointTableTest, disabledEditingDisablesEverything) {
    m_view.selectRow(1);
    m_table.setEditingEnabled(false);
    EXPECT_FALSE(m_add.isEnabled());
    EXPECT_FALSE(m_menuDelete.isEnabled());
    EXPECT_FALSE(cell<AQSliderBrightness>(1, 2).isEnabled());
    m_table.onTableItemAdd();
    m_table.onTableItemDelete();
    EXPECT_EQ(m_data.sequence().count(), 7);
    m_table.setEditingEnabled(true);
    EXPECT_TRUE(cell<AQSliderBrightness>(6, 2).isEnabled());
}

} // namespace

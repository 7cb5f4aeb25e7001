#include "controls/CurveFixture.h"

#include <QAccessible>

#include <memory>

namespace {

class CurveAccessibility : public CurveFixture {
protected:
    QAccessibleInterface* list() { return QAccessible::queryAccessibleInterface(&view); }
};

} // namespace

TEST_F(CurveAccessibility, IsAListOfItsPoints) {
    EXPECT_EQ(list()->role(), QAccessible::List);
    EXPECT_EQ(list()->text(QAccessible::Name), QStringLiteral("Light program curve"));
    ASSERT_EQ(list()->childCount(), 7);
    QAccessibleInterface* third = list()->child(2);
    EXPECT_EQ(third->role(), QAccessible::ListItem);
    EXPECT_EQ(third->text(QAccessible::Name),
              QStringLiteral("Point 3 of 7, 15:00, intensity 100 %, colour temperature 50 %"));
    EXPECT_EQ(list()->indexOfChild(third), 2);
    EXPECT_EQ(third->parent()->object(), &view);
    EXPECT_EQ(list()->child(7), nullptr);

    view.setEnabled(false);
    EXPECT_EQ(list()->childCount(), 0);
}

TEST_F(CurveAccessibility, TellsSelectionFocusAndChanges) {
    view.activateWindow();
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_EQ(list()->focusChild()->object(), point(0));
    EXPECT_TRUE(list()->child(0)->state().selected);
    EXPECT_TRUE(list()->child(0)->state().focused);
    EXPECT_FALSE(list()->child(1)->state().selected);

    QTest::keyClick(&view, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(list()->child(0)->text(QAccessible::Name),
              QStringLiteral("Point 1 of 7, 08:30, intensity 10 %, colour temperature 100 %"));
}

TEST_F(CurveAccessibility, LetsAssistiveProgramsSelectAndEdit) {
    QAccessibleInterface* item = list()->child(4);
    item->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(view.selectedRow(), 4);
    EXPECT_EQ(selections, (std::vector<Selection>{{4, &view}}));
    EXPECT_EQ(item->valueInterface()->currentValue().toInt(), 50);
    item->valueInterface()->setCurrentValue(250);
    EXPECT_EQ(brightness(4), 1.0);
    EXPECT_FALSE(view.pointPopover().isVisible());
}

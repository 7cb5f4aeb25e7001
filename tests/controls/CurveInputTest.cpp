#include "controls/CurveFixture.h"

#include <QDialog>
#include <QMouseEvent>

namespace {

class CurveInput : public CurveFixture {
protected:
    static constexpr QPoint middle{12, 12};

    double brightness(int row) const { return document.sequence().at(row).brightness; }
    void press(int row) { QTest::mousePress(point(row), Qt::LeftButton, {}, middle); }
    /// Moves the pointer, pressed on a point, to a height of the view.
    void dragTo(int row, int y) {
        const QPoint place(point(row)->geometry().center().x(), y);
        QMouseEvent move(QEvent::MouseMove, point(row)->mapFrom(&view, place),
                         view.mapToGlobal(place), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(point(row), &move);
    }
    void release(int row, QPoint place = middle) {
        QTest::mouseRelease(point(row), Qt::LeftButton, {}, place);
    }
};

} // namespace

TEST_F(CurveInput, PopoverFollowsHoverPressAndPoint) {
    auto& popover = view.pointPopover();
    QEnterEvent enter(middle, middle, point(3)->mapToGlobal(middle));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(point(3), &enter);
    EXPECT_EQ(popover.value(), document.sequence().at(3));
    EXPECT_FALSE(popover.placement().frame.contains(point(3)->mapTo(&window, middle)));
    press(3);
    QCoreApplication::sendEvent(point(3), &leave);
    EXPECT_TRUE(popover.isVisible());
    release(3, QPoint(100, 100));
    EXPECT_FALSE(popover.isVisible());

    view.onPointHover(point(1));
    show({});
    EXPECT_FALSE(popover.isVisible());
}

TEST_F(CurveInput, TwoCurvesSideBySideHaveEachTheirOwn) {
    NotificationCenter center;
    AQDataSource other{center};
    const AQCurveView beside(other.sequence(), other.selection(), &window);
    press(1);
    dragTo(1, 240);
    EXPECT_TRUE(point(1)->isSelected() && !beside.selectedPoint());
    EXPECT_EQ(other.sequence().at(1).brightness, 0.8);
}

TEST_F(CurveInput, AMessageEndsTheDragWhoseReleaseItTakes) {
    press(1);
    dragTo(1, 240);
    QDialog message(&window);
    message.open();
    message.close();
    EXPECT_FALSE(view.pointPopover().isPresented());
    dragTo(1, 120);
    EXPECT_NEAR(brightness(1), 0.5, 1e-12);
}

TEST_F(CurveInput, AltWithShiftMovesByMinutesOverTakenOnes) {
    show({{{23, 56}}, {{23, 57}}});
    select(0);
    for (const auto& [key, minute] : {std::pair(Qt::Key_Right, 58),
                                      {Qt::Key_Right, 59},
                                      {Qt::Key_Right, 59},
                                      {Qt::Key_Left, 58}}) {
        QTest::keyClick(&view, key, Qt::AltModifier | Qt::ShiftModifier);
        EXPECT_EQ(document.sequence().at(1).time, (AQTime{23, minute}));
    }
}

TEST_F(CurveInput, WhatIsNotOnScreenIsNotEdited) {
    select(1);
    view.setPlayheadTime(AQTime{10, 0, 15});
    EXPECT_EQ(view.pointPopover().value().time, (AQTime{10, 0, 15}));
    EXPECT_DOUBLE_EQ(view.playheadBrightness(), 0.8);
    QTest::keyClick(&view, Qt::Key_Up);
    EXPECT_EQ(brightness(1), 0.8);
    view.setPlayheadTime({});
    EXPECT_FALSE(view.pointPopover().isVisible());
    EXPECT_TRUE(point(1)->isSelected());

    // Disabled in the middle of a drag.
    QObject::connect(&notifications, &NotificationCenter::cellChanged, &view,
                     [this] { view.setEnabled(false); });
    press(1);
    dragTo(1, 200);
    EXPECT_TRUE(view.pointViews().empty());
}

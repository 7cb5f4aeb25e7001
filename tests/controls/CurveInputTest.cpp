#include "controls/CurveFixture.h"

#include <QMouseEvent>
#include <QSignalSpy>

namespace {

class CurveInput : public CurveFixture {
protected:
    static constexpr QPoint middle{12, 12};

    /// What the view has announced, the first argument of each signal.
    std::vector<int> announced(const QSignalSpy& spy) const {
        std::vector<int> rows;
        for (const QList<QVariant>& signal : spy)
            if (signal.last().value<const QObject*>() == &view)
                rows.push_back(signal.first().toInt());
        return rows;
    }
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
    void keys(std::initializer_list<Qt::Key> keys, Qt::KeyboardModifiers modifiers = {}) {
        for (const Qt::Key key : keys)
            QTest::keyClick(&view, key, modifiers);
    }

    QSignalSpy cells{&notifications, &NotificationCenter::cellChanged};
    QSignalSpy selections{&notifications, &NotificationCenter::sectionChanged};
};

} // namespace

TEST_F(CurveInput, ClickSelectsAndEmptySpaceLetsGo) {
    const auto before = document.sequence().points();
    press(2);
    dragTo(2, point(2)->geometry().center().y() + 2);
    release(2);
    press(4);
    release(4);
    EXPECT_FALSE(point(2)->isSelected());
    EXPECT_TRUE(point(4)->isSelected());
    QTest::mousePress(point(1), Qt::RightButton, {}, middle);
    QTest::mouseRelease(point(1), Qt::RightButton, {}, middle);
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(200, 100));
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(200, 100));
    EXPECT_FALSE(point(4)->isSelected());
    EXPECT_EQ(announced(selections), (std::vector<int>{2, 4, -1}));
    EXPECT_EQ(document.sequence().points(), before);
    EXPECT_FALSE(document.isDirty());
}

TEST_F(CurveInput, DragSetsTheIntensityAlone) {
    const std::pair<int, double> steps[] = {{130, 0.775}, {240, 0.5}, {340, 0.25},
                                            {120, 0.8},   {-50, 1.0}, {900, 0.0}};
    const AQTime time = document.sequence().at(1).time;
    press(1);
    for (const auto& [y, expected] : steps) {
        cells.clear();
        dragTo(1, y);
        EXPECT_NEAR(brightness(1), expected, 1e-12);
        EXPECT_EQ(announced(cells), (std::vector<int>{1, 1})) << "columns 1 and 2";
        EXPECT_TRUE(view.pointPopover().isVisible());
        EXPECT_EQ(view.pointPopover().value().brightness, brightness(1));
    }
    EXPECT_EQ(document.sequence().at(1).time, time);
    EXPECT_TRUE(document.isDirty());
    release(1);
    dragTo(1, 200);
    EXPECT_EQ(brightness(1), 0.0) << "the pointer that only passes over is no drag";
}

TEST_F(CurveInput, PopoverFollowsHoverPressAndPoint) {
    auto& popover = view.pointPopover();
    QEnterEvent enter(middle, middle, point(3)->mapToGlobal(middle));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(point(3), &enter);
    EXPECT_EQ(popover.value(), document.sequence().at(3));
    EXPECT_FALSE(popover.placement().frame.contains(point(3)->mapToGlobal(middle)));
    QCoreApplication::sendEvent(point(3), &leave);
    EXPECT_FALSE(popover.isVisible());
    QCoreApplication::sendEvent(point(3), &enter);
    press(3);
    QCoreApplication::sendEvent(point(3), &leave);
    EXPECT_TRUE(popover.isVisible());
    release(3, QPoint(100, 100));
    EXPECT_FALSE(popover.isVisible());

    view.onPointHover(point(1));
    const QPoint before = popover.pos();
    document.sequence().updateWithRow(1, AQSequence::Brightness{0.4}, nullptr);
    EXPECT_EQ(popover.pos(), before + QPoint(0, 160));
    show({});
    EXPECT_FALSE(popover.isVisible());
}

TEST_F(CurveInput, FollowsTheChangesOfOthersOnly) {
    AQSequence& sequence = document.sequence();
    sequence.notifySelectionChange(5, nullptr);
    EXPECT_TRUE(point(5)->isSelected());
    sequence.notifySelectionChange(7, nullptr);
    sequence.notifySelectionChange(1, &view);
    EXPECT_EQ(view.selectedRow(), 5);
    sequence.notifySelectionChange(-1, &document);
    EXPECT_FALSE(point(5)->isSelected());
    // The table announces a new row and deletes it again.
    sequence.appendPoint({AQTime{23, 59, 0}, 0.5, 0.5});
    sequence.notifySelectionChange(7, nullptr);
    EXPECT_TRUE(point(7)->isSelected());
    sequence.deleteWithRow(7, nullptr);
    EXPECT_EQ(view.selectedRow(), -1);
    EXPECT_EQ(view.pointViews().size(), 7U);

    sequence.replacePoints({});
    Q_EMIT notifications.dataChanged(&view);
    Q_EMIT notifications.cellChanged(1, 2, &view);
    EXPECT_EQ(view.pointViews().size(), 7U) << "its own echo";
    document.loadDefaults();
    sequence.updateWithRow(1, AQSequence::Brightness{0.3}, &document);
    EXPECT_EQ(point(1)->geometry().center().y(), 319);
}

TEST_F(CurveInput, PlayheadTakesTheLightOfItsMinute) {
    show({{AQTime{6, 0, 0}, 0.2, 0.0}, {AQTime{18, 0, 0}, 0.8, 1.0}});
    document.sequence().notifySelectionChange(1, nullptr);
    view.setPlayheadTime(AQTime{12, 0, 15});
    EXPECT_DOUBLE_EQ(view.playheadBrightness(), 0.5);
    EXPECT_DOUBLE_EQ(view.playheadColorTemp(), 0.5);
    EXPECT_EQ(view.pointPopover().value().time, (AQTime{12, 0, 15}));
    keys({Qt::Key_Up});
    EXPECT_EQ(brightness(1), 1.0) << "what is not on screen is not edited";
    view.setPlayheadTime({});
    EXPECT_FALSE(view.pointPopover().isVisible());
    EXPECT_TRUE(point(1)->isSelected());
}

TEST_F(CurveInput, KeysStepThroughThePointsAndChangeThem) {
    view.setFocus();
    keys({Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left});
    EXPECT_EQ(announced(selections), (std::vector<int>{0, 1, 2, 1}));
    EXPECT_TRUE(view.pointPopover().isVisible());
    keys({Qt::Key_Up});
    EXPECT_NEAR(brightness(1), 0.81, 1e-12);
    keys({Qt::Key_Down}, Qt::ShiftModifier);
    EXPECT_NEAR(brightness(1), 0.71, 1e-12);
    keys({Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up}, Qt::ShiftModifier);
    keys({Qt::Key_Down}, Qt::ControlModifier);
    EXPECT_EQ(brightness(1), 1.0);
    const QSignalSpy adds(&view, &AQCurveView::addRequested);
    const QSignalSpy deletes(&view, &AQCurveView::deleteRequested);
    keys({Qt::Key_End, Qt::Key_Right, Qt::Key_Delete});
    EXPECT_EQ(view.selectedRow(), 6);
    keys({Qt::Key_Escape, Qt::Key_Delete, Qt::Key_Insert});
    show({});
    keys({Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_End, Qt::Key_Escape, Qt::Key_Insert});
    EXPECT_EQ(deletes.count(), 1);
    EXPECT_EQ(adds.count(), 2);
}

TEST_F(CurveInput, DisablingInTheMiddleOfADragIsSafe) {
    QObject::connect(&notifications, &NotificationCenter::cellChanged, &view,
                     [this] { view.setEnabled(false); });
    press(1);
    dragTo(1, 200);
    EXPECT_TRUE(view.pointViews().empty());
    EXPECT_FALSE(view.pointPopover().isVisible());
}

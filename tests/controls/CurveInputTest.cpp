#include "controls/CurveFixture.h"

#include "controls/DisplayColors.h"

#include <QMouseEvent>
#include <QSignalSpy>

#include <utility>

namespace {

/// Counts the paintings of a widget.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& widget) : m_widget(widget) { widget.installEventFilter(this); }
    /// The paintings since the last call, after whatever is pending.
    int take() {
        QCoreApplication::processEvents();
        return std::exchange(m_count, 0);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        m_count += watched == &m_widget && event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    QWidget& m_widget;
    int m_count = 0;
};

class CurveInput : public CurveFixture {};

} // namespace

TEST_F(CurveInput, ClickSelectsAndAnnouncesAndMovesNothing) {
    const auto before = document.sequence().points();
    press(2);
    dragTo(2, centre(2).y() + 2);
    release(2);
    EXPECT_EQ(view.selectedRow(), 2);
    EXPECT_TRUE(point(2)->isSelected());
    EXPECT_EQ(selections, (std::vector<Selection>{{2, &view}}));
    EXPECT_EQ(document.sequence().points(), before);
    EXPECT_FALSE(document.isDirty());
    EXPECT_TRUE(cells.empty());

    press(4);
    release(4);
    EXPECT_FALSE(point(2)->isSelected());
    EXPECT_TRUE(point(4)->isSelected());
}

TEST_F(CurveInput, DragSetsTheIntensityAloneAndPaintsOnceAStep) {
    PaintCounter paintings(view);
    const AQTime time = document.sequence().at(1).time;
    press(1);
    paintings.take();
    for (const int y : {130, 240, 340, 120}) {
        cells.clear();
        dragTo(1, y);
        EXPECT_NEAR(brightness(1), (480.0 - y - 40.0) / 400.0, 1e-12);
        EXPECT_EQ(cells, (std::vector<Cell>{{1, 1, &view}, {1, 2, &view}}));
        EXPECT_EQ(paintings.take(), 1) << y;
        EXPECT_EQ(point(1)->geometry().center().y(), y - 1);
        EXPECT_TRUE(view.pointPopover().isVisible());
        EXPECT_DOUBLE_EQ(view.pointPopover().value().brightness, brightness(1));
    }
    dragTo(1, -50);
    EXPECT_EQ(brightness(1), 1.0);
    EXPECT_EQ(view.pointPopover().value().brightness, 1.0);
    dragTo(1, 900);
    EXPECT_EQ(brightness(1), 0.0);
    EXPECT_EQ(document.sequence().at(1).time, time);
    EXPECT_TRUE(document.isDirty());
    release(1);
    // The pointer that only passes over is no drag.
    dragTo(1, 200);
    EXPECT_EQ(brightness(1), 0.0);
}

TEST_F(CurveInput, OtherButtonsAndSidewaysMovesDoNothing) {
    QTest::mousePress(point(1), Qt::RightButton, {}, middle);
    dragTo(1, 300);
    QTest::mouseRelease(point(1), Qt::RightButton, {}, middle);
    EXPECT_EQ(view.selectedRow(), -1);
    EXPECT_EQ(brightness(1), 0.8);

    press(1);
    QTest::mouseMove(point(1), middle + QPoint(30, 1));
    EXPECT_EQ(brightness(1), 0.8);
    release(1);
}

TEST_F(CurveInput, PopoverFollowsTheHoverAndStaysDuringAPress) {
    auto& popover = view.pointPopover();
    QEnterEvent enter(middle, middle, view.mapToGlobal(centre(3)));
    QEvent leave(QEvent::Leave);

    QCoreApplication::sendEvent(point(3), &enter);
    EXPECT_TRUE(popover.isVisible());
    EXPECT_EQ(popover.value(), document.sequence().at(3));
    EXPECT_FALSE(popover.isActiveWindow());
    EXPECT_FALSE(popover.placement().frame.contains(view.mapToGlobal(centre(3))));
    QCoreApplication::sendEvent(point(3), &leave);
    EXPECT_FALSE(popover.isVisible());

    QCoreApplication::sendEvent(point(3), &enter);
    press(3);
    QCoreApplication::sendEvent(point(3), &leave);
    EXPECT_TRUE(popover.isVisible());
    release(3, middle);
    EXPECT_TRUE(popover.isVisible());
    press(3);
    release(3, QPoint(100, 100));
    EXPECT_FALSE(popover.isVisible());
}

TEST_F(CurveInput, PopoverFollowsItsPointAndItsWindow) {
    auto& popover = view.pointPopover();
    view.onPointHover(point(1));
    const QPoint before = popover.pos();
    window.move(window.pos() + QPoint(10, 20));
    QCoreApplication::processEvents();
    EXPECT_EQ(popover.pos(), before + QPoint(10, 20));

    document.sequence().updateWithRow(1, AQSequence::Brightness{0.4}, nullptr);
    EXPECT_EQ(popover.pos(), before + QPoint(10, 20 + 160));
    EXPECT_EQ(popover.value().brightness, 0.4);

    window.hide();
    EXPECT_FALSE(popover.isVisible());
    window.show();
    EXPECT_TRUE(popover.isVisible());
    QEvent deactivate(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&window, &deactivate);
    EXPECT_FALSE(popover.isVisible());
    view.onPointHover(point(2));
    EXPECT_FALSE(popover.isVisible());
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &activate);
    EXPECT_TRUE(popover.isVisible());

    show({});
    EXPECT_FALSE(popover.isVisible());
}

TEST_F(CurveInput, EmptySpaceLetsGo) {
    press(2);
    release(2);
    selections.clear();
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(200, 100));
    EXPECT_EQ(view.selectedRow(), -1);
    EXPECT_FALSE(point(2)->isSelected());
    EXPECT_EQ(selections, (std::vector<Selection>{{-1, &view}}));
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(200, 100));
    EXPECT_EQ(selections.size(), 1U);
    EXPECT_EQ(document.sequence().count(), 7);
}

TEST_F(CurveInput, FollowsTheSelectionOfOthers) {
    AQSequence& sequence = document.sequence();
    sequence.notifySelectionChange(5, nullptr);
    EXPECT_TRUE(point(5)->isSelected());
    sequence.notifySelectionChange(7, nullptr);
    EXPECT_EQ(view.selectedRow(), 5);
    sequence.notifySelectionChange(1, &view);
    EXPECT_EQ(view.selectedRow(), 5);
    sequence.notifySelectionChange(-1, &document);
    EXPECT_EQ(view.selectedRow(), -1);
    EXPECT_FALSE(point(5)->isSelected());

    // The table announces a new row before the view has heard of the point.
    sequence.notifySelectionChange(6, nullptr);
    sequence.appendPoint({AQTime{23, 59, 0}, 0.5, 0.5});
    sequence.notifySelectionChange(7, nullptr);
    EXPECT_TRUE(point(7)->isSelected());
    // The last row goes, and its selection with it.
    sequence.deleteWithRow(7, nullptr);
    EXPECT_EQ(view.selectedRow(), -1);
    EXPECT_EQ(view.pointViews().size(), 7U);
}

TEST_F(CurveInput, RedrawsForTheChangesOfOthersOnly) {
    PaintCounter paintings(view);
    paintings.take();
    Q_EMIT notifications.cellChanged(1, 2, &view);
    Q_EMIT notifications.dataChanged(&view);
    EXPECT_EQ(paintings.take(), 0);
    document.sequence().updateWithRow(1, AQSequence::Brightness{0.3}, &document);
    EXPECT_EQ(paintings.take(), 1);
    EXPECT_EQ(point(1)->geometry().center().y(), 319);
    document.sequence().deleteWithRow(0, nullptr);
    EXPECT_EQ(paintings.take(), 1);
    EXPECT_EQ(view.pointViews().size(), 6U);
}

TEST_F(CurveInput, PlayheadTakesTheLightOfItsMinute) {
    auto& popover = view.pointPopover();
    show({{AQTime{6, 0, 0}, 0.2, 0.0}, {AQTime{18, 0, 0}, 0.8, 1.0}});
    document.sequence().notifySelectionChange(1, nullptr);
    view.setPlayheadTime(AQTime{12, 0, 15});
    EXPECT_DOUBLE_EQ(view.playheadBrightness(), 0.5);
    EXPECT_DOUBLE_EQ(view.playheadColorTemp(), 0.5);
    EXPECT_TRUE(popover.isVisible());
    EXPECT_EQ(popover.value().time, (AQTime{12, 0, 15}));
    const QPoint tip(popover.placement().frame.left() + popover.placement().arrowX,
                     popover.placement().frame.bottom() + 1);
    EXPECT_EQ(tip, view.mapToGlobal(QPoint(500, 40 - 15)));

    PaintCounter paintings(view);
    paintings.take();
    view.setPlayheadTime(AQTime{12, 0, 45});
    EXPECT_EQ(paintings.take(), 0);
    EXPECT_EQ(view.playheadTime()->second, 15);
    view.setPlayheadTime(AQTime{12, 1, 0});
    EXPECT_EQ(paintings.take(), 1);

    // What is not on screen is not edited.
    QTest::keyClick(&view, Qt::Key_Up);
    EXPECT_EQ(brightness(1), 1.0);

    view.setPlayheadTime({});
    EXPECT_FALSE(popover.isVisible());
    EXPECT_EQ(view.pointViews().size(), 2U);
    EXPECT_TRUE(point(1)->isSelected());
    paintings.take();
    view.setPlayheadTime({});
    EXPECT_EQ(paintings.take(), 0);
}

TEST_F(CurveInput, KeysStepThroughThePointsAndChangeThem) {
    view.setFocus();
    const auto key = [this](Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&view, code, modifiers);
    };
    key(Qt::Key_Right);
    EXPECT_EQ(view.selectedRow(), 0);
    key(Qt::Key_Right);
    key(Qt::Key_Right);
    key(Qt::Key_Left);
    EXPECT_EQ(view.selectedRow(), 1);
    EXPECT_EQ(selections, (std::vector<Selection>{{0, &view}, {1, &view}, {2, &view}, {1, &view}}));
    EXPECT_TRUE(view.pointPopover().isVisible());

    key(Qt::Key_Up);
    EXPECT_NEAR(brightness(1), 0.81, 1e-12);
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_NEAR(brightness(1), 0.71, 1e-12);
    EXPECT_EQ(cells.back(), (Cell{1, 2, &view}));
    for (int i = 0; i < 4; ++i)
        key(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(brightness(1), 1.0);
    key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(brightness(1), 1.0);

    key(Qt::Key_End);
    key(Qt::Key_Right);
    EXPECT_EQ(view.selectedRow(), 6);
    key(Qt::Key_Escape);
    EXPECT_EQ(view.selectedRow(), -1);
    EXPECT_EQ(selections.back(), (Selection{-1, &view}));
    EXPECT_FALSE(view.pointPopover().isVisible());
    key(Qt::Key_Left);
    EXPECT_EQ(view.selectedRow(), 6);
}

TEST_F(CurveInput, FocusShowsAndTakesTheKeyboardsPopover) {
    const auto frame = [this] { return view.grab().toImage().pixelColor(1, 200); };
    view.setFocus();
    EXPECT_EQ(frame(), DisplayColors::cold);
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_TRUE(view.pointPopover().isVisible());
    view.clearFocus();
    EXPECT_EQ(frame(), DisplayColors::neutral);
    EXPECT_FALSE(view.pointPopover().isVisible());
    EXPECT_EQ(view.selectedRow(), 0);
}

TEST_F(CurveInput, KeysAskForPointsToBeAddedAndRemoved) {
    const QSignalSpy adds(&view, &AQCurveView::addRequested);
    const QSignalSpy deletes(&view, &AQCurveView::deleteRequested);
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(deletes.count(), 0);
    document.sequence().notifySelectionChange(3, nullptr);
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(deletes.count(), 1);
    QTest::keyClick(&view, Qt::Key_Insert);
    EXPECT_EQ(adds.count(), 1);
    show({});
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_End, Qt::Key_Escape})
        QTest::keyClick(&view, key);
    EXPECT_EQ(view.selectedRow(), -1);
    QTest::keyClick(&view, Qt::Key_Insert);
    EXPECT_EQ(adds.count(), 2);
}

TEST_F(CurveInput, DisablingInTheMiddleOfADragIsSafe) {
    QObject::connect(&notifications, &NotificationCenter::cellChanged, &view,
                     [this] { view.setEnabled(false); });
    press(1);
    dragTo(1, 200);
    EXPECT_TRUE(view.pointViews().empty());
    EXPECT_FALSE(view.pointPopover().isVisible());
    EXPECT_EQ(view.selectedRow(), 1);
}

TEST_F(CurveInput, WithoutADocumentItIsEmptyAndQuiet) {
    AQCurveView empty;
    empty.resize(400, 200);
    empty.show();
    QTest::keyClick(&empty, Qt::Key_Right);
    QTest::mouseClick(&empty, Qt::LeftButton, {}, QPoint(100, 100));
    empty.setPlayheadTime(AQTime{10, 0, 0});
    EXPECT_EQ(empty.grab().toImage().pixelColor(1, 1), QColor(Qt::white));
    EXPECT_TRUE(empty.pointViews().empty());
}

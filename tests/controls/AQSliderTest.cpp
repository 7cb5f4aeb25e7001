#include "controls/AQSliderBrightness.h"
#include "controls/AQSliderColorTemp.h"
#include "controls/RecordingDelegate.h"
#include "data/AQDataSource.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace {

struct SliderTest : ::testing::Test {
    NotificationCenter center;
    AQDataSource document{center};
    RecordingDelegate delegate;
    QWidget window;
    AQSliderBrightness slider{&window};
    AQSliderColorTemp color{&window};

    SliderTest() {
        slider.setGeometry(0, 0, 220, 30);
        color.setGeometry(0, 40, 220, 40);
        for (AQSlider* each : {static_cast<AQSlider*>(&slider), static_cast<AQSlider*>(&color)}) {
            each->setDelegate(&delegate);
            each->setDocument(&document);
        }
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
};

TEST_F(SliderTest, theKnobsCentreFollowsThePointer) {
    const std::pair<int, double> table[] = {{10, 0.0}, {60, 0.25}, {110, 0.5}, {210, 1.0},
                                            {3, 0.0},  {-40, 0.0}, {215, 1.0}, {400, 1.0}};
    QTest::mousePress(&slider, Qt::LeftButton, {}, {110, 15});
    EXPECT_DOUBLE_EQ(slider.value(), 0.5);
    for (const auto& [x, value] : table) {
        QMouseEvent move(QEvent::MouseMove, QPointF(x, 5), slider.mapToGlobal(QPointF(x, 5)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&slider, &move);
        EXPECT_DOUBLE_EQ(slider.value(), value) << "x = " << x;
    }
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, {110, 15});
    QTest::mouseMove(&slider, {60, 15});
    QTest::mouseClick(&slider, Qt::RightButton, {}, {60, 15});
    EXPECT_DOUBLE_EQ(slider.value(), 1.0) << "only the held left button sets";
}

TEST_F(SliderTest, aProgrammaticSetReportsANewValueOnceAndMarksNothing) {
    slider.setValue(1.7);
    slider.setValue(1.0);
    slider.setObjectValue(1);
    EXPECT_EQ(delegate.changes, std::vector<QVariant>{1.0});
    slider.setValue(-2.0);
    EXPECT_DOUBLE_EQ(slider.value(), 0.0);

    color.setObjectValue(QVariantList{0.75, 3});
    EXPECT_DOUBLE_EQ(color.maxValue(), 1.0);
    const QVariant noNumbers[] = {QVariant(), QStringLiteral("0.7"), true,
                                  std::numeric_limits<double>::quiet_NaN(),
                                  QVariantList{0.7, QStringLiteral("x")}};
    for (const QVariant& object : noNumbers) {
        color.setObjectValue(object);
        EXPECT_DOUBLE_EQ(color.value(), 0.75) << object.typeName();
    }
    EXPECT_FALSE(document.isDirty());
}

TEST_F(SliderTest, everyEditMarksTheDocumentDirtyEvenAtTheLimit) {
    slider.setValue(1.0);
    const auto changesBefore = delegate.changes.size();
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_TRUE(document.isDirty());
    EXPECT_EQ(delegate.changes.size(), changesBefore);

    document.setIsDirty(false);
    slider.setEnabled(false);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {110, 15});
    EXPECT_FALSE(document.isDirty()) << "disabled";
    QAccessible::queryAccessibleInterface(&color)->valueInterface()->setCurrentValue(0.5);
    EXPECT_DOUBLE_EQ(color.value(), 0.5);
    EXPECT_TRUE(document.isDirty());
}

TEST_F(SliderTest, keysStepByTheIncrementOfTheClass) {
    const std::pair<Qt::Key, int> table[] = {
        {Qt::Key_Right, 1},   {Qt::Key_Up, 1},         {Qt::Key_Left, -1},   {Qt::Key_Down, -1},
        {Qt::Key_PageUp, 10}, {Qt::Key_PageDown, -10}, {Qt::Key_Home, -500}, {Qt::Key_End, 500}};
    for (const auto& [key, increments] : table) {
        slider.setValue(0.5);
        color.setValue(0.5);
        QTest::keyClick(&slider, key);
        QTest::keyClick(&color, key, Qt::KeypadModifier);
        EXPECT_NEAR(slider.value(), std::clamp(0.5 + 0.01 * increments, 0.0, 1.0), 1e-12) << key;
        EXPECT_NEAR(color.value(), std::clamp(0.5 + 0.005 * increments, 0.0, 1.0), 1e-12) << key;
    }
}

TEST_F(SliderTest, theWheelTurnsOnlyTheFocusedSlider) {
    const auto turn = [this](int delta) {
        QWheelEvent event(QPointF(20, 10), slider.mapToGlobal(QPointF(20, 10)), {}, {0, delta},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&slider, &event);
        return slider.value();
    };
    slider.setValue(0.5);
    color.setFocus();
    EXPECT_DOUBLE_EQ(turn(120), 0.5);
    slider.setFocus();
    EXPECT_NEAR(turn(120), 0.51, 1e-12);
    EXPECT_NEAR(turn(-60), 0.51, 1e-12);
    EXPECT_NEAR(turn(-60), 0.50, 1e-12) << "fine wheels add up";
}

TEST_F(SliderTest, showsThePercentageOfEachChannel) {
    const double table[][4] = {{0.0, 1.0, 100, 0},   {0.25, 0.5, 50, 25}, {0.5, 1.0, 100, 100},
                               {0.75, 1.0, 50, 100}, {1.0, 0.8, 0, 80},   {0.0025, 1.0, 100, 1}};
    for (const auto& [value, maximum, warm, cold] : table) {
        color.setObjectValue(QVariantList{value, maximum});
        EXPECT_EQ(color.warmValue(), warm) << value;
        EXPECT_EQ(color.coldValue(), cold) << value;
    }
}

} // namespace

#include "controls/AQSliderBrightness.h"
#include "controls/AQSliderColorTemp.h"
#include "controls/RecordingDelegate.h"
#include "data/AQDataSource.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <cmath>
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
        window.resize(300, 120);
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

    void turnWheel(QWidget& target, int delta) const {
        QWheelEvent event(QPointF(20, 10), target.mapToGlobal(QPointF(20, 10)), {}, {0, delta},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&target, &event);
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

TEST_F(SliderTest, aBarWithoutTravelKeepsItsValue) {
    slider.setValue(0.3);
    slider.resize(20, 30);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {10, 10});
    EXPECT_DOUBLE_EQ(slider.value(), 0.3);
}

TEST_F(SliderTest, aProgrammaticSetReportsANewValueOnceAndMarksNothing) {
    QSignalSpy announced(&slider, &AQSlider::valueChanged);
    slider.setValue(1.7);
    slider.setValue(1.0);
    slider.setObjectValue(1);
    ASSERT_EQ(delegate.changes.size(), 1U);
    EXPECT_EQ(delegate.changes.front(), QVariant(1.0));
    EXPECT_EQ(announced.count(), 1);
    slider.setValue(-2.0);
    EXPECT_DOUBLE_EQ(slider.value(), 0.0);
    EXPECT_FALSE(document.isDirty());
}

TEST_F(SliderTest, whatIsNoNumberIsIgnored) {
    color.setValue(0.25);
    color.setMaxValue(0.5);
    const QVariant table[] = {QVariant(),
                              QStringLiteral("0.7"),
                              true,
                              std::numeric_limits<double>::quiet_NaN(),
                              QVariantList{0.7},
                              QVariantList{0.7, QStringLiteral("x")}};
    for (const QVariant& object : table) {
        color.setObjectValue(object);
        EXPECT_DOUBLE_EQ(color.value(), 0.25) << object.typeName();
        EXPECT_DOUBLE_EQ(color.maxValue(), 0.5) << object.typeName();
    }
    color.setObjectValue(QVariantList{0.75, 3});
    EXPECT_DOUBLE_EQ(color.value(), 0.75);
    EXPECT_DOUBLE_EQ(color.maxValue(), 1.0);
}

TEST_F(SliderTest, keysStepByTheIncrementOfTheClass) {
    struct Step {
        Qt::Key key;
        double brightness;
        double color;
    };
    const Step table[] = {{Qt::Key_Right, 0.51, 0.505}, {Qt::Key_Up, 0.51, 0.505},
                          {Qt::Key_Left, 0.49, 0.495},  {Qt::Key_Down, 0.49, 0.495},
                          {Qt::Key_PageUp, 0.60, 0.55}, {Qt::Key_PageDown, 0.40, 0.45},
                          {Qt::Key_Home, 0.0, 0.0},     {Qt::Key_End, 1.0, 1.0},
                          {Qt::Key_A, 0.5, 0.5},        {Qt::Key_Space, 0.5, 0.5}};
    for (const Step& step : table) {
        slider.setValue(0.5);
        color.setValue(0.5);
        QTest::keyClick(&slider, step.key);
        QTest::keyClick(&color, step.key, Qt::KeypadModifier);
        EXPECT_NEAR(slider.value(), step.brightness, 1e-12) << step.key;
        EXPECT_NEAR(color.value(), step.color, 1e-12) << step.key;
    }
    slider.setValue(0.5);
    QTest::keyClick(&slider, Qt::Key_Right, Qt::AltModifier);
    EXPECT_DOUBLE_EQ(slider.value(), 0.5) << "with Alt the key belongs to the window";
}

TEST_F(SliderTest, everyEditMarksTheDocumentDirtyEvenAtTheLimit) {
    QSignalSpy posted(&center, &NotificationCenter::dataDirty);
    slider.setValue(1.0);
    EXPECT_EQ(posted.count(), 0);
    const auto changesBefore = delegate.changes.size();
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_TRUE(document.isDirty());
    EXPECT_EQ(delegate.changes.size(), changesBefore);
    QTest::keyClick(&slider, Qt::Key_Right);
    QTest::mouseClick(&color, Qt::LeftButton, {}, {60, 10});
    EXPECT_EQ(posted.count(), 1) << "posted only when the flag changes";
}

TEST_F(SliderTest, theWheelTurnsOnlyTheFocusedSlider) {
    slider.setValue(0.5);
    color.setFocus();
    turnWheel(slider, 120);
    EXPECT_DOUBLE_EQ(slider.value(), 0.5);
    EXPECT_FALSE(document.isDirty());
    slider.setFocus();
    turnWheel(slider, 120);
    EXPECT_NEAR(slider.value(), 0.51, 1e-12);
    turnWheel(slider, -60);
    turnWheel(slider, -60);
    EXPECT_NEAR(slider.value(), 0.50, 1e-12) << "fine wheels add up";
}

TEST_F(SliderTest, aDisabledSliderIgnoresTheMouseAndTheFocus) {
    slider.setEnabled(false);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {110, 15});
    slider.setFocus();
    EXPECT_DOUBLE_EQ(slider.value(), 0.0);
    EXPECT_FALSE(slider.hasFocus());
    EXPECT_FALSE(document.isDirty());
}

TEST_F(SliderTest, reportsItsFocusOnceUntilItGoesToAnotherView) {
    color.setFocus();
    delegate.focused.clear();
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {110, 15});
    QTest::keyClick(&slider, Qt::Key_Tab);
    EXPECT_EQ(delegate.focused, (std::vector<const AQValueView*>{&slider, &color}));

    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_TRUE(color.isWindowFocus());
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(color.hasFocus());
    EXPECT_EQ(delegate.focused.size(), 2U) << "coming back to the window is no new focus";
}

TEST_F(SliderTest, showsThePercentageOfEachChannel) {
    struct Case {
        double value;
        double maximum;
        int warm;
        int cold;
    };
    const Case table[] = {{0.0, 1.0, 100, 0},   {0.25, 0.5, 50, 25}, {0.5, 1.0, 100, 100},
                          {0.75, 1.0, 50, 100}, {1.0, 0.8, 0, 80},   {0.0025, 1.0, 100, 1}};
    for (const Case& each : table) {
        color.setObjectValue(QVariantList{each.value, each.maximum});
        EXPECT_EQ(color.warmValue(), each.warm) << each.value;
        EXPECT_EQ(color.coldValue(), each.cold) << each.value;
    }
}

TEST_F(SliderTest, screenReadersMeetANamedSlider) {
    color.setAccessibleName(QStringLiteral("Colour temperature"));
    color.setObjectValue(QVariantList{0.25, 0.5});
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&color);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Slider);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Colour temperature"));
    EXPECT_EQ(accessible->text(QAccessible::Value), QStringLiteral("warm 50%, cold 25%"));
    QAccessibleValueInterface* value = accessible->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->maximumValue(), QVariant(1.0));
    value->setCurrentValue(0.5);
    EXPECT_DOUBLE_EQ(color.value(), 0.5);
    EXPECT_TRUE(document.isDirty());
}

} // namespace

#include "controls/DisplayColors.h"
#include "controls/sliders/AQSliderBrightness.h"
#include "controls/sliders/AQSliderColorTemp.h"

#include <QAccessible>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>
#include <limits>

namespace {

struct SliderTest : ::testing::Test {
    QWidget window;
    AQSliderBrightness slider{&window};
    AQSliderColorTemp color{&window};
    int edits = 0;

    SliderTest() {
        slider.setGeometry(0, 0, 220, 30);
        color.setGeometry(0, 40, 400, 100);
        for (AQSlider* each : {static_cast<AQSlider*>(&slider), static_cast<AQSlider*>(&color)})
            QObject::connect(each, &AQSlider::edited, &window, [this] { ++edits; });
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        window.setFocus();
    }
    static QImage paint(QWidget& widget) {
        QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(QColor(100, 120, 140));
        widget.render(&image, {}, {}, QWidget::RenderFlags());
        return image;
    }
};

TEST_F(SliderTest, onlyTheHandEditsEvenAtTheLimit) {
    slider.setValue(1.7);
    slider.setObjectValue(QStringLiteral("0.7"));
    slider.setValue(std::numeric_limits<double>::quiet_NaN());
    slider.setEnabled(false);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {110, 15});
    EXPECT_EQ(slider.value(), 1.0);
    slider.setEnabled(true);
    // The drag of something that has gone:
    QMouseEvent move(QEvent::MouseMove, QPointF(110, 15), slider.mapToGlobal(QPointF(110, 15)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&slider, &move);
    EXPECT_EQ(edits, 0);

    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(edits, 1);
    QTest::mousePress(&slider, Qt::LeftButton, {}, {110, 15});
    QCoreApplication::sendEvent(&slider, &move);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, {110, 15});
    EXPECT_DOUBLE_EQ(slider.value(), 0.5);
    QCoreApplication::sendEvent(&slider, &move);
    EXPECT_EQ(edits, 3);

    auto* accessible = QAccessible::queryAccessibleInterface(&color)->valueInterface();
    accessible->setCurrentValue(25.0);
    QTest::keyClick(&color, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_DOUBLE_EQ(accessible->currentValue().toDouble(), 35.0);
    EXPECT_EQ(edits, 5);
}

TEST_F(SliderTest, theWheelTurnsOnlyTheFocusedSlider) {
    const auto turn = [this](int delta) {
        QWheelEvent event(QPointF(20, 10), slider.mapToGlobal(QPointF(20, 10)), {}, {0, delta},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&slider, &event);
        return slider.value();
    };
    slider.setValue(0.5);
    EXPECT_DOUBLE_EQ(turn(120), 0.5);
    slider.setFocus();
    EXPECT_NEAR(turn(120), 0.51, 1e-12);
    EXPECT_NEAR(turn(-60), 0.51, 1e-12);
    EXPECT_NEAR(turn(-60), 0.50, 1e-12) << "fine wheels add up";
}

TEST_F(SliderTest, theKnobBrightensABarOfTheLampsColours) {
    const QImage left = paint(slider);
    EXPECT_GT(left.pixelColor(217, 20).red(), 250);
    slider.setValue(0.25); // knob from 52 to 68
    const QImage knob = paint(slider);
    for (const int x : {53, 66})
        EXPECT_NEAR(knob.pixelColor(x, 5).red(), 127.5 + left.pixelColor(x, 5).red() / 2.0, 2.0);
    for (const int x : {52, 67})
        EXPECT_EQ(knob.pixelColor(x, 15), DisplayColors::disabled);
    slider.setEnabled(false);
    EXPECT_EQ(paint(slider).pixelColor(20, 15), QColor(100, 120, 140));

    color.setObjectValue(QVariantList{0.25, 0.5});
    EXPECT_EQ(color.warmValue(), 50);
    EXPECT_EQ(color.coldValue(), 25);
    color.setValue(1.0);
    color.setShowCurve(false);
    const QImage bar = paint(color);
    EXPECT_NEAR(bar.pixelColor(2, 20).blue(), DisplayColors::warm.blue(), 3);
    EXPECT_NEAR(bar.pixelColor(200, 20).blue(), 255, 3);
    color.setShowCurve(true);
    EXPECT_LT(paint(color).pixelColor(190, 20).blue(), 235) << "the guide peaks in the middle";
}

} // namespace

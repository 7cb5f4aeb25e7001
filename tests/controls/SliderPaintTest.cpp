#include "controls/AQSliderBrightness.h"
#include "controls/AQSliderColorTemp.h"
#include "controls/DisplayColors.h"
#include "controls/Strokes.h"

#include <QPainter>

#include <algorithm>
#include <gtest/gtest.h>

namespace {

QImage paint(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(100, 120, 140));
    widget.render(&image, {}, {}, QWidget::RenderFlags());
    return image;
}

bool isNear(QColor a, QColor b, int tolerance = 3) {
    return std::abs(a.red() - b.red()) <= tolerance &&
           std::abs(a.green() - b.green()) <= tolerance &&
           std::abs(a.blue() - b.blue()) <= tolerance;
}

// Source 0.7 takes 76 and source 0.9 takes 25 of every channel; half a pixel goes half the way.
TEST(Strokes, plusDarkerSubtractsAndStopsAtBlack) {
    struct Case {
        QColor backdrop;
        double level;
        QColor covered;
        QColor halfCovered;
    };
    const Case cases[] = {
        {Qt::white, 0.7, {179, 179, 179}, {217, 217, 217}},
        {{53, 42, 156}, 0.9, {28, 17, 131}, {40, 29, 143}},
        {{50, 200, 255}, 0.7, {0, 124, 179}, {25, 162, 217}},
        {Qt::black, 0.7, Qt::black, Qt::black},
    };
    for (const Case& each : cases) {
        QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
        image.fill(each.backdrop);
        QPainter painter(&image);
        Strokes::plusDarker(painter, QRectF(0, 0, 4, 4), [&each](QPainter& strokes) {
            strokes.fillRect(QRectF(0.0, 1.5, 4.0, 1.5), Strokes::plusDarkerPen(each.level));
        });
        painter.end();
        SCOPED_TRACE(each.backdrop.name().toStdString());
        EXPECT_EQ(image.pixelColor(2, 0), each.backdrop) << "outside the stroke nothing changes";
        EXPECT_TRUE(isNear(image.pixelColor(2, 1), each.halfCovered, 1))
            << image.pixelColor(2, 1).name().toStdString();
        EXPECT_EQ(image.pixelColor(2, 2), each.covered);
    }
}

TEST(SliderPaint, theBarRunsBetweenItsColoursAndTheGuideCurvePeaksInTheMiddle) {
    AQSliderColorTemp color;
    color.resize(400, 100);
    color.setValue(1.0);
    color.setShowCurve(false);
    const QImage bar = paint(color);
    EXPECT_TRUE(isNear(bar.pixelColor(2, 20), DisplayColors::warm));
    EXPECT_TRUE(isNear(bar.pixelColor(100, 2), QColor(251, 248, 183)));
    EXPECT_TRUE(isNear(bar.pixelColor(200, 20), DisplayColors::neutral));

    color.setShowCurve(true);
    const QImage curve = paint(color);
    const auto darkened = [&](int x, int y) {
        int most = 0;
        for (int row = y - 1; row <= y + 1; ++row)
            most = std::max(most, bar.pixelColor(x, row).red() - curve.pixelColor(x, row).red());
        return most;
    };
    EXPECT_GT(darkened(15, 75), 20);
    EXPECT_GT(darkened(190, 20), 20);
    EXPECT_EQ(darkened(60, 10), 0);
}

TEST(SliderPaint, theKnobBrightensTheBarAndADisabledOneHasNone) {
    AQSliderBrightness slider;
    slider.resize(220, 30);
    const QImage left = paint(slider);
    slider.setValue(0.25); // knob from 52 to 68
    const QImage knob = paint(slider);
    for (int x = 53; x < 67; ++x)
        EXPECT_NEAR(knob.pixelColor(x, 5).red(), 127.5 + left.pixelColor(x, 5).red() / 2.0, 2.0);
    for (const QPoint edge : {QPoint(52, 15), QPoint(67, 15), QPoint(60, 2), QPoint(60, 27)})
        EXPECT_EQ(knob.pixelColor(edge), DisplayColors::disabled) << edge.x() << ' ' << edge.y();
    EXPECT_TRUE(isNear(left.pixelColor(217, 20), DisplayColors::neutral));

    slider.setEnabled(false);
    EXPECT_EQ(paint(slider).pixelColor(20, 15), QColor(100, 120, 140));
}

} // namespace

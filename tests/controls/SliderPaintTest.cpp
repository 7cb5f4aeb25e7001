#include "controls/AQSliderBrightness.h"
#include "controls/AQSliderColorTemp.h"
#include "controls/DisplayColors.h"
#include "controls/Strokes.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <tuple>

namespace {

QImage paint(QWidget& widget, double scale = 1.0) {
    QImage image(widget.size() * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(QColor(100, 120, 140));
    widget.render(&image, {}, {}, QWidget::RenderFlags());
    return image;
}

bool isNear(QColor a, QColor b, int tolerance = 3) {
    return std::abs(a.red() - b.red()) <= tolerance &&
           std::abs(a.green() - b.green()) <= tolerance &&
           std::abs(a.blue() - b.blue()) <= tolerance;
}

// Source 0.7 takes 0.3, source 0.9 takes 0.1, of every channel, and stops at black.
TEST(Strokes, plusDarkerSubtractsAndStopsAtBlack) {
    QImage image(8, 2, QImage::Format_ARGB32_Premultiplied);
    const QColor backdrop[] = {Qt::white, DisplayColors::cold, DisplayColors::warm, Qt::black};
    for (const double level : {0.7, 0.9}) {
        for (const QColor& color : backdrop) {
            image.fill(color);
            QPainter painter(&image);
            Strokes::plusDarker(painter, QRectF(0, 0, 8, 2), [level](QPainter& strokes) {
                strokes.fillRect(0, 0, 4, 2, Strokes::plusDarkerPen(level));
            });
            painter.end();
            const int taken = 255 - qRound(level * 255.0);
            const QColor expected(std::max(0, color.red() - taken),
                                  std::max(0, color.green() - taken),
                                  std::max(0, color.blue() - taken));
            EXPECT_EQ(image.pixelColor(1, 1), expected) << level;
            EXPECT_EQ(image.pixelColor(6, 1), color) << "outside the stroke nothing changes";
        }
    }
}

TEST(Strokes, plusDarkerCountsTheCoverageOfTheStroke) {
    QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(50, 200, 255));
    QPainter painter(&image);
    Strokes::plusDarker(painter, QRectF(0, 0, 4, 4), [](QPainter& strokes) {
        strokes.fillRect(QRectF(0.0, 1.5, 4.0, 1.5), Strokes::plusDarkerPen(0.7));
    });
    painter.end();
    // Half covered: half way to (0, 124, 179).
    EXPECT_TRUE(isNear(image.pixelColor(2, 1), QColor(25, 162, 217), 2));
    EXPECT_EQ(image.pixelColor(2, 2), QColor(0, 124, 179));
}

TEST(SliderPaint, barsRunBetweenTheirColours) {
    AQSliderBrightness brightness;
    AQSliderColorTemp color;
    color.setShowCurve(false);
    for (AQSlider* slider : {static_cast<AQSlider*>(&brightness), static_cast<AQSlider*>(&color)}) {
        slider->resize(400, 40);
    }
    brightness.setValue(1.0);
    color.setValue(1.0);
    const QImage dark = paint(brightness);
    EXPECT_TRUE(isNear(dark.pixelColor(2, 20), QColor(20, 20, 20)));
    color.setValue(0.0);
    const QImage cold = paint(color);
    EXPECT_TRUE(isNear(cold.pixelColor(397, 20), DisplayColors::cold));
    color.setValue(1.0);
    const QImage warm = paint(color);
    EXPECT_TRUE(isNear(warm.pixelColor(2, 20), DisplayColors::warm));
    EXPECT_TRUE(isNear(warm.pixelColor(200, 20), DisplayColors::neutral));
    EXPECT_TRUE(isNear(warm.pixelColor(100, 2),
                       DisplayColors::blend(DisplayColors::warm, DisplayColors::neutral, 0.5)));
    EXPECT_EQ(warm.pixelColor(0, 20), DisplayColors::disabled) << "unfocused frame";
}

TEST(SliderPaint, theGuideCurvePeaksInTheMiddleAndIsDashedAtTheQuarters) {
    AQSliderColorTemp color;
    color.resize(400, 100);
    color.setValue(1.0);
    const QImage without = (color.setShowCurve(false), paint(color));
    const QImage with = (color.setShowCurve(true), paint(color));
    const auto darkened = [&](int x, int y) {
        return without.pixelColor(x, y).red() - with.pixelColor(x, y).red();
    };
    const auto darkestRow = [&](int x) {
        int best = 0;
        for (int y = 3; y < 97; ++y) {
            best = darkened(x, y) > darkened(x, best) ? y : best;
        }
        return best;
    };
    EXPECT_NEAR(darkestRow(15), 75, 1);
    EXPECT_NEAR(darkestRow(190), 20, 1);
    int dashPixels = 0;
    for (int y = 1; y < 99; ++y) {
        dashPixels += darkened(100, y) > 20 || darkened(99, y) > 20 ? 1 : 0;
    }
    EXPECT_NEAR(dashPixels, 49, 3) << "every other two of 98";
    EXPECT_EQ(darkened(60, 10), 0);
}

TEST(SliderPaint, theKnobBrightensTheBarAndNeverDarkensIt) {
    AQSliderBrightness slider;
    slider.resize(220, 30);
    const QImage left = paint(slider);
    slider.setValue(0.25); // knob from 52 to 68
    const QImage knob = paint(slider);
    for (int x = 53; x < 67; ++x) {
        const int bar = left.pixelColor(x, 5).red();
        EXPECT_NEAR(knob.pixelColor(x, 5).red(), 127.5 + bar / 2.0, 2.0) << x;
    }
    EXPECT_EQ(knob.pixelColor(52, 15), DisplayColors::disabled);
    EXPECT_EQ(knob.pixelColor(67, 15), DisplayColors::disabled);
    EXPECT_EQ(knob.pixelColor(60, 2), DisplayColors::disabled);
    EXPECT_EQ(knob.pixelColor(60, 27), DisplayColors::disabled);
    EXPECT_EQ(knob.pixelColor(60, 1), left.pixelColor(60, 1)) << "outside the knob";
}

TEST(SliderPaint, theNumberStaysBlackBeneathTheKnob) {
    AQSliderBrightness slider;
    slider.resize(220, 30);
    slider.setValue(0.5);
    const QImage image = paint(slider, 2.0);
    int darkest = 255;
    for (int y = 16; y < 44; ++y) {
        for (int x = 206; x < 234; ++x) {
            darkest = std::min(darkest, image.pixelColor(x, y).lightness());
        }
    }
    EXPECT_LT(darkest, 40);
}

TEST(SliderPaint, aDisabledSliderDrawsNoBarButItsFrame) {
    AQSliderBrightness slider;
    slider.resize(220, 30);
    slider.setValue(1.0);
    slider.setEnabled(false);
    const QImage image = paint(slider);
    EXPECT_EQ(image.pixelColor(20, 15), QColor(100, 120, 140));
    EXPECT_EQ(image.pixelColor(60, 29), DisplayColors::disabled);
}

} // namespace

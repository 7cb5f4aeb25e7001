#include "controls/CurveFixture.h"

#include "controls/DisplayColors.h"

#include <QImage>

#include <algorithm>
#include <cmath>

namespace {

const QColor white = DisplayColors::neutral;
const QColor black = DisplayColors::line;
const QColor grey = DisplayColors::disabled;

bool isNear(const QColor& first, const QColor& second, int tolerance = 3) {
    return std::abs(first.red() - second.red()) <= tolerance &&
           std::abs(first.green() - second.green()) <= tolerance &&
           std::abs(first.blue() - second.blue()) <= tolerance;
}

/// How dark the darkest pixel of an area is, 0 black .. 255 white.
int darkest(const QImage& image, const QRect& area) {
    int dark = 255;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            dark = std::min(dark, qGray(image.pixel(x, y)));
    }
    return dark;
}

/// At 1000 x 480 an hour is 36 2/3 pixels and 10 % are 40.
class CurvePaint : public CurveFixture {
protected:
    void SetUp() override {
        CurveFixture::SetUp();
        view.clearFocus();
    }
    QImage image() { return view.grab().toImage(); }
    QColor at(int x, int y) { return image().pixelColor(x, y); }

    /// Level at 50 % (y 240), warm at x 280, cold at x 720, white half way at x 500.
    void showLevelProgram() { show({{AQTime{6, 0, 0}, 0.0, 0.5}, {AQTime{18, 0, 0}, 1.0, 0.5}}); }
};

} // namespace

TEST_F(CurvePaint, EmptyProgramHasAxesAndLabelsOnly) {
    show({});
    EXPECT_TRUE(view.pointViews().empty());
    const QImage empty = image();
    const std::pair<QPoint, QColor> pixels[] = {
        {{0, 0}, white},     {{999, 479}, white}, {{500, 200}, white},
        {{60, 440}, grey},   {{62, 440}, white},  {{64, 440}, grey}, // the time axis, dashed
        {{59, 438}, grey},   {{59, 436}, white},                     // the intensity axis
        {{52, 240}, grey},   {{52, 241}, white},                     // the tick of 50 %
        {{499, 448}, grey},  {{500, 448}, white},                    // the tick of noon
        {{941, 440}, white},                                         // the axis ends
    };
    for (const auto& [place, color] : pixels)
        EXPECT_EQ(empty.pixelColor(place).name(), color.name()) << place.x() << ' ' << place.y();
    for (const QRect& label : {QRect(12, 233, 33, 14), QRect(482, 455, 36, 14),
                               QRect(958, 433, 40, 14), QRect(12, 11, 46, 14)})
        EXPECT_LT(darkest(empty, label), 80) << label.x();
    // Intensity 0 has a tick but no label.
    EXPECT_EQ(darkest(empty, QRect(0, 433, 45, 14)), 255);
}

TEST_F(CurvePaint, FillShowsTheLightsAndPassesThroughWhite) {
    showLevelProgram();
    const QImage level = image();
    EXPECT_TRUE(isNear(level.pixelColor(280, 300), DisplayColors::warm));
    EXPECT_TRUE(isNear(level.pixelColor(390, 300), DisplayColors::displayColor(0.25)));
    EXPECT_TRUE(isNear(level.pixelColor(499, 300), white));
    EXPECT_TRUE(isNear(level.pixelColor(610, 300), DisplayColors::displayColor(0.75)));
    EXPECT_TRUE(isNear(level.pixelColor(720, 300), DisplayColors::cold));
    // Over midnight the way from cold to warm passes through white as well.
    EXPECT_TRUE(isNear(level.pixelColor(938, 300), white));
    // From the curve to the axis, and not beyond.
    EXPECT_EQ(level.pixelColor(720, 260), level.pixelColor(720, 439));
    EXPECT_EQ(level.pixelColor(650, 237), white);
    EXPECT_EQ(level.pixelColor(940, 300), white);
    // The outer half of the grey outline remains.
    EXPECT_TRUE(isNear(level.pixelColor(650, 239), QColor(191, 191, 191), 12));
}

TEST_F(CurvePaint, PointsShowTheirColourAndGrowWhenSelected) {
    showLevelProgram();
    QImage points = image();
    EXPECT_TRUE(isNear(points.pixelColor(280, 240), DisplayColors::warm));
    EXPECT_TRUE(isNear(points.pixelColor(280, 234), black, 60));
    EXPECT_EQ(points.pixelColor(280, 231), white);

    document.sequence().notifySelectionChange(0, nullptr);
    points = image();
    EXPECT_TRUE(isNear(points.pixelColor(280, 232), DisplayColors::warm, 12));
    EXPECT_TRUE(isNear(points.pixelColor(280, 230), black, 60));
    // The marker: line, head and tag, which hides the label under it.
    for (const QPoint place : {QPoint(279, 150), QPoint(280, 150), QPoint(277, 40), QPoint(282, 40),
                               QPoint(257, 453), QPoint(302, 471)})
        EXPECT_EQ(points.pixelColor(place), black) << place.x() << ' ' << place.y();
    EXPECT_EQ(points.pixelColor(278, 150), white);
    EXPECT_EQ(points.pixelColor(281, 150), white);
    EXPECT_EQ(points.pixelColor(255, 453), white);
    EXPECT_EQ(points.pixelColor(257, 451), white);
}

TEST_F(CurvePaint, DisabledHasAnOutlineAndGreyLabels) {
    showLevelProgram();
    document.sequence().notifySelectionChange(0, nullptr);
    view.setEnabled(false);
    EXPECT_TRUE(view.pointViews().empty());
    const QImage disabled = image();
    EXPECT_EQ(disabled.pixelColor(720, 300), white);
    EXPECT_EQ(disabled.pixelColor(280, 150), white);
    EXPECT_LT(qGray(disabled.pixel(650, 240)), 200);
    const int label = darkest(disabled, QRect(12, 233, 33, 14));
    EXPECT_GE(label, grey.red());
    EXPECT_LT(label, 190);

    view.setEnabled(true);
    EXPECT_EQ(view.pointViews().size(), 2U);
    EXPECT_TRUE(isNear(at(720, 300), DisplayColors::cold));
}

TEST_F(CurvePaint, PlayheadReplacesThePoints) {
    showLevelProgram();
    document.sequence().notifySelectionChange(0, nullptr);
    view.setPlayheadTime(AQTime{15, 0, 0});
    EXPECT_TRUE(view.pointViews().empty());
    const QImage playhead = image();
    EXPECT_TRUE(isNear(playhead.pixelColor(610, 240), DisplayColors::displayColor(0.75)));
    EXPECT_EQ(playhead.pixelColor(600, 240), black);
    EXPECT_EQ(playhead.pixelColor(619, 240), black);
    EXPECT_EQ(playhead.pixelColor(610, 150), black);
    EXPECT_EQ(playhead.pixelColor(280, 150), white);

    view.setPlayheadTime({});
    EXPECT_EQ(at(280, 150), black);
}

TEST_F(CurvePaint, OnePointHoldsAllDayInOneColour) {
    show({{AQTime{9, 30, 0}, 0.0, 0.5}});
    const QImage one = image();
    for (int x = 60; x < 940; ++x) {
        ASSERT_TRUE(one.pixelColor(x, 300) == DisplayColors::warm) << x;
        ASSERT_TRUE(one.pixelColor(x, 439) == DisplayColors::warm) << x;
        ASSERT_TRUE(one.pixelColor(x, 236) == white || std::abs(x - 408) < 12) << x;
    }
}

TEST_F(CurvePaint, LinesAreSharpAtEveryScale) {
    showLevelProgram();
    document.sequence().notifySelectionChange(0, nullptr);
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        QImage target(QSizeF(view.size() * scale).toSize(), QImage::Format_RGB32);
        target.setDevicePixelRatio(scale);
        // At a place between two pixels, as a layout may have it.
        view.render(&target, QPoint(1, 1));
        // Across the marker and across the tick of 10 %: full or nothing, no shade between.
        const int y = static_cast<int>(150 * scale);
        for (int x = static_cast<int>(270 * scale); x < 290 * scale; ++x)
            EXPECT_TRUE(target.pixelColor(x, y) == white || target.pixelColor(x, y) == black)
                << scale << ' ' << x;
        const int tick = static_cast<int>(52 * scale);
        for (int row = static_cast<int>(390 * scale); row < 410 * scale; ++row)
            EXPECT_TRUE(target.pixelColor(tick, row) == white ||
                        target.pixelColor(tick, row) == grey)
                << scale << ' ' << row;
    }
}

TEST_F(CurvePaint, PopoverKeepsItsTextsReadable) {
    showLevelProgram();
    view.onPointHover(point(1));
    auto& popover = view.pointPopover();
    const QRect body = popover.placement().frame;
    EXPECT_EQ(body.size(), QSize(182, 77 + PopoverPlacement::arrowLength));
    const QImage picture = popover.grab().toImage();
    EXPECT_EQ(picture.pixelColor(10, 10), grey);
    EXPECT_EQ(picture.pixelColor(4, 50), white);
    EXPECT_EQ(picture.pixelColor(popover.placement().arrowX, 79), white);
    // The white of the time, the blue of the cold level and the grey of the intensity are there.
    const auto has = [&picture](const QRect& area, const QColor& color) {
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                if (isNear(picture.pixelColor(x, y), color, 24))
                    return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(has(QRect(60, 2, 60, 22), white));
    EXPECT_TRUE(has(QRect(62, 46, 58, 26), DisplayColors::cold));
    EXPECT_TRUE(has(QRect(122, 46, 56, 26), grey));
    EXPECT_FALSE(has(QRect(122, 46, 56, 26), black));
}

#include "controls/CurveFixture.h"

#include "controls/DisplayColors.h"

#include <QImage>

#include <cmath>

namespace {

const QColor white = DisplayColors::neutral;
const QColor black = DisplayColors::line;
const QColor grey = DisplayColors::disabled;
const QColor warm = DisplayColors::warm;
const QColor cold = DisplayColors::cold;
const QColor grid(236, 236, 236);

/// The program is level at 50 % (y 240), warm at x 280, cold at x 720 and white half way at x 500.
class CurvePaint : public CurveFixture {
protected:
    struct Pixel {
        int x;
        int y;
        QColor color;
        int tolerance = 0;
    };

    void SetUp() override {
        CurveFixture::SetUp();
        show({{AQTime{6, 0, 0}, 0.0, 0.5}, {AQTime{18, 0, 0}, 1.0, 0.5}});
    }
    void expectPixels(std::initializer_list<Pixel> pixels) {
        const QImage image = view.grab().toImage();
        for (const auto& [x, y, color, tolerance] : pixels) {
            const QColor seen = image.pixelColor(x, y);
            EXPECT_TRUE(std::abs(seen.red() - color.red()) <= tolerance &&
                        std::abs(seen.green() - color.green()) <= tolerance &&
                        std::abs(seen.blue() - color.blue()) <= tolerance)
                << x << ' ' << y << ' ' << seen.name().toStdString();
        }
    }
};

} // namespace

TEST_F(CurvePaint, AxesAndOnePointThatHoldsAllDay) {
    show({});
    // The background, its grid at 60 % and noon, dashes of both axes, and ticks of 50 % and of
    // noon.
    expectPixels({{490, 220, white},
                  {490, 200, grid},
                  {499, 220, grid},
                  {60, 440, grey},
                  {62, 440, white},
                  {59, 438, grey},
                  {52, 240, grey},
                  {499, 448, grey},
                  {941, 440, white}});
    show({{AQTime{9, 30, 0}, 0.0, 0.5}});
    for (const int x : {60, 499, 938})
        expectPixels({{x, 280, warm}, {x, 439, warm}, {x, 200, grid}, {x - 1, 236, white}});
}

TEST_F(CurvePaint, FillPassesThroughWhiteAndPointsGrowWhenSelected) {
    expectPixels({{280, 300, warm, 3},
                  {390, 300, DisplayColors::displayColor(0.25), 3},
                  {499, 300, white, 3},
                  {720, 439, cold, 3},
                  {938, 300, white, 3},                  // over midnight as well
                  {650, 239, QColor(191, 191, 191), 12}, // the outer half of the grey outline
                  {280, 234, black, 60},
                  {280, 231, white}});
    select(0);
    // The point, and the marker: line, head and tag.
    expectPixels({{280, 230, black, 60},
                  {280, 150, black},
                  {281, 150, white},
                  {277, 40, black},
                  {257, 453, black},
                  {302, 471, black}});
}

TEST_F(CurvePaint, TheKeyboardAloneShowsItsFrame) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    view.setFocus(Qt::MouseFocusReason);
    expectPixels({{0, 0, white}});
    QTest::keyClick(&view, Qt::Key_Home);
    expectPixels({{0, 0, cold}});
    QTest::mouseClick(point(1), Qt::LeftButton);
    expectPixels({{0, 0, white}});
}

TEST_F(CurvePaint, DisabledIsAnOutlineAndThePlayheadReplacesThePoints) {
    select(0);
    view.setEnabled(false);
    expectPixels({{720, 300, white}, {280, 150, white}, {650, 240, grey, 80}});
    view.setEnabled(true);
    expectPixels({{720, 300, cold, 3}, {280, 150, black}});
    view.setPlayheadTime(AQTime{15, 0, 0});
    EXPECT_TRUE(view.pointViews().empty());
    expectPixels({{610, 240, DisplayColors::displayColor(0.75), 3},
                  {600, 240, black},
                  {610, 150, black},
                  {280, 150, white}});
}

TEST_F(CurvePaint, IsSharpAndTheSameEachTimeAtEveryScale) {
    select(0);
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        const auto picture = [&] {
            QImage target(QSizeF(view.size() * scale).toSize(), QImage::Format_RGB32);
            target.fill(Qt::white); // the row above the view stays unpainted
            target.setDevicePixelRatio(scale);
            // At a place between two pixels, as a layout may have it.
            view.render(&target, QPoint(1, 1));
            return target;
        };
        const QImage first = picture();
        EXPECT_TRUE(picture() == first) << scale; // the axes are kept from the first one
        // Across the marker: full or nothing, no shade between.
        const int y = static_cast<int>(150 * scale);
        for (int x = static_cast<int>(270 * scale); x < 290 * scale; ++x)
            EXPECT_TRUE(first.pixelColor(x, y) == white || first.pixelColor(x, y) == black)
                << scale << ' ' << x;
    }
}

// The plot's edges go to whole pixels, past the first and the last minute of the day.
TEST_F(CurvePaint, FillEndsWithThePlotAtEveryWidth) {
    show({{AQTime{0, 0, 0}, 1.0, 1.0}, {AQTime{0, 1, 0}, 1.0, 0.5}, {AQTime{23, 59, 0}, 1.0, 0.5}});
    for (int width = 480; width < 490; ++width) {
        view.resize(width, 300);
        for (const double scale : {1.0, 1.15, 1.5}) {
            QImage target(QSizeF(view.size() * scale).toSize(), QImage::Format_RGB32);
            target.setDevicePixelRatio(scale);
            view.render(&target, QPoint());
            const int y = static_cast<int>(250 * scale);
            const double end = (width - 60) * scale;
            EXPECT_EQ(target.pixelColor(static_cast<int>(end) - 2, y), cold)
                << width << ' ' << scale;
            EXPECT_EQ(target.pixelColor(static_cast<int>(end) + 2, y), white)
                << width << ' ' << scale;
        }
    }
}

// Where the light is off no colour lies on the time axis, wherever between two device pixels that
// would be.
TEST_F(CurvePaint, NothingShowsWhereTheLightIsOff) {
    show({{AQTime{9, 0, 0}, 1.0, 0.0}, {AQTime{12, 0, 0}, 1.0, 0.5}, {AQTime{15, 0, 0}, 1.0, 0.0}});
    for (int height = 300; height < 304; ++height) {
        view.resize(500, height);
        for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
            QImage target(QSizeF(view.size() * scale).toSize(), QImage::Format_RGB32);
            target.setDevicePixelRatio(scale);
            view.render(&target, QPoint());
            const int axis = static_cast<int>((height - 40) * scale);
            for (int y = axis - 3; y < axis + 3; ++y)
                for (int x = static_cast<int>(80 * scale); x < 84 * scale; ++x) {
                    const QColor seen = target.pixelColor(x, y);
                    EXPECT_EQ(seen.red(), seen.blue())
                        << height << ' ' << scale << ' ' << x << ' ' << y;
                }
        }
    }
}

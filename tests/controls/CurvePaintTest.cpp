#include "controls/CurveFixture.h"

#include "controls/DisplayColors.h"

#include <QImage>

#include <cmath>
#include <set>

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
    QImage picture(double scale) {
        QImage target(QSizeF(view.size() * scale).toSize(), QImage::Format_RGB32);
        target.fill(Qt::black); // what lies under the view
        target.setDevicePixelRatio(scale);
        view.render(&target);
        return target;
    }
    void expectPixels(std::initializer_list<Pixel> pixels) {
        const QImage image = picture(1.0);
        for (const auto& [x, y, color, tolerance] : pixels) {
            const QColor seen = image.pixelColor(x, y);
            EXPECT_LE(std::max({std::abs(seen.red() - color.red()),
                                std::abs(seen.green() - color.green()),
                                std::abs(seen.blue() - color.blue())}),
                      tolerance)
                << x << ' ' << y << ' ' << seen.name().toStdString();
        }
    }
};

} // namespace

// Beside the ghost's own line nothing differs, at the edge of the fill neither.
TEST_F(CurvePaint, GhostShowsWhereItDiffersAndChangesNothingElse) {
    const QImage plain = picture(1.0);
    view.setGhost({{{AQTime{6, 0, 0}, 0.2, 0.5}, {AQTime{18, 0, 0}, 0.8, 0.5}}});
    document.preview().show(document.sequence().points());
    EXPECT_EQ(picture(1.0), plain) << "the same curve";
    document.preview().end();

    const auto rowsThatDiffer = [&](const QImage& image) {
        std::set<int> rows;
        for (int y = 0; y < plain.height(); ++y)
            for (int x = 0; x < plain.width(); ++x)
                if (image.pixel(x, y) != plain.pixel(x, y))
                    rows.insert(y);
        return rows;
    };
    for (const double intensity : {0.25, 0.75}) { // on the fill, and above it
        view.setGhost({{{AQTime{6, 0, 0}, 0.0, intensity}}});
        const int y = static_cast<int>(440.0 - 400.0 * intensity);
        EXPECT_EQ(rowsThatDiffer(picture(1.0)), (std::set{y - 1, y})) << intensity;
    }
    view.setEnabled(false);
    const QImage disabled = picture(1.0);
    view.setGhost({});
    EXPECT_EQ(picture(1.0), disabled);
}

TEST_F(CurvePaint, AxesFillPointsMarkerAndPlayhead) {
    expectPixels({{52, 240, grey}, // ticks of 50 % and of noon, and a dash of the axis
                  {499, 448, grey},
                  {60, 440, grey},
                  {62, 440, white},
                  {280, 300, warm, 3},
                  {390, 300, DisplayColors::displayColor(0.25), 3},
                  {499, 300, white, 3},
                  {720, 439, cold, 3},
                  {938, 300, white, 3},                  // over midnight as well
                  {650, 239, QColor(191, 191, 191), 12}, // the outer half of the grey outline
                  {280, 234, black, 60},
                  {280, 231, white}});
    select(0);
    // The point has grown, and there is the marker: line, head and tag.
    expectPixels({{280, 230, black, 60}, {280, 150, black}, {277, 40, black}, {257, 453, black}});
    view.setEnabled(false);
    expectPixels({{720, 300, white}, {280, 150, white}, {650, 240, grey, 80}});
    view.setEnabled(true);
    view.setPlayheadTime(AQTime{15, 0, 0});
    expectPixels({{610, 240, DisplayColors::displayColor(0.75), 3},
                  {600, 240, black},
                  {610, 150, black},
                  {280, 150, white}});
    view.setPlayheadTime({});
    show({{AQTime{9, 30, 0}, 0.0, 0.5}});
    for (const int x : {60, 499, 938})
        expectPixels({{x, 280, warm}, {x, 439, warm}, {x, 200, grid}, {x - 1, 236, white}});
}

// The plot's edges go to whole pixels, past the first and the last minute of the day; where the
// light is off no colour lies on the time axis, and the marker's line has no shade beside it.
TEST_F(CurvePaint, IsSharpAndFillsThePlotAtEverySize) {
    show({{AQTime{0, 0, 0}, 1.0, 1.0},
          {AQTime{0, 1, 0}, 1.0, 0.0},
          {AQTime{12, 0, 0}, 1.0, 0.0},
          {AQTime{23, 59, 0}, 1.0, 1.0}});
    select(2);
    for (int size = 0; size < 10; ++size) {
        view.resize(480 + size, 300 + size);
        for (const double scale : {1.0, 1.15, 1.25, 1.5}) {
            const QImage image = picture(scale);
            EXPECT_EQ(image.pixelColor(image.width() - 1, image.height() - 1), white) << scale;
            int y = static_cast<int>((view.height() - 50) * scale);
            const int end = static_cast<int>((view.width() - 60) * scale);
            EXPECT_EQ(image.pixelColor(end - 2, y), cold) << size << ' ' << scale;
            EXPECT_EQ(image.pixelColor(end + 2, y), white) << size << ' ' << scale;
            const int axis = static_cast<int>((view.height() - 40) * scale);
            for (y = axis - 3; y < axis + 3; ++y) {
                const QColor seen = image.pixelColor(static_cast<int>(150 * scale), y);
                EXPECT_EQ(seen.red(), seen.blue()) << size << ' ' << scale << ' ' << y;
            }
            y = static_cast<int>(150 * scale);
            const int noon = static_cast<int>((view.width() / 2) * scale);
            const QColor beside = image.pixelColor(noon - 15, y);
            for (int x = noon - 15; x < noon + 5; ++x) {
                const QColor seen = image.pixelColor(x, y);
                EXPECT_TRUE(seen == beside || seen == black) << size << ' ' << scale << ' ' << x;
            }
        }
    }
}

// Repaints of the controls against a fill of the same area with one gradient.

#include "Benches.h"
#include "Measure.h"
#include "SampleProgram.h"
#include "Table.h"
#include "controls/curve/AQCurveView.h"
#include "controls/points/AQControlTable.h"
#include "controls/sliders/AQSliderBrightness.h"
#include "controls/sliders/AQSliderColorTemp.h"
#include "data/AQDataSource.h"
#include "workflows/PointTable.h"

#include <benchmark/benchmark.h>

#include <QAction>
#include <QHeaderView>
#include <QPushButton>
#include <QTest>

namespace {

constexpr double frameTime = 1000.0 / 60.0; // ms

void show(QWidget& widget, QSize size) {
    widget.resize(size);
    widget.show();
    // Nothing is painted before the window is on screen.
    if (!QTest::qWaitForWindowExposed(&widget))
        qFatal("The window did not appear.");
}

/// Times `work` and the gradient in turns; milliseconds.
template <typename Work>
void measure(benchmark::State& state, const char* what, Promise promise, QSize area, Work work) {
    GradientFill gradient(area);
    Samples ours;
    Samples floor;
    for (auto _ : state) {
        ours.add(milliseconds(work));
        floor.add(milliseconds([&] { gradient(); }));
    }
    Table::add({what, "ms", ours.median(), floor.median(), "one gradient over the area", promise});
}

struct ShownCurve {
    ShownCurve() {
        document.sequence().replacePoints(SampleProgram::points());
        view.setDocument(document);
        document.sequence().notifySelectionChange(selected, nullptr);
        show(view, area);
    }
    static constexpr QSize area{1600, 600};
    static constexpr int selected = SampleProgram::pointCount / 2;
    NotificationCenter notifications;
    AQDataSource document{notifications};
    AQCurveView view;
};

void curve(benchmark::State& state) {
    ShownCurve curve;
    measure(state, "curve, 1600 x 600, 20 points: repaint", Promise::atMost(1.5), ShownCurve::area,
            [&] { curve.view.repaint(); });
}

void curveStep(benchmark::State& state) {
    ShownCurve curve;
    double intensity = 0.0;
    measure(state, "curve: an edit and its repaint", Promise::atMost(1.5), ShownCurve::area, [&] {
        intensity = intensity < 0.99 ? intensity + 0.01 : 0.0;
        curve.view.editIntensity(ShownCurve::selected, intensity);
        curve.view.repaint();
    });
}

/// Each new size draws axes and labels anew.
void curveResize(benchmark::State& state) {
    ShownCurve curve;
    bool isNarrow = false;
    measure(state, "curve: a resize and its repaint", Promise::none(), ShownCurve::area, [&] {
        isNarrow = !isNarrow;
        curve.view.resize(ShownCurve::area - QSize(isNarrow ? 1 : 0, 0));
        curve.view.repaint();
    });
}

template <typename Slider>
void slider(benchmark::State& state, const char* name) {
    constexpr QSize area{240, 40};
    Slider slider;
    show(slider, area);
    double value = 0.0;
    measure(state, name, Promise::none(), area, [&] {
        value = value < 0.99 ? value + 0.01 : 0.0;
        slider.setValue(value);
        slider.repaint();
    });
}

void table(benchmark::State& state) {
    NotificationCenter notifications;
    AQDataSource document{notifications};
    document.sequence().replacePoints(SampleProgram::points());
    AQControlTable view;
    QPushButton add;
    QPushButton remove;
    QAction addItem;
    QAction removeItem;
    PointTable table(document, {view, add, remove, addItem, removeItem});
    // All rows are in sight.
    const QSize area(900, view.verticalHeader()->length());
    show(view, area + QSize(0, view.horizontalHeader()->sizeHint().height() + 4));
    int step = 0;
    measure(state, "table, 20 rows: an edit and a repaint of all", Promise::atMost(frameTime), area,
            [&] {
                document.sequence().updateWithRow(
                    10, AQSequence::Brightness{static_cast<double>(++step % 100) / 100.0}, nullptr);
                view.viewport()->repaint();
            });
}

} // namespace

void registerPaintBenches() {
    constexpr int repaints = 400;
    benchmark::RegisterBenchmark("curve", curve)->Iterations(repaints);
    benchmark::RegisterBenchmark("curve edit", curveStep)->Iterations(repaints);
    benchmark::RegisterBenchmark("curve resize", curveResize)->Iterations(repaints);
    benchmark::RegisterBenchmark("brightness slider", slider<AQSliderBrightness>,
                                 "intensity slider, 240 x 40: an edit and its repaint")
        ->Iterations(repaints);
    benchmark::RegisterBenchmark("colour slider", slider<AQSliderColorTemp>,
                                 "colour slider, 240 x 40: an edit and its repaint")
        ->Iterations(repaints);
    benchmark::RegisterBenchmark("table", table)->Iterations(repaints);
}

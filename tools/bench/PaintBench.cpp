// Repaints of the controls against a fill of the same area with one gradient.

#include "Benches.h"
#include "Measure.h"
#include "SampleProgram.h"
#include "Table.h"
#include "WholeProgram.h"
#include "controls/curve/AQCurveView.h"
#include "controls/points/AQPointList.h"
#include "data/AQDataSource.h"
#include "data/AQDataSourceReader.h"
#include "data/AQDataSourceWriter.h"
#include "data/History.h"
#include "data/ProgramChanges.h"

#include <benchmark/benchmark.h>

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
        document.sequence().notifyDataChange(nullptr, false);
        document.sequence().notifySelectionChange(SampleProgram::pointCount / 2, nullptr);
        show(view, area);
    }
    static constexpr QSize area{1600, 600};
    NotificationCenter notifications;
    AQDataSource document{notifications};
    AQCurveView view{document.sequence(), document.selection(), nullptr};
};

void curve(benchmark::State& state) {
    ShownCurve curve;
    measure(state, "curve, 1600 x 600, 20 points: repaint", Promise::atMost(1.5), ShownCurve::area,
            [&] { curve.view.repaint(); });
}

void curveWithGhost(benchmark::State& state) {
    ShownCurve curve;
    curve.view.setGhost(ProgramChanges::shiftedDay(SampleProgram::points(), 90));
    measure(state, "the same over a ghost", Promise::atMost(1.5), ShownCurve::area,
            [&] { curve.view.repaint(); });
}

void curveStep(benchmark::State& state) {
    ShownCurve curve;
    double intensity = 0.0;
    measure(state, "curve: an edit and its repaint", Promise::atMost(1.5), ShownCurve::area, [&] {
        intensity = intensity < 0.99 ? intensity + 0.01 : 0.0;
        curve.view.editIntensity(curve.document.selection().id(), intensity);
        curve.view.repaint();
    });
}

void table(benchmark::State& state) {
    NotificationCenter notifications;
    AQDataSource document{notifications};
    document.sequence().replacePoints(SampleProgram::points());
    AQPointList view(document.sequence(), document.selection(), nullptr);
    // All rows are in sight.
    const QSize area(900, 48 * SampleProgram::pointCount);
    show(view, area + QSize(0, 40));
    int step = 0;
    measure(state, "table, 20 rows: an edit and a repaint of all", Promise::atMost(frameTime), area,
            [&] {
                document.sequence().updateWithRow(
                    10, AQSequence::Brightness{static_cast<double>(++step % 100) / 100.0}, nullptr);
                view.viewport()->repaint();
            });
}

/// From the file's bytes to the window that shows them.
void opening(benchmark::State& state, int points) {
    WholeProgram program({});
    program.delegate.applicationDidFinishLaunching({});
    if (!QTest::qWaitForWindowExposed(&program.delegate.window()))
        qFatal("The window did not appear.");
    program.data.sequence().replacePoints(SampleProgram::points(points));
    const QByteArray file = AQDataSourceWriter(program.data).text();
    Samples ours;
    for (auto _ : state) {
        program.data.loadDefaults();
        QCoreApplication::processEvents();
        ours.add(milliseconds([&] {
            AQDataSourceReader(program.data).read(file);
            QCoreApplication::processEvents();
        }));
    }
    Table::add({"opening a file of " + std::to_string(points) + " points", "ms", ours.median(), 0.0,
                "", Promise::atMost(500.0)});
}

/// An undo in the whole program's window, without the painting that it asks for.
void undoStep(benchmark::State& state) {
    WholeProgram program({});
    program.delegate.applicationDidFinishLaunching({});
    if (!QTest::qWaitForWindowExposed(&program.delegate.window()))
        qFatal("The window did not appear.");
    AQSequence& sequence = program.data.sequence();
    sequence.replacePoints(SampleProgram::points());
    sequence.notifyDataChange(nullptr, true);
    History& history = program.data.history();
    history.restart();
    sequence.updateWithRow(5, AQSequence::Brightness{0.1}, nullptr);
    history.endStep();
    sequence.setTime(5, {23, 0}, nullptr);
    QCoreApplication::processEvents();
    Samples edits;
    Samples reorders;
    for (auto _ : state) {
        reorders.add(milliseconds([&] { history.undo(); }));
        edits.add(milliseconds([&] { history.undo(); }));
        QCoreApplication::processEvents();
        history.redo();
        history.redo();
        QCoreApplication::processEvents();
    }
    Table::add({"undo of an intensity, 20 points, without painting", "ms", edits.median(), 0.0, "",
                Promise::atMost(1.0)});
    Table::add({"undo of a move past others, 20 points, without painting", "ms", reorders.median(),
                0.0, "", Promise::atMost(1.0)});
}

} // namespace

void registerPaintBenches() {
    constexpr int repaints = 400;
    benchmark::RegisterBenchmark("curve", curve)->Iterations(repaints);
    benchmark::RegisterBenchmark("curve ghost", curveWithGhost)->Iterations(repaints);
    benchmark::RegisterBenchmark("curve edit", curveStep)->Iterations(repaints);
    benchmark::RegisterBenchmark("table", table)->Iterations(repaints);
    benchmark::RegisterBenchmark("undo", undoStep)->Iterations(repaints);
    for (const int points : {7, 84, 1440})
        benchmark::RegisterBenchmark("opening", opening, points)->Iterations(10);
}

// The pace of the demo in the program's window.

#include "Benches.h"
#include "Measure.h"
#include "SampleProgram.h"
#include "Table.h"
#include "WholeProgram.h"
#include "controls/curve/AQCurveView.h"
#include "ui_MainWindow.h"

#include <benchmark/benchmark.h>

#include <QTest>

namespace {

void demo(benchmark::State& state) {
    constexpr int minutes = 125;
    constexpr double tick = 0.08; // s
    WholeProgram program({});
    program.data.sequence().replacePoints(SampleProgram::points());
    program.data.sequence().notifyDataChange(nullptr, false);
    program.delegate.applicationDidFinishLaunching({});
    MainWindow& window = program.delegate.window();
    if (!QTest::qWaitForWindowExposed(&window))
        qFatal("The window did not appear.");

    const AQCurveView& curve = window.curveView();
    QAbstractButton& button = *window.outlets().bttnRunDemo;
    for (auto _ : state) {
        button.setEnabled(true); // there is no lamp, which the demo goes on without
        const double time = milliseconds([&] {
            button.click();
            const bool arrived = QTest::qWaitFor(
                [&] {
                    const auto playhead = curve.playheadTime();
                    return playhead && playhead->minuteOfDay() >= minutes;
                },
                2 * static_cast<int>(minutes * tick * 1000.0));
            if (!arrived)
                qFatal("The demo did not get there.");
        });
        button.click();
        Table::add({"demo: 125 minutes of the day", "s", time / 1000.0, minutes * tick,
                    "a minute in 0.08 s", Promise::timesFloor(1.02)});
    }
}

} // namespace

void registerDemoBenches() {
    benchmark::RegisterBenchmark("demo", demo)->Iterations(1);
}

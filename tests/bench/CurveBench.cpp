// What a repaint of the curve view costs at 1600 x 600 with 20 points, and how much that is of
// filling the same area with one gradient, the floor on the machine at hand.

#include "controls/AQCurveView.h"
#include "controls/CurveGradient.h"
#include "data/AQDataSource.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QTest>

#include <algorithm>
#include <chrono>

namespace {

constexpr QSize area{1600, 600};
constexpr int pointCount = 20;
double gradientMedian = 0.0;

std::vector<AQTimePoint> program() {
    std::vector<AQTimePoint> points;
    for (int i = 0; i < pointCount; ++i)
        points.push_back(
            {AQTime::fromMinuteOfDay(20 + 70 * i), (i % 5) / 4.0, 0.6 + (i % 4) / 10.0});
    return points;
}

/// Runs `work` for the benchmark and returns the median of its single times in milliseconds.
template <typename Work>
double medianOf(benchmark::State& state, Work work) {
    using Clock = std::chrono::steady_clock;
    std::vector<double> times;
    for (auto _ : state) {
        const auto start = Clock::now();
        work();
        times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    }
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::ranges::nth_element(times, middle);
    state.counters["median_ms"] = *middle;
    return *middle;
}

void oneGradient(benchmark::State& state) {
    QImage image(area, QImage::Format_ARGB32_Premultiplied);
    QLinearGradient gradient(0.0, 0.0, area.width(), 0.0);
    gradient.setStops(CurveGradient::colorStops(CurveGradient::temperatureStops(program())));
    gradientMedian = medianOf(state, [&] {
        QPainter painter(&image);
        painter.fillRect(image.rect(), gradient);
    });
}

class ShownCurve {
public:
    ShownCurve() {
        document.sequence().replacePoints(program());
        view.setDocument(document);
        document.sequence().notifySelectionChange(pointCount / 2, nullptr);
        view.resize(area);
        view.show();
        // Nothing is painted before the window is on screen.
        if (!QTest::qWaitForWindowExposed(&view))
            qFatal("The window did not appear.");
    }
    NotificationCenter notifications;
    AQDataSource document{notifications};
    AQCurveView view;
};

void repaint(benchmark::State& state) {
    ShownCurve curve;
    const double median = medianOf(state, [&] { curve.view.repaint(); });
    state.counters["of_one_gradient"] = median / gradientMedian;
}

void dragStep(benchmark::State& state) {
    ShownCurve curve;
    double intensity = 0.0;
    const double median = medianOf(state, [&] {
        intensity = intensity < 0.99 ? intensity + 0.01 : 0.0;
        curve.view.editIntensity(pointCount / 2, intensity);
        curve.view.repaint();
    });
    state.counters["of_one_gradient"] = median / gradientMedian;
}

/// Each new size draws axes and labels anew.
void resizeStep(benchmark::State& state) {
    ShownCurve curve;
    bool isWide = false;
    const double median = medianOf(state, [&] {
        isWide = !isWide;
        curve.view.resize(area - QSize(isWide ? 0 : 1, 0));
        curve.view.repaint();
    });
    state.counters["of_one_gradient"] = median / gradientMedian;
}

// In this order: the ratios need the gradient's time.
BENCHMARK(oneGradient)->Unit(benchmark::kMillisecond);
BENCHMARK(repaint)->Unit(benchmark::kMillisecond);
BENCHMARK(dragStep)->Unit(benchmark::kMillisecond);
BENCHMARK(resizeStep)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    QApplication app(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

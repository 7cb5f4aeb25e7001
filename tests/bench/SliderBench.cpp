// What a repaint of the sliders costs in a row of the table, and how much that is of filling the
// same area with one gradient. Twenty rows hold forty of them.

#include "controls/AQSliderBrightness.h"
#include "controls/AQSliderColorTemp.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

namespace {

constexpr QSize area{240, 40};

void oneGradient(benchmark::State& state) {
    QImage image(area, QImage::Format_ARGB32_Premultiplied);
    QLinearGradient gradient(0.0, 0.0, area.width(), 0.0);
    gradient.setColorAt(1.0, Qt::white);
    for (auto _ : state) {
        QPainter painter(&image);
        painter.fillRect(image.rect(), gradient);
    }
}

template <typename Slider>
void repaint(benchmark::State& state) {
    Slider slider;
    slider.resize(area);
    QImage image(area, QImage::Format_ARGB32_Premultiplied);
    double value = 0.0;
    for (auto _ : state) {
        value = value < 0.99 ? value + 0.01 : 0.0;
        slider.setValue(value);
        slider.render(&image);
    }
}

BENCHMARK(oneGradient)->Unit(benchmark::kMicrosecond);
BENCHMARK(repaint<AQSliderBrightness>)->Unit(benchmark::kMicrosecond);
BENCHMARK(repaint<AQSliderColorTemp>)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    QApplication app(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

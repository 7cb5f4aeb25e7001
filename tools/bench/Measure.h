#pragma once

#include <QColor>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QSize>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

/// What `work` takes, in milliseconds on the clock.
template <typename Work>
double milliseconds(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

/// Single measurements, of which the median counts: other programs on the machine disturb some.
class Samples {
public:
    void add(double value) { m_values.push_back(value); }
    /// 0.0 without samples.
    double median() const {
        if (m_values.empty())
            return 0.0;
        std::vector<double> values = m_values;
        const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::ranges::nth_element(values, middle);
        return *middle;
    }

private:
    std::vector<double> m_values;
};

/// The floor of a repaint: the same area filled with one gradient.
class GradientFill {
public:
    explicit GradientFill(QSize area)
        : m_image(area, QImage::Format_ARGB32_Premultiplied), m_gradient(0, 0, area.width(), 0) {
        m_gradient.setColorAt(0.0, QColor(130, 180, 255));
        m_gradient.setColorAt(1.0, QColor(255, 190, 110));
    }
    void operator()() {
        QPainter painter(&m_image);
        painter.fillRect(m_image.rect(), m_gradient);
    }

private:
    QImage m_image;
    QLinearGradient m_gradient;
};

#include "controls/sliders/AQSliderBrightness.h"

#include "controls/DisplayColors.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int labelPixelSize = 13;

QLinearGradient darkToNeutral() {
    QLinearGradient gradient(0.0, 0.0, 1.0, 0.0);
    gradient.setCoordinateMode(QGradient::ObjectMode);
    gradient.setColorAt(0.0, QColor::fromRgbF(0.08F, 0.08F, 0.08F));
    gradient.setColorAt(1.0, DisplayColors::neutral);
    return gradient;
}

} // namespace

AQSliderBrightness::AQSliderBrightness(QWidget* parent) : AQSlider(parent, darkToNeutral()) {}

QSize AQSliderBrightness::minimumSizeHint() const {
    return {96, std::max(24, QFontMetrics(labelFont(labelPixelSize)).height() + 8)};
}

void AQSliderBrightness::drawLabels(QPainter& painter, const QRectF& rect,
                                    const QColor& color) const {
    painter.setFont(labelFont(labelPixelSize));
    painter.setPen(color);
    painter.drawText(rect, Qt::AlignCenter | Qt::TextDontClip, valueText());
}

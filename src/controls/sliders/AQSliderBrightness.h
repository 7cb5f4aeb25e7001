#pragma once

#include "controls/sliders/AQSlider.h"

/// The intensity slider: a bar from dark to white with the value as a percentage.
class AQSliderBrightness : public AQSlider {
    Q_OBJECT

public:
    explicit AQSliderBrightness(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    void drawLabels(QPainter& painter, const QRectF& rect, const QColor& color) const override;
};

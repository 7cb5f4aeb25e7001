#pragma once

#include "controls/sliders/AQSlider.h"

#include <QPixmap>

/// The colour-temperature slider: a bar from warm over white to cold, with the share of each
/// channel.
class AQSliderColorTemp : public AQSlider {
    Q_OBJECT
    Q_PROPERTY(bool showCurve READ showCurve WRITE setShowCurve)

public:
    explicit AQSliderColorTemp(QWidget* parent = nullptr);

    /// The intensity that goes with this colour temperature: the scale of the two percentages.
    double maxValue() const { return m_maxValue; }
    /// Stores min(maxValue, 1).
    void setMaxValue(double maxValue);

    /// Whether the bar shows the guide curve of the channels; true by default.
    bool showCurve() const { return m_showCurve; }
    void setShowCurve(bool showCurve);

    /// Percent: all of `maxValue` from value 0.5 up, falling to 0 at value 0.
    int coldValue() const;
    /// Percent: all of `maxValue` up to value 0.5, falling to 0 at value 1.
    int warmValue() const;

    /// Takes a number, or a QVariantList of two: the value and the maximum.
    void setObjectValue(const QVariant& object) override;
    double valueIncrement() const override { return 0.005; }
    QString valueText() const override;

    QSize minimumSizeHint() const override;

protected:
    void drawBar(QPainter& painter, const QRectF& rect) override;
    void drawLabels(QPainter& painter, const QRectF& rect, const QColor& color) const override;

private:
    /// All of the bar that no value changes.
    void drawBackground(QPainter& painter, const QRectF& rect);
    /// That of an enabled bar, which sliders of the same size share: the curve takes longer to draw
    /// than everything else together.
    QPixmap background(const QRectF& rect, double scale);
    void drawCurve(QPainter& painter, const QRectF& rect) const;

    double m_maxValue = 1.0;
    bool m_showCurve = true;
};

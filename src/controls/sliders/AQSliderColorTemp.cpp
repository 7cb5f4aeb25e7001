#include "controls/sliders/AQSliderColorTemp.h"

#include "controls/DisplayColors.h"
#include "controls/Strokes.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>
#include <QVariantList>

#include <algorithm>
#include <cmath>

namespace {

constexpr int labelPixelSize = 12;
constexpr double labelGap = 10.0;
constexpr double labelMargin = 4.0;

QString warmWord() {
    return AQSliderColorTemp::tr("Warm");
}
QString coldWord() {
    return AQSliderColorTemp::tr("Cold");
}

QLinearGradient warmToCold() {
    QLinearGradient gradient(0.0, 0.0, 1.0, 0.0);
    gradient.setCoordinateMode(QGradient::ObjectMode);
    gradient.setColorAt(0.0, DisplayColors::warm);
    gradient.setColorAt(0.5, DisplayColors::neutral);
    gradient.setColorAt(1.0, DisplayColors::cold);
    return gradient;
}

int channelPercent(double share, double maximum) {
    return static_cast<int>(std::lround(maximum * 100.0 * std::min(1.0, 2.0 * share)));
}

QSizeF wordSize(const QFontMetricsF& metrics, const QString& word) {
    return {std::ceil(metrics.horizontalAdvance(word)), std::ceil(metrics.height())};
}

} // namespace

AQSliderColorTemp::AQSliderColorTemp(QWidget* parent) : AQSlider(parent, warmToCold()) {}

void AQSliderColorTemp::setMaxValue(double maxValue) {
    if (std::isnan(maxValue))
        return;
    m_maxValue = std::min(maxValue, 1.0);
    update();
}

void AQSliderColorTemp::setShowCurve(bool showCurve) {
    m_showCurve = showCurve;
    update();
}

int AQSliderColorTemp::coldValue() const {
    return channelPercent(value(), m_maxValue);
}

int AQSliderColorTemp::warmValue() const {
    return channelPercent(1.0 - value(), m_maxValue);
}

void AQSliderColorTemp::setObjectValue(const QVariant& object) {
    if (object.typeId() != QMetaType::QVariantList) {
        AQSlider::setObjectValue(object);
        return;
    }
    const QVariantList pair = object.toList();
    if (pair.size() != 2)
        return;
    const auto newValue = numberFrom(pair.at(0));
    const auto newMaximum = numberFrom(pair.at(1));
    if (newValue && newMaximum) {
        setValue(*newValue);
        setMaxValue(*newMaximum);
    }
}

QString AQSliderColorTemp::valueText() const {
    return tr("warm %1%, cold %2%").arg(warmValue()).arg(coldValue());
}

QSize AQSliderColorTemp::minimumSizeHint() const {
    const QFontMetricsF metrics(labelFont(labelPixelSize));
    const QSizeF word = wordSize(metrics, warmWord()).expandedTo(wordSize(metrics, coldWord()));
    // The words stand within four fifths of the bar, off its darkest part.
    return {static_cast<int>(2.5 * (labelGap + word.width())),
            static_cast<int>(2.0 * (labelMargin + word.height()))};
}

void AQSliderColorTemp::drawCurve(QPainter& painter, const QRectF& rect) const {
    const double w = rect.width();
    const double h = rect.height();
    const double low = 0.75 * h;
    const double high = 0.2 * h;
    const double hairline = 1.0 / painter.device()->devicePixelRatioF();
    Strokes::plusDarker(painter, rect, [&](QPainter& strokes) {
        QPen dashes(Strokes::plusDarkerPen(0.7), hairline, Qt::CustomDashLine, Qt::FlatCap);
        dashes.setDashPattern({2.0 / hairline, 2.0 / hairline});
        strokes.setPen(dashes);
        for (const double fraction : {0.25, 0.5, 0.75})
            strokes.drawLine(QPointF(fraction * w, h - 1.0), QPointF(fraction * w, 1.0));
        QPainterPath curve(QPointF(0.0, low));
        curve.cubicTo(0.35 * w, low, 0.35 * w, high, 0.5 * w, high);
        curve.cubicTo(0.65 * w, high, 0.65 * w, low, w, low);
        strokes.setPen(QPen(Strokes::plusDarkerPen(0.9), 1.0));
        strokes.drawPath(curve);
    });
}

void AQSliderColorTemp::drawLabels(QPainter& painter, const QRectF& rect,
                                   const QColor& color) const {
    const QFont font = labelFont(labelPixelSize);
    const QFontMetricsF metrics(font);
    const double center = rect.center().x();
    const auto drawColumn = [&](const QString& word, int number, bool leftOfCenter) {
        const QSizeF size = wordSize(metrics, word);
        const double x = leftOfCenter ? center - size.width() - labelGap : center + labelGap;
        // A bar too low for both lines gives up its margins first.
        const double margin = std::clamp(rect.height() / 2.0 - size.height(), 0.0, labelMargin);
        const QRectF top(QPointF(x, rect.top() + margin), size);
        const QRectF bottom(QPointF(x, rect.bottom() - margin - size.height()), size);
        painter.drawText(top, Qt::AlignLeft | Qt::TextDontClip, word);
        painter.drawText(bottom, Qt::AlignLeft | Qt::TextDontClip, QString::number(number));
    };
    painter.setFont(font);
    painter.setPen(color);
    drawColumn(warmWord(), warmValue(), true);
    drawColumn(coldWord(), coldValue(), false);
}

void AQSliderColorTemp::drawBackground(QPainter& painter, const QRectF& rect) {
    AQSlider::drawBar(painter, rect);
    if (m_showCurve)
        drawCurve(painter, rect);
}

QPixmap AQSliderColorTemp::background(const QRectF& rect, double scale) {
    const QString key = QStringLiteral("AQSliderColorTemp %1 %2 %3 %4")
                            .arg(rect.width())
                            .arg(rect.height())
                            .arg(scale)
                            .arg(m_showCurve);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap(static_cast<int>(std::ceil(rect.width() * scale)),
                         static_cast<int>(std::ceil(rect.height() * scale)));
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(DisplayColors::neutral);
        QPainter painter(&pixmap);
        drawBackground(painter, rect);
        painter.end();
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

void AQSliderColorTemp::drawBar(QPainter& painter, const QRectF& rect) {
    if (isEnabled()) {
        painter.drawPixmap(rect.topLeft(), background(rect, painter.device()->devicePixelRatioF()));
    } else {
        drawBackground(painter, rect);
    }
}

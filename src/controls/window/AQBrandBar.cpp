#include "controls/window/AQBrandBar.h"

#include "controls/AccentColor.h"

#include <QEvent>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr int barHeight = 48;
constexpr int sideMargin = 16;
constexpr QSizeF markSize(24.0, 16.0);
constexpr double markGap = 8.0;

QString word() {
    return QStringLiteral("Aquelon");
}

/// A day of light: up from the base line, over noon, down again.
QPainterPath dayCurve(const QRectF& rect) {
    const double w = rect.width();
    QPainterPath curve(rect.bottomLeft());
    curve.cubicTo(rect.bottomLeft() + QPointF(0.3 * w, 0.0),
                  rect.topLeft() + QPointF(0.25 * w, 0.0), rect.topLeft() + QPointF(0.5 * w, 0.0));
    curve.cubicTo(rect.topLeft() + QPointF(0.75 * w, 0.0),
                  rect.bottomLeft() + QPointF(0.7 * w, 0.0), rect.bottomRight());
    return curve;
}

} // namespace

AQBrandBar::AQBrandBar(QWidget* parent) : QWidget(parent) {
    setFixedHeight(barHeight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    reserveWordMark();
}

QFont AQBrandBar::wordFont() const {
    QFont wide = font();
    wide.setPixelSize(std::max(20, QFontInfo(font()).pixelSize() + 6));
    wide.setWeight(QFont::DemiBold);
    wide.setLetterSpacing(QFont::AbsoluteSpacing, 0.5);
    return wide;
}

void AQBrandBar::reserveWordMark() {
    const double width = sideMargin + markSize.width() + markGap +
                         QFontMetricsF(wordFont()).horizontalAdvance(word()) + sideMargin;
    setContentsMargins(static_cast<int>(std::ceil(width)), 0, sideMargin, 0);
    setMinimumWidth(static_cast<int>(std::ceil(width)) + sideMargin);
}

void AQBrandBar::addTrailingWidget(QWidget* widget) {
    auto* row = qobject_cast<QHBoxLayout*>(layout());
    if (!row) {
        row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(8);
        row->addStretch(1);
    }
    row->addWidget(widget);
}

QSize AQBrandBar::sizeHint() const {
    return {QWidget::sizeHint().width(), barHeight};
}

void AQBrandBar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        reserveWordMark();
}

void AQBrandBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.fillRect(0, height() - 1, width(), 1, AccentColor::tone(palette(), 0.15));

    painter.setRenderHint(QPainter::Antialiasing);
    const QColor accent = AccentColor::onWindow(palette());
    const QRectF mark(QPointF(sideMargin, (height() - markSize.height()) / 2.0), markSize);
    painter.setPen(QPen(accent, 2.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(dayCurve(mark));

    const QFontMetricsF metrics(wordFont());
    QPainterPath letters;
    letters.addText(mark.right() + markGap, (height() + metrics.capHeight()) / 2.0, wordFont(),
                    word());
    painter.fillPath(letters, accent);
}

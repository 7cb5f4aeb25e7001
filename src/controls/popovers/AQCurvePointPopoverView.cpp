#include "controls/popovers/AQCurvePointPopoverView.h"

#include "controls/DisplayColors.h"
#include "controls/popovers/PopoverPlacement.h"
#include "controls/time/TimeText.h"
#include "data/ColorMapping.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace {

constexpr int columnWidth = AQCurvePointPopoverView::contentWidth / 3;
constexpr int titleTop = 29;
constexpr int titleHeight = 17;
constexpr int valueTop = 46;
constexpr int valueHeight = 25;

/// The orange of this desktop's usual palette that can still be read on white.
constexpr QColor orange{230, 97, 0};

/// `font` in a size, or in the largest below it in which `text` keeps clear of its neighbours.
QFont fittingFont(QFont font, int pixelSize, const QString& text, int width) {
    constexpr int smallest = 8;
    constexpr int clearance = 6;
    do {
        font.setPixelSize(pixelSize);
    } while (QFontMetrics(font).horizontalAdvance(text) > width - clearance &&
             --pixelSize >= smallest);
    return font;
}

} // namespace

AQCurvePointPopoverView::AQCurvePointPopoverView(QWidget* parent) : QWidget(parent) {
    setFixedSize(contentWidth, contentHeight);
}

QColor AQCurvePointPopoverView::valueBandColor() {
    return DisplayColors::neutral;
}

void AQCurvePointPopoverView::setValue(const AQTimePoint& value) {
    if (value == m_value)
        return;
    m_value = value;
    update();
}

void AQCurvePointPopoverView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath corners;
    corners.addRoundedRect(rect(), PopoverPlacement::cornerRadius - 1,
                           PopoverPlacement::cornerRadius - 1);
    const QRect timeBand(0, 0, width(), timeBandHeight);
    painter.fillPath(corners, valueBandColor());
    QPainterPath upper;
    upper.addRect(timeBand);
    painter.fillPath(corners & upper, DisplayColors::disabled);

    const QString time = timeText(m_value.time.hour, m_value.time.minute);
    painter.setFont(fittingFont(font(), 16, time, width()));
    painter.setPen(DisplayColors::neutral);
    painter.drawText(timeBand, Qt::AlignCenter, time);

    const ChannelLevels levels = levelsFromLight(m_value.colorTemp, m_value.brightness);
    drawColumn(painter, 0, QStringLiteral("Warm"), QString::number(levels.warm), orange);
    drawColumn(painter, 1, QStringLiteral("Cold"), QString::number(levels.cold),
               DisplayColors::cold);
    drawColumn(painter, 2, QStringLiteral("Intensity"),
               QStringLiteral("%1%").arg(std::lround(m_value.brightness * 100.0)),
               DisplayColors::disabled);
}

void AQCurvePointPopoverView::drawColumn(QPainter& painter, int column, const QString& title,
                                         const QString& text, const QColor& color) {
    const int left = column * columnWidth;
    painter.setFont(fittingFont(font(), 13, title, columnWidth));
    painter.setPen(DisplayColors::line);
    painter.drawText(QRect(left, titleTop, columnWidth, titleHeight),
                     Qt::AlignCenter | Qt::TextDontClip, title);
    painter.setFont(fittingFont(font(), 20, text, columnWidth));
    painter.setPen(color);
    painter.drawText(QRect(left, valueTop, columnWidth, valueHeight),
                     Qt::AlignCenter | Qt::TextDontClip, text);
}

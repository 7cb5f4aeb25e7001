#include "controls/popovers/AQCurvePointPopoverView.h"

#include "controls/DisplayColors.h"
#include "controls/FittingFont.h"
#include "controls/Percent.h"
#include "controls/popovers/PopoverPlacement.h"
#include "data/ColorMapping.h"
#include "data/PointColumn.h"
#include "data/TimeText.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <iterator>

namespace {

constexpr int columnWidth = AQCurvePointPopoverView::contentWidth / 3; ///< the widest may have
constexpr int titleTop = 29;
constexpr int titleHeight = 17;
constexpr int valueTop = 46;
constexpr int valueHeight = 25;

/// The orange of this desktop's usual palette that can still be read on white.
constexpr QColor orange{230, 97, 0};

} // namespace

AQCurvePointPopoverView::AQCurvePointPopoverView(QWidget* parent) : QWidget(parent) {
    setFixedSize(contentWidth, contentHeight);
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
    painter.fillPath(corners, DisplayColors::neutral);
    QPainterPath upper;
    upper.addRect(timeBand);
    painter.fillPath(corners & upper, DisplayColors::disabled);

    const QString time = timeText(m_value.time.hour, m_value.time.minute);
    painter.setFont(fittingFont(font(), 16, timeBand.size(), time));
    painter.setPen(DisplayColors::neutral);
    painter.drawText(timeBand, Qt::AlignCenter, time);

    drawColumns(painter);
}

void AQCurvePointPopoverView::drawColumns(QPainter& painter) const {
    const ChannelLevels levels = levelsFromLight(m_value.colorTemp, m_value.brightness);
    const struct {
        QString title;
        QString text;
        QString widestText;
        QColor color;
    } columns[] = {
        {tr("Warm"), QString::number(levels.warm), QStringLiteral("254"), orange},
        {tr("Cold"), QString::number(levels.cold), QStringLiteral("254"), DisplayColors::cold},
        {PointColumn::title(PointColumn::brightness), percentText(m_value.brightness),
         percentText(1.0), DisplayColors::disabled},
    };
    const QFont titles = fittingFont(font(), 13, {columnWidth, titleHeight}, columns[2].title);
    const QFont values = fittingFont(font(), 20, {columnWidth, valueHeight}, percentText(1.0));
    const auto widthOf = [&](const auto& column) {
        return std::max(QFontMetrics(titles).horizontalAdvance(column.title),
                        QFontMetrics(values).horizontalAdvance(column.widestText));
    };
    double margin = width();
    for (const auto& column : columns)
        margin -= widthOf(column);
    margin /= static_cast<double>(std::size(columns) + 1);
    double x = margin;
    for (const auto& column : columns) {
        const int width = widthOf(column);
        painter.setFont(titles);
        painter.setPen(DisplayColors::line);
        painter.drawText(QRectF(x, titleTop, width, titleHeight),
                         Qt::AlignCenter | Qt::TextDontClip, column.title);
        painter.setFont(values);
        painter.setPen(column.color);
        painter.drawText(QRectF(x, valueTop, width, valueHeight),
                         Qt::AlignCenter | Qt::TextDontClip, column.text);
        x += width + margin;
    }
}

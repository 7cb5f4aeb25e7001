#include "controls/points/AQPointListHeader.h"

#include "controls/AccentColor.h"
#include "controls/FittingFont.h"
#include "data/PointColumn.h"

#include <QFontInfo>
#include <QPainter>

namespace {

constexpr int textMargin = 4;
constexpr int verticalMargin = 4;

} // namespace

void AQPointListHeader::setColumns(int timeWidth, int rest) {
    m_timeWidth = timeWidth;
    m_rest = rest;
    update();
}

QSize AQPointListHeader::sizeHint() const {
    return {0, fontMetrics().height() + 2 * verticalMargin};
}

void AQPointListHeader::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.fillRect(0, height() - 1, width(), 1, AccentColor::tone(palette(), 0.15));
    painter.setPen(palette().color(QPalette::Text));
    const int left[] = {0, m_timeWidth, m_timeWidth + m_rest / 2, m_timeWidth + m_rest};
    for (int column = 0; column < PointColumn::count; ++column) {
        const QRect cell(left[column], 0, left[column + 1] - left[column], height());
        const QString title = PointColumn::title(column);
        painter.setFont(fittingFont(font(), QFontInfo(font()).pixelSize(),
                                    cell.size() - QSize(2 * textMargin, 0), title));
        painter.drawText(cell, Qt::AlignCenter, title);
    }
}

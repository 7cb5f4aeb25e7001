#include "controls/AQTableHeader.h"

#include "controls/AccentColor.h"

#include <QPainter>

AQTableHeader::AQTableHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

void AQTableHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
    painter->fillRect(rect, palette().base());
    painter->fillRect(rect.left(), rect.bottom(), rect.width(), 1,
                      AccentColor::tone(palette(), 0.15));
    painter->setPen(palette().color(QPalette::Text));
    painter->drawText(rect, Qt::AlignCenter,
                      model()->headerData(logicalIndex, orientation()).toString());
}

#include "controls/points/AQTableHeader.h"

#include "controls/AccentColor.h"

#include <QPainter>

namespace {

constexpr int textMargin = 4;

} // namespace

AQTableHeader::AQTableHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setTextElideMode(Qt::ElideRight);
}

void AQTableHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
    painter->fillRect(rect, palette().base());
    painter->fillRect(rect.left(), rect.bottom(), rect.width(), 1,
                      AccentColor::tone(palette(), 0.15));
    painter->setPen(palette().color(QPalette::Text));
    const QString title = model()->headerData(logicalIndex, orientation()).toString();
    painter->drawText(
        rect, Qt::AlignCenter,
        painter->fontMetrics().elidedText(title, textElideMode(), rect.width() - 2 * textMargin));
}

#include "controls/window/AQCaptionLink.h"

#include "controls/DisplayColors.h"
#include "controls/window/AQStatisticsLine.h"

#include <QPainter>

namespace {

constexpr int sidePadding = 4; ///< for the frame of the focus

} // namespace

AQCaptionLink::AQCaptionLink(QWidget* parent) : EnterClicks(parent) {
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    // As high as the line, so that its text stands on the same ground.
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
}

QSize AQCaptionLink::sizeHint() const {
    const QFontMetrics metrics(AQStatisticsLine::captionFont(font()));
    return {metrics.horizontalAdvance(text()) + 2 * sidePadding, metrics.height()};
}

void AQCaptionLink::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QFont small = AQStatisticsLine::captionFont(font());
    small.setUnderline(isEnabled() && underMouse());
    painter.setFont(small);
    // The caption is white whatever the palette is.
    painter.setPen(isEnabled() ? DisplayColors::cold : DisplayColors::disabled);
    painter.drawText(rect(), Qt::AlignCenter, text());
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3.0, 3.0);
    }
}

#include "controls/points/AQScrollBar.h"

#include "controls/AccentColor.h"

#include <QPainter>
#include <QStyleOptionSlider>

namespace {

constexpr qreal handleMargin = 4.0;
constexpr double quiet = 0.25;
constexpr double hovered = 0.40;
constexpr double held = 0.55;

} // namespace

AQScrollBar::AQScrollBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {
    setAttribute(Qt::WA_Hover);
}

void AQScrollBar::paintEvent(QPaintEvent* /*event*/) {
    QStyleOptionSlider option;
    initStyleOption(&option);
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());

    const double strength = isSliderDown() ? held : underMouse() ? hovered : quiet;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(AccentColor::tone(palette(), isEnabled() ? strength : quiet / 2.0));
    const QRectF handle = QRectF(style()->subControlRect(QStyle::CC_ScrollBar, &option,
                                                         QStyle::SC_ScrollBarSlider, this))
                              .adjusted(handleMargin, 0.0, -handleMargin, 0.0);
    painter.drawRoundedRect(handle, handle.width() / 2.0, handle.width() / 2.0);

    const auto drawArrow = [&](QStyle::SubControl place, QStyle::PrimitiveElement arrow) {
        QStyleOptionSlider triangle = option;
        triangle.rect = style()
                            ->subControlRect(QStyle::CC_ScrollBar, &option, place, this)
                            .adjusted(4, 4, -4, -4);
        style()->drawPrimitive(arrow, &triangle, &painter, this);
    };
    drawArrow(QStyle::SC_ScrollBarSubLine, QStyle::PE_IndicatorArrowUp);
    drawArrow(QStyle::SC_ScrollBarAddLine, QStyle::PE_IndicatorArrowDown);
}

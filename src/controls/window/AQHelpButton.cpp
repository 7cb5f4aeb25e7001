#include "controls/window/AQHelpButton.h"

#include "controls/AccentColor.h"

#include <QPainter>

#include <algorithm>

AQHelpButton::AQHelpButton(QWidget* parent) : EnterClicks(parent) {
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setText(QStringLiteral("?"));
    setAccessibleName(tr("Help"));
}

QSize AQHelpButton::sizeHint() const {
    const int diameter = std::max(24, fontMetrics().height() + 10);
    return {diameter, diameter};
}

void AQHelpButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool lively = isEnabled() && (underMouse() || isDown() || hasFocus());
    const QColor quiet = AccentColor::tone(palette(), isEnabled() ? 0.65 : 0.35);
    const QColor color = lively ? AccentColor::onWindow(palette()) : quiet;
    const double side = std::min(width(), height());
    QRectF circle(0.0, 0.0, side, side);
    circle.moveCenter(QRectF(rect()).center());
    circle.adjust(3.5, 3.5, -3.5, -3.5);

    painter.setPen(QPen(color, 1.0));
    painter.setBrush(isDown() ? AccentColor::tone(palette(), 0.12) : QColor(Qt::transparent));
    painter.drawEllipse(circle);
    QFont bold = font();
    bold.setWeight(QFont::Bold);
    painter.setFont(bold);
    painter.drawText(circle, Qt::AlignCenter | Qt::TextDontClip, QStringLiteral("?"));
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(color, 2.0));
        painter.drawEllipse(circle.adjusted(-2.5, -2.5, 2.5, 2.5));
    }
}

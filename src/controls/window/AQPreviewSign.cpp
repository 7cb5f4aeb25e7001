#include "controls/window/AQPreviewSign.h"

#include "controls/AccentColor.h"

#include <QAccessible>
#include <QPainter>

namespace {

constexpr int horizontalPadding = 12;
constexpr int verticalPadding = 6;

} // namespace

AQPreviewSign::AQPreviewSign(QWidget* parent) : QLabel(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setContentsMargins(horizontalPadding, verticalPadding, horizontalPadding, verticalPadding);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    QPalette palette = this->palette();
    palette.setColor(QPalette::WindowText, Qt::white);
    setPalette(palette);
    setSign({});
}

void AQPreviewSign::setSign(const QString& sign) {
    if (sign == text() && isHidden() == sign.isEmpty())
        return;
    const bool appears = text().isEmpty() && !sign.isEmpty();
    setText(sign);
    setVisible(!sign.isEmpty());
    if (appears) {
        QAccessibleEvent event(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&event);
    }
}

void AQPreviewSign::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(AccentColor::fill(parentWidget()->palette()));
    painter.drawRoundedRect(QRectF(rect()), height() / 2.0, height() / 2.0);
    painter.end();
    QLabel::paintEvent(event);
}

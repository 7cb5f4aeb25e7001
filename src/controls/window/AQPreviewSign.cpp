#include "controls/window/AQPreviewSign.h"

#include "controls/AccentColor.h"
#include "controls/Announcement.h"

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
    // Not each minute of the demo.
    const auto subject = [](const QString& words) { return words.section(u' ', 0, 0); };
    const bool isNews = !sign.isEmpty() && subject(sign) != subject(text());
    setText(sign);
    setVisible(!sign.isEmpty());
    if (isNews)
        Announcement::make(*this, sign);
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

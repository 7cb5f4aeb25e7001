#include "controls/window/AQPreviewSign.h"

#include "controls/AccentColor.h"
#include "controls/Announcement.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int horizontalPadding = 12;
constexpr int verticalPadding = 6;
constexpr double roundest = 16.0;

} // namespace

AQPreviewSign::AQPreviewSign(QWidget* parent) : AQBarLabel(parent) {
    setAlignment(Qt::AlignCenter);
    setContentsMargins(horizontalPadding, 0, horizontalPadding, 0);
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
    // As high as its lines need.
    const QRect words =
        fontMetrics().boundingRect(contentsRect(), Qt::AlignCenter | Qt::TextWordWrap, text());
    const double pillHeight = std::min(words.height() + 2.0 * verticalPadding, height() - 2.0);
    const double radius = std::min(pillHeight / 2.0, roundest);
    painter.drawRoundedRect(QRectF(0.0, (height() - pillHeight) / 2.0, width(), pillHeight), radius,
                            radius);
    painter.end();
    AQBarLabel::paintEvent(event);
}

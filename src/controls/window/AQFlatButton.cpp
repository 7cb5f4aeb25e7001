#include "controls/window/AQFlatButton.h"

#include "controls/AccentColor.h"
#include "controls/DisplayColors.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int buttonHeight = 32;
constexpr int sidePadding = 16;
constexpr double cornerRadius = 6.0;

} // namespace

AQFlatButton::AQFlatButton(QWidget* parent) : EnterClicks(parent) {
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void AQFlatButton::setPrimary(bool primary) {
    m_isPrimary = primary;
    update();
}

void AQFlatButton::setWidestText(const QString& text) {
    m_widestText = text;
    updateGeometry();
}

QSize AQFlatButton::sizeHint() const {
    const QSize label = fontMetrics()
                            .size(Qt::TextShowMnemonic, text())
                            .expandedTo(fontMetrics().size(Qt::TextShowMnemonic, m_widestText));
    return {label.width() + 2 * sidePadding, std::max(buttonHeight, label.height() + 12)};
}

AQFlatButton::Look AQFlatButton::look() const {
    const QPalette& colors = palette();
    if (!isEnabled()) {
        const QColor text =
            DisplayColors::blend(colors.color(QPalette::Window),
                                 colors.color(QPalette::Active, QPalette::WindowText), 0.5);
        return {m_isPrimary ? AccentColor::tone(colors, 0.06) : QColor(Qt::transparent),
                AccentColor::tone(colors, 0.18), text};
    }
    const double pressed = isDown() ? 1.0 : underMouse() ? 0.5 : 0.0;
    if (m_isPrimary) {
        const QColor base = AccentColor::fill(colors);
        const QColor fill = DisplayColors::blend(base, Qt::black, 0.3 * pressed);
        return {fill, fill, Qt::white};
    }
    return {AccentColor::tone(colors, 0.12 * pressed), AccentColor::tone(colors, 0.4),
            colors.color(QPalette::WindowText)};
}

void AQFlatButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Look colors = look();
    const QRectF body = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(colors.outline, 1.0));
    painter.setBrush(colors.fill);
    painter.drawRoundedRect(body, cornerRadius, cornerRadius);

    painter.setPen(colors.text);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());

    if (hasFocus()) {
        const double inset = m_isPrimary ? 3.0 : 1.0;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(m_isPrimary ? QColor(Qt::white) : AccentColor::onWindow(palette()),
                            m_isPrimary ? 1.5 : 2.0));
        painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset),
                                cornerRadius - inset / 2.0, cornerRadius - inset / 2.0);
    }
}

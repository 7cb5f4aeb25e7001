#include "controls/popovers/AQHelpPopover.h"

#include "controls/AccentColor.h"
#include "controls/popovers/PopoverShape.h"

#include <QLabel>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace {

constexpr int margin = 16;

/// Where a popover of `size` may stand: in the anchor's window, or anywhere on its screen.
QRect boundsFor(const QWidget& anchor, QSize size) {
    const QWidget* window = anchor.window();
    const QRect screen = anchor.screen()->availableGeometry();
    const QRect inWindow =
        QRect(window->mapToGlobal(QPoint(0, 0)), window->size()).intersected(screen);
    const QRect button(anchor.mapToGlobal(QPoint(0, 0)), anchor.size());
    const int room = std::max(button.top() - inWindow.top(), inWindow.bottom() - button.bottom());
    const bool fits =
        inWindow.width() >= size.width() && room >= size.height() + PopoverPlacement::arrowLength;
    return fits ? inWindow : screen;
}

} // namespace

AQHelpPopover::AQHelpPopover(const QString& text, QSize size, QWidget* parent)
    : QWidget(parent, Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint),
      m_label(new QLabel(this)), m_size(size) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_WindowPropagation);
    // Otherwise the click on the button that closes it would open it again.
    setAttribute(Qt::WA_NoMouseReplay);
    setAccessibleName(tr("Help"));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setText(text);
    m_label->setWordWrap(true);
    m_label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_label->setFocusPolicy(Qt::StrongFocus);
}

AQHelpPopover* AQHelpPopover::present(QWidget& anchor, const QString& text, QSize size) {
    auto* popover = new AQHelpPopover(text, size, anchor.window());
    popover->setAttribute(Qt::WA_DeleteOnClose);
    popover->showAt(anchor);
    return popover;
}

QString AQHelpPopover::text() const {
    return m_label->text();
}

QSize AQHelpPopover::bodySize() const {
    const int needed = m_label->heightForWidth(m_size.width() - 2 * margin) + 2 * margin;
    return {m_size.width(), std::max(m_size.height(), needed)};
}

void AQHelpPopover::showAt(const QWidget& anchor) {
    const QSize size = bodySize();
    const QRect button(anchor.mapToGlobal(QPoint(0, 0)), anchor.size());
    m_placement = PopoverPlacement::place(button, size, boundsFor(anchor, size));
    setGeometry(m_placement.frame);
    // Where nothing composes windows, what is outside would be black. Half a unit more than is
    // drawn, for the edge's soft pixels.
    setMask(PopoverShape::outline(m_placement, -0.5).toFillPolygon().toPolygon());
    m_label->setGeometry(
        PopoverShape::body(m_placement).adjusted(margin, margin, -margin, -margin));
    show();
    m_label->setFocus(Qt::PopupFocusReason);
}

void AQHelpPopover::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(AccentColor::tone(palette(), 0.35), 1.0));
    painter.setBrush(palette().base());
    painter.drawPath(PopoverShape::outline(m_placement, 0.5));
}

#include "controls/AQCurvePointPopover.h"

#include "controls/AQCurvePointPopoverView.h"
#include "controls/DisplayColors.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QRegion>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {

constexpr int border = 1;
constexpr int anchorSide = 30;
constexpr QSize bodySize{AQCurvePointPopoverView::contentWidth + 2 * border,
                         AQCurvePointPopoverView::contentHeight + 2 * border};

QRect bodyRect(const PopoverPlacement& placement) {
    return {QPoint(0, placement.isAbove ? 0 : PopoverPlacement::arrowLength), bodySize};
}

/// The rounded body and its arrow; `inset` draws it in from the edge.
QPainterPath shape(const PopoverPlacement& placement, double inset) {
    const QRectF body = QRectF(bodyRect(placement)).adjusted(inset, inset, -inset, -inset);
    QPainterPath path;
    path.addRoundedRect(body, PopoverPlacement::cornerRadius, PopoverPlacement::cornerRadius);
    const double tip = placement.isAbove ? placement.frame.height() - inset : inset;
    const double foot = placement.isAbove ? body.bottom() - 1.0 : body.top() + 1.0;
    const double x = placement.arrowX;
    QPainterPath arrow;
    arrow.addPolygon(
        QPolygonF({QPointF(x - PopoverPlacement::arrowHalfWidth, foot), QPointF(x, tip),
                   QPointF(x + PopoverPlacement::arrowHalfWidth, foot)}));
    arrow.closeSubpath();
    return path | arrow;
}

/// Every pixel that the shape touches. What is outside is cut off, because it would be black
/// where the desktop does not compose windows.
QRegion maskOf(const PopoverPlacement& placement) {
    constexpr int radius = PopoverPlacement::cornerRadius;
    const QRect body = bodyRect(placement);
    QRegion region;
    for (int row = 0; row < body.height(); ++row) {
        const int inCorner = std::max(0, radius - std::min(row + 1, body.height() - row));
        const int cut =
            radius - static_cast<int>(std::ceil(std::sqrt(radius * radius - inCorner * inCorner)));
        region +=
            body.adjusted(cut, 0, -cut, 0).intersected(QRect(0, body.y() + row, body.width(), 1));
    }
    for (int row = 0; row < PopoverPlacement::arrowLength; ++row) {
        const int half =
            (row + 1) * PopoverPlacement::arrowHalfWidth / PopoverPlacement::arrowLength + 1;
        const int y = placement.isAbove ? placement.frame.height() - 1 - row : row;
        region += QRect(placement.arrowX - half, y, 2 * half, 1);
    }
    return region;
}

} // namespace

AQCurvePointPopover::AQCurvePointPopover(QWidget* owner)
    : QWidget(owner, Qt::ToolTip | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint |
                         Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus),
      m_owner(*owner), m_popoverView(new AQCurvePointPopoverView(this)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    m_owner.installEventFilter(this);
}

const AQTimePoint& AQCurvePointPopover::value() const {
    return m_popoverView->value();
}

void AQCurvePointPopover::showFor(const AQTimePoint& value, QPointF anchor) {
    m_popoverView->setValue(value);
    m_anchor = anchor;
    m_isPresented = true;
    watchWindow();
    applyPlacement();
    applyVisibility();
}

void AQCurvePointPopover::dismiss() {
    m_isPresented = false;
    applyVisibility();
}

void AQCurvePointPopover::watchWindow() {
    QWidget* window = m_owner.window();
    if (window == m_window)
        return;
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    m_isWindowInactive = false;
    m_window->installEventFilter(this);
}

bool AQCurvePointPopover::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_window && watched != &m_owner)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
        if (m_isPresented)
            applyPlacement();
        break;
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        m_isWindowInactive = event->type() == QEvent::WindowDeactivate;
        applyVisibility();
        break;
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::WindowStateChange:
        applyVisibility();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void AQCurvePointPopover::applyPlacement() {
    const QPoint corner = m_anchor.toPoint() - QPoint(anchorSide, anchorSide) / 2;
    const QRect anchor(m_owner.mapToGlobal(corner), QSize(anchorSide, anchorSide));
    const QScreen* screen = QGuiApplication::screenAt(anchor.center());
    if (!screen)
        screen = m_owner.screen();
    const auto placement = PopoverPlacement::place(anchor, bodySize, screen->availableGeometry());

    const bool isReshaped = placement.isAbove != m_placement.isAbove ||
                            placement.arrowX != m_placement.arrowX ||
                            placement.frame.size() != m_placement.frame.size();
    m_placement = placement;
    setGeometry(placement.frame);
    if (isReshaped) {
        m_popoverView->move(bodyRect(placement).topLeft() + QPoint(border, border));
        setMask(maskOf(placement));
        update();
    }
}

void AQCurvePointPopover::applyVisibility() {
    // While a window hides, its children still count as visible.
    const bool isOwnerSeen =
        m_owner.isVisible() && m_window && m_window->isVisible() && !m_window->isMinimized();
    setVisible(m_isPresented && isOwnerSeen && !m_isWindowInactive);
}

void AQCurvePointPopover::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(DisplayColors::disabled, border));
    painter.setBrush(m_placement.isAbove ? AQCurvePointPopoverView::valueBandColor()
                                         : DisplayColors::disabled);
    painter.drawPath(shape(m_placement, border / 2.0));
}

#include "controls/popovers/AQCurvePointPopover.h"

#include "controls/DisplayColors.h"
#include "controls/popovers/AQCurvePointPopoverView.h"
#include "controls/popovers/ClickThrough.h"
#include "controls/popovers/PopoverShape.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

namespace {

constexpr int border = 1;
constexpr int anchorSide = 30;
constexpr QSize bodySize{AQCurvePointPopoverView::contentWidth + 2 * border,
                         AQCurvePointPopoverView::contentHeight + 2 * border};

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
    case QEvent::Show:
    case QEvent::WindowActivate:
        m_isWindowInactive = false;
        applyVisibility();
        break;
    case QEvent::WindowDeactivate:
        m_isWindowInactive = true;
        applyVisibility();
        break;
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
        m_popoverView->move(PopoverShape::body(placement).topLeft() + QPoint(border, border));
        setMask(PopoverShape::mask(placement));
        update();
    }
}

void AQCurvePointPopover::applyVisibility() {
    // While a window hides, its children still count as visible.
    const bool isOwnerSeen =
        m_owner.isVisible() && m_window && m_window->isVisible() && !m_window->isMinimized();
    const bool isShown = m_isPresented && isOwnerSeen && !m_isWindowInactive;
    if (isShown == isVisible())
        return;
    setVisible(isShown);
    if (isShown)
        letClicksThrough(*this);
}

void AQCurvePointPopover::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath outline = PopoverShape::outline(m_placement, border / 2.0);
    painter.setPen(QPen(DisplayColors::disabled, border));
    painter.setBrush(AQCurvePointPopoverView::valueBandColor());
    painter.drawPath(outline);
    // The time band and an arrow above it.
    const int bandBottom = m_popoverView->y() + AQCurvePointPopoverView::timeBandHeight;
    painter.setClipRect(0, 0, width(), bandBottom);
    painter.setBrush(DisplayColors::disabled);
    painter.drawPath(outline);
}

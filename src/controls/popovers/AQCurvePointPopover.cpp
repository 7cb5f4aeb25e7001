#include "controls/popovers/AQCurvePointPopover.h"

#include "controls/popovers/AQCurvePointPopoverView.h"
#include "controls/popovers/Overlay.h"
#include "controls/popovers/PopoverShape.h"

#include <QEvent>
#include <QPainter>

namespace {

constexpr int border = 1;
constexpr int anchorSide = 30;
constexpr QSize bodySize{AQCurvePointPopoverView::contentWidth + 2 * border,
                         AQCurvePointPopoverView::contentHeight + 2 * border};

} // namespace

AQCurvePointPopover::AQCurvePointPopover(QWidget* owner)
    : QWidget(owner), m_owner(*owner), m_popoverView(new AQCurvePointPopoverView(this)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

const AQTimePoint& AQCurvePointPopover::value() const {
    return m_popoverView->value();
}

void AQCurvePointPopover::showFor(const AQTimePoint& value, QPointF anchor, QRect bounds) {
    m_popoverView->setValue(value);
    m_anchor = anchor;
    m_bounds = bounds;
    m_isPresented = true;
    layOver(*this, m_owner);
    applyPlacement();
    setVisible(m_owner.isVisible());
}

void AQCurvePointPopover::dismiss() {
    m_isPresented = false;
    hide();
}

bool AQCurvePointPopover::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
        if (m_isPresented)
            applyPlacement();
        break;
    case QEvent::Show:
    case QEvent::Hide:
        setVisible(m_isPresented && m_owner.isVisible());
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void AQCurvePointPopover::applyPlacement() {
    const QPoint corner = m_anchor.toPoint() - QPoint(anchorSide, anchorSide) / 2;
    const QRect anchor(m_owner.mapTo(parentWidget(), corner), QSize(anchorSide, anchorSide));
    const QRect bounds =
        m_bounds.isValid()
            ? QRect(m_owner.mapTo(parentWidget(), m_bounds.topLeft()), m_bounds.size())
            : parentWidget()->rect();
    const auto placement = PopoverPlacement::place(anchor, bodySize, bounds);
    const bool isReshaped =
        placement.isAbove != m_placement.isAbove || placement.arrowX != m_placement.arrowX;
    m_placement = placement;
    setGeometry(placement.frame);
    m_popoverView->move(PopoverShape::body(placement).topLeft() + QPoint(border, border));
    if (isReshaped)
        update();
}

void AQCurvePointPopover::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PopoverShape::paintBanded(painter, m_placement,
                              m_popoverView->y() + AQCurvePointPopoverView::timeBandHeight);
}

#include "controls/curve/AQCurvePoint.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>
#include <utility>

namespace {

constexpr double outlineWidth = 2.0;
constexpr int side = static_cast<int>(2.0 * AQCurvePoint::sel_radius) + 4;
constexpr int outOfSight = -100;
/// What moving the pointer with Ctrl held counts for.
constexpr double fineShare = 0.1;

} // namespace

AQCurvePoint::AQCurvePoint(AQPointId id, QWidget* parent) : QWidget(parent), m_id(id) {
    setGeometry(outOfSight, outOfSight, side, side);
    setCursor(Qt::SizeVerCursor);
    setFocusPolicy(Qt::NoFocus);
    setToolTip(QStringLiteral("Drag up or down, with Ctrl for a tenth of the way.\n"
                              "Double-click or Enter to type the values."));
}

void AQCurvePoint::setCentre(QPointF centre) {
    const QPointF corner = centre - QPointF(side, side) / 2.0;
    const QPoint whole = corner.toPoint();
    if (const QPointF offset = corner - whole; offset != m_offset) {
        m_offset = offset;
        update();
    }
    move(whole);
}

void AQCurvePoint::setColor(const QColor& color) {
    if (color == m_color)
        return;
    m_color = color;
    update();
}

void AQCurvePoint::setIsSelected(bool isSelected) {
    if (isSelected == m_isSelected)
        return;
    m_isSelected = isSelected;
    update();
}

bool AQCurvePoint::event(QEvent* event) {
    // The button will be released in the modal window, and nobody will tell this point.
    if (event->type() == QEvent::WindowBlocked && m_isMouseDown) {
        endPress();
        Q_EMIT hoverEnded(this);
    }
    return QWidget::event(event);
}

void AQCurvePoint::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(DisplayColors::line, outlineWidth));
    painter.setBrush(m_color);
    const double r = m_isSelected ? sel_radius : radius;
    painter.drawEllipse(QRectF(rect()).center() + m_offset, r, r);
}

void AQCurvePoint::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    m_isMouseDown = true;
    m_isDragging = false;
    m_pressY = mapToParent(event->position()).y();
    Q_EMIT pressed(this);
}

void AQCurvePoint::endPress() {
    m_isDragging = false;
    if (std::exchange(m_isMouseDown, false))
        Q_EMIT released(this);
}

void AQCurvePoint::beginDrag(bool isFine) {
    m_isDragging = true;
    m_pointerY = m_pressY;
    // A plain drag brings the disc to the pointer, a fine one begins where it is.
    m_fromPointer = isFine ? y() + side / 2.0 + m_offset.y() - m_pressY : 0.0;
}

void AQCurvePoint::mouseMoveEvent(QMouseEvent* event) {
    if (!m_isMouseDown)
        return;
    const double y = mapToParent(event->position()).y();
    // Only the height counts: moving sideways changes nothing and so begins nothing.
    const bool isFine = event->modifiers() & Qt::ControlModifier;
    if (!m_isDragging && std::abs(y - m_pressY) >= dragThreshold)
        beginDrag(isFine);
    if (!m_isDragging)
        return;
    if (isFine)
        m_fromPointer -= (y - m_pointerY) * (1.0 - fineShare);
    m_pointerY = y;
    Q_EMIT dragged(this, y + m_fromPointer);
}

void AQCurvePoint::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !m_isMouseDown)
        return;
    endPress();
    if (!QRectF(rect()).contains(event->position()))
        Q_EMIT hoverEnded(this);
}

void AQCurvePoint::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        Q_EMIT doubleClicked(this);
    else
        event->ignore();
}

void AQCurvePoint::enterEvent(QEnterEvent*) {
    Q_EMIT hovered(this);
}

void AQCurvePoint::leaveEvent(QEvent*) {
    if (!m_isMouseDown)
        Q_EMIT hoverEnded(this);
}

#include "controls/curve/AQCurvePoint.h"

#include "controls/Percent.h"
#include "data/TimeText.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr double outlineWidth = 2.0;
constexpr int side = static_cast<int>(2.0 * AQCurvePoint::sel_radius) + 4;
constexpr int outOfSight = -100;
/// What moving the pointer with Ctrl held counts for.
constexpr double fineShare = 0.1;

} // namespace

AQCurvePoint::AQCurvePoint(AQPointId id, QWidget* parent) : AQCurveHandle(parent), m_id(id) {
    setGeometry(outOfSight, outOfSight, side, side);
    setCursor(Qt::SizeVerCursor);
    setToolTip(tr("Drag up or down, with Ctrl for a tenth of the way.\n"
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

void AQCurvePoint::describe(const AQTimePoint& point, int number, int count) {
    const QString text = tr("Point %1 of %2, %3, intensity %4 %, colour temperature %5 %")
                             .arg(number)
                             .arg(count)
                             .arg(timeText(point.time.hour, point.time.minute))
                             .arg(percent(point.brightness))
                             .arg(percent(point.colorTemp));
    if (text == accessibleName())
        return;
    setAccessibleName(text);
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(this, percent(point.brightness));
        QAccessible::updateAccessibility(&event);
    }
}

void AQCurvePoint::setIsSelected(bool isSelected) {
    if (isSelected == m_isSelected)
        return;
    m_isSelected = isSelected;
    update();
}

bool AQCurvePoint::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked && isMouseDown())
        Q_EMIT hoverEnded(this);
    return AQCurveHandle::event(event);
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
    AQCurveHandle::mousePressEvent(event);
    if (!isMouseDown())
        return;
    m_pressY = mapToParent(event->position()).y();
    Q_EMIT pressed(this);
}

void AQCurvePoint::beginDrag(bool isFine) {
    m_pointerY = m_pressY;
    // A plain drag brings the disc to the pointer, a fine one begins where it is.
    m_fromPointer = isFine ? y() + side / 2.0 + m_offset.y() - m_pressY : 0.0;
}

void AQCurvePoint::mouseMoveEvent(QMouseEvent* event) {
    const double y = mapToParent(event->position()).y();
    const bool isFine = event->modifiers() & Qt::ControlModifier;
    const bool isBegun = isDragging();
    // Only the height counts: moving sideways changes nothing and so begins nothing.
    if (!dragsAfter(y - m_pressY))
        return;
    if (!isBegun)
        beginDrag(isFine);
    if (isFine)
        m_fromPointer -= (y - m_pointerY) * (1.0 - fineShare);
    m_pointerY = y;
    Q_EMIT dragged(this, y + m_fromPointer);
}

void AQCurvePoint::mouseReleaseEvent(QMouseEvent* event) {
    AQCurveHandle::mouseReleaseEvent(event);
    if (!isMouseDown() && !QRectF(rect()).contains(event->position()))
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
    if (!isMouseDown())
        Q_EMIT hoverEnded(this);
}

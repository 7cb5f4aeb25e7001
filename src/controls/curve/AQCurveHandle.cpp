#include "controls/curve/AQCurveHandle.h"

#include <QMouseEvent>

#include <cmath>
#include <utility>

AQCurveHandle::AQCurveHandle(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::NoFocus);
}

void AQCurveHandle::endPress() {
    m_isDragging = false;
    if (std::exchange(m_isMouseDown, false))
        Q_EMIT released();
}

bool AQCurveHandle::event(QEvent* event) {
    // The button will be released where nobody tells this handle.
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::Hide)
        endPress();
    return QWidget::event(event);
}

void AQCurveHandle::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    m_isMouseDown = true;
    m_isDragging = false;
}

void AQCurveHandle::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        endPress();
}

bool AQCurveHandle::dragsAfter(double way) {
    m_isDragging = m_isMouseDown && (m_isDragging || std::abs(way) >= dragThreshold);
    return m_isDragging;
}

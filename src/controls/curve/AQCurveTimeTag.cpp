#include "controls/curve/AQCurveTimeTag.h"

#include <QMouseEvent>

#include <cmath>
#include <utility>

AQCurveTimeTag::AQCurveTimeTag(QWidget* parent) : QWidget(parent) {
    setCursor(Qt::SizeHorCursor);
    setFocusPolicy(Qt::NoFocus);
    setToolTip(QStringLiteral("Drag to move the point in time, with Ctrl by single minutes"));
    hide();
}

void AQCurveTimeTag::endPress() {
    m_isDragging = false;
    if (std::exchange(m_isMouseDown, false))
        Q_EMIT released();
}

bool AQCurveTimeTag::event(QEvent* event) {
    // The button will be released in a modal window, or where nobody sees this tag.
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::Hide)
        endPress();
    return QWidget::event(event);
}

void AQCurveTimeTag::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    m_isMouseDown = true;
    m_isDragging = false;
    m_pressX = event->globalPosition().x();
    Q_EMIT pressed();
}

void AQCurveTimeTag::mouseMoveEvent(QMouseEvent* event) {
    if (!m_isMouseDown)
        return;
    const double way = event->globalPosition().x() - m_pressX;
    m_isDragging = m_isDragging || std::abs(way) >= dragThreshold;
    if (m_isDragging)
        Q_EMIT dragged(way, event->modifiers() & Qt::ControlModifier);
}

void AQCurveTimeTag::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        endPress();
}

#include "controls/curve/AQCurveTimeTag.h"

#include <QMouseEvent>

AQCurveTimeTag::AQCurveTimeTag(QWidget* parent) : AQCurveHandle(parent) {
    setCursor(Qt::SizeHorCursor);
    setToolTip(tr("Drag to move the point in time, with Ctrl by single minutes"));
    hide();
}

void AQCurveTimeTag::mousePressEvent(QMouseEvent* event) {
    AQCurveHandle::mousePressEvent(event);
    if (!isMouseDown())
        return;
    m_pressX = event->globalPosition().x();
    Q_EMIT pressed();
}

void AQCurveTimeTag::mouseMoveEvent(QMouseEvent* event) {
    const double way = event->globalPosition().x() - m_pressX;
    if (dragsAfter(way))
        Q_EMIT dragged(way, event->modifiers() & Qt::ControlModifier);
}

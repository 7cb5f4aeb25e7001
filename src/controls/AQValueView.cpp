#include "controls/AQValueView.h"

#include "controls/AQValueDelegate.h"

#include <QFocusEvent>

#include <cmath>

AQValueView::AQValueView(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
}

AQValueView::~AQValueView() = default;

bool AQValueView::isWindowFocus() const {
    const QWidget* focus = window()->focusWidget();
    return focus && (focus == this || isAncestorOf(focus));
}

QAccessibleInterface* AQValueView::accessibleParent() const {
    return m_delegate ? m_delegate->aqAccessibleParent() : nullptr;
}

void AQValueView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    focusArrived();
}

void AQValueView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    focusLeft(event->reason());
}

void AQValueView::focusArrived() {
    update();
    if (m_focusReported)
        return;
    m_focusReported = true;
    if (m_delegate)
        m_delegate->aqGotFocus(*this);
}

void AQValueView::focusLeft(Qt::FocusReason reason) {
    update();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason && !isWindowFocus())
        m_focusReported = false;
}

void AQValueView::reportChange(const QVariant& value) {
    if (m_delegate)
        m_delegate->aqValueDidChange(*this, value);
}

bool AQValueView::askDelegate(const QVariant& value) {
    return !m_delegate || m_delegate->aqValueShouldChange(*this, value);
}

std::optional<double> AQValueView::numberFrom(const QVariant& object) {
    switch (object.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong: {
        const double number = object.toDouble();
        return std::isnan(number) ? std::nullopt : std::optional(number);
    }
    default:
        return std::nullopt;
    }
}

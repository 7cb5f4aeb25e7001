#include "controls/curve/AQCurvePointAccessible.h"

#include "controls/Percent.h"
#include "controls/curve/AQCurvePoint.h"
#include "controls/curve/AQCurveView.h"

AQCurvePointAccessible::AQCurvePointAccessible(AQCurvePoint& point)
    : QAccessibleWidget(&point, QAccessible::ListItem) {}

AQCurvePoint& AQCurvePointAccessible::point() const {
    return static_cast<AQCurvePoint&>(*widget());
}

AQCurveView* AQCurvePointAccessible::view() const {
    return qobject_cast<AQCurveView*>(widget()->parentWidget());
}

void* AQCurvePointAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State AQCurvePointAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.selectable = true;
    state.selected = point().isSelected();
    state.focusable = true;
    state.focused = point().isSelected() && view() && view()->hasFocus();
    return state;
}

QStringList AQCurvePointAccessible::actionNames() const {
    return {pressAction()};
}

void AQCurvePointAccessible::doAction(const QString& actionName) {
    if (actionName == pressAction() && view())
        view()->onPointClicked(&point());
}

QVariant AQCurvePointAccessible::currentValue() const {
    return view() ? percent(view()->intensity(point().id())) : 0;
}

void AQCurvePointAccessible::setCurrentValue(const QVariant& value) {
    if (view())
        view()->editIntensity(point().id(), value.toDouble() / 100.0);
}

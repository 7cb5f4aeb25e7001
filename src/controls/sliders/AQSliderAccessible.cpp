#include "controls/sliders/AQSliderAccessible.h"

#include "controls/sliders/AQSlider.h"

AQSliderAccessible::AQSliderAccessible(AQSlider& slider)
    : QAccessibleWidget(&slider, QAccessible::Slider) {}

AQSlider* AQSliderAccessible::slider() const {
    return static_cast<AQSlider*>(widget());
}

void* AQSliderAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* AQSliderAccessible::parent() const {
    QAccessibleInterface* row = slider()->accessibleParent();
    return row ? row : QAccessibleWidget::parent();
}

QString AQSliderAccessible::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? slider()->valueText() : QAccessibleWidget::text(kind);
}

QVariant AQSliderAccessible::currentValue() const {
    return slider()->value() * 100.0;
}

void AQSliderAccessible::setCurrentValue(const QVariant& value) {
    if (slider()->isEnabled())
        slider()->userSetValue(value.toDouble() / 100.0);
}

QVariant AQSliderAccessible::minimumStepSize() const {
    return slider()->valueIncrement() * 100.0;
}

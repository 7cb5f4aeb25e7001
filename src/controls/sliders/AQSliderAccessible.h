#pragma once

#include <QAccessibleWidget>

class AQSlider;

/// An AQSlider as screen readers see it: a slider from 0 to 100 percent.
class AQSliderAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AQSliderAccessible(AQSlider& slider);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessibleInterface* parent() const override;
    QString text(QAccessible::Text kind) const override;

    QVariant currentValue() const override;
    /// An edit by the person.
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override { return 100.0; }
    QVariant minimumValue() const override { return 0.0; }
    QVariant minimumStepSize() const override;

private:
    AQSlider* slider() const;
};

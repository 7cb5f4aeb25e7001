#pragma once

#include <QAccessibleWidget>

class AQSlider;

/// An AQSlider as screen readers see it: a slider from 0 to 100 percent.
class AQSliderAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AQSliderAccessible(AQSlider* slider);

    /// Makes Qt use this class for all AQSliders; further calls do nothing.
    static void install();

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessibleInterface* parent() const override;
    QString text(QAccessible::Text kind) const override;

    QVariant currentValue() const override;
    /// An edit by the person.
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

private:
    AQSlider* slider() const;
};

#pragma once

#include <QAccessibleWidget>

class AQCurvePoint;
class AQCurveView;

/// A point of the curve for assistive programs: an item of the list, whose value is its intensity
/// in percent and whose name, kept by the curve view, tells all of it.
class AQCurvePointAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AQCurvePointAccessible(AQCurvePoint& point);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;

    /// Pressing selects the point.
    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override { return 100; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

private:
    AQCurvePoint& point() const;
    /// Null for a point that its view has given up.
    AQCurveView* view() const;
};

#pragma once

#include <QAccessibleWidget>

class TimeField;

/// The field of a time editor for assistive programs: a spin button with text, which stands for
/// the whole editor and bears its name.
class TimeFieldAccessible : public QAccessibleWidget {
public:
    explicit TimeFieldAccessible(TimeField& field);

    /// Makes QAccessible use this; any number of times.
    static void install();

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessibleInterface* parent() const override;
    int childCount() const override { return 0; }
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;

private:
    QAccessibleInterface* lineEdit() const;
};

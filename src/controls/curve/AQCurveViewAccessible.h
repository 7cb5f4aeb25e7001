#pragma once

#include <QAccessibleWidget>

class AQCurveView;

/// The curve for assistive programs: a list of its points.
class AQCurveViewAccessible : public QAccessibleWidget {
public:
    explicit AQCurveViewAccessible(AQCurveView& view);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    /// The selected point while the view has the focus.
    QAccessibleInterface* focusChild() const override;

private:
    /// Null while the view is being destroyed.
    AQCurveView* view() const;
};

#pragma once

#include <QVariant>

class AQValueView;
class QAccessibleInterface;

/// Whom value views report to; usually what places them in the window.
///
/// Called synchronously. A view allows its delegate to delete or rebind it from within a call only
/// by `deleteLater`.
class AQValueDelegate {
public:
    virtual ~AQValueDelegate() = default;

    /// `view` has stored a new value. The value is a double for sliders, an AQTime for time
    /// editors.
    virtual void aqValueDidChange(AQValueView& view, const QVariant& value) = 0;
    /// Asked by the time editors before they store what the person entered; false refuses it.
    virtual bool aqValueShouldChange(AQValueView& view, const QVariant& value) = 0;
    /// `view` became its window's keyboard focus.
    virtual void aqGotFocus(AQValueView& view) = 0;
    /// What holds the view for assistive programs, when that is not its parent widget.
    virtual QAccessibleInterface* aqAccessibleParent() const { return nullptr; }
};

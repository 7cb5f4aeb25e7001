#pragma once

#include <QVariant>
#include <QWidget>

#include <optional>

class AQValueDelegate;
class QAccessibleInterface;

/// Base of the controls that edit one value: focus by Tab and click while enabled, reports to a
/// delegate.
///
/// The wheel never gives focus, so scrolling over a view changes nothing.
class AQValueView : public QWidget {
    Q_OBJECT

public:
    explicit AQValueView(QWidget* parent = nullptr);
    ~AQValueView() override;

    AQValueDelegate* delegate() const { return m_delegate; }
    /// Not owned; must outlive this view or be reset to null.
    void setDelegate(AQValueDelegate* delegate) { m_delegate = delegate; }

    /// The value as an object: what tables and delegates pass around.
    virtual QVariant objectValue() const = 0;
    /// A programmatic set; an object of the wrong kind is ignored.
    virtual void setObjectValue(const QVariant& object) = 0;

    /// True while this view, or a child of it, is its window's keyboard focus, even if another
    /// window is active.
    bool isWindowFocus() const;

    /// What assistive programs meet: the child that takes the focus for this view, else the view.
    QWidget* accessibleWidget() { return focusProxy() ? focusProxy() : this; }
    /// What holds that for them; null for the parent widget.
    QAccessibleInterface* accessibleParent() const;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    /// For views whose focus lives in a child: redraws, and reports the focus once until it goes to
    /// another view of the window. Another window or a menu in between is no change.
    void focusArrived();
    void focusLeft(Qt::FocusReason reason);

    void reportChange(const QVariant& value);
    /// The delegate's verdict; true without one.
    bool askDelegate(const QVariant& value);

    /// The number in `object`, which may be infinite; none for anything else, texts included.
    static std::optional<double> numberFrom(const QVariant& object);

private:
    AQValueDelegate* m_delegate = nullptr;
    bool m_focusReported = false;
};

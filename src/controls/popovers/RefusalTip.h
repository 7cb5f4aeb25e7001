#pragma once

#include <QLabel>
#include <QTimer>

/// Says for some seconds, below a control and within its window, why it refused what was entered.
/// Looks like a tool tip, but lets the mouse through: Qt's own would take a click meant for the
/// control that it covers.
class RefusalTip : public QLabel {
    Q_OBJECT

public:
    explicit RefusalTip(QWidget& owner);

    /// Below `part` of the owner, or below all of it.
    void tell(const QString& reason, const QRect& part = {});

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& m_owner;
    QTimer m_timer;
};

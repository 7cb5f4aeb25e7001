#pragma once

#include "controls/window/EnterClicks.h"

#include <QPushButton>

/// A push button without relief: quiet (a thin outline), or primary (filled with the accent) for
/// what matters most. It shows its text only. Enter presses it as Space does.
class AQFlatButton : public EnterClicks<QPushButton> {
    Q_OBJECT
    Q_PROPERTY(bool primary READ isPrimary WRITE setPrimary)
    Q_PROPERTY(QString widestText READ widestText WRITE setWidestText)

public:
    explicit AQFlatButton(QWidget* parent = nullptr);

    bool isPrimary() const { return m_isPrimary; }
    void setPrimary(bool primary);

    /// A text that the button may have later and is wide enough for from the start, lest the layout
    /// shift; empty for none.
    const QString& widestText() const { return m_widestText; }
    void setWidestText(const QString& text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Look {
        QColor fill;
        QColor outline;
        QColor text;
    };
    Look look() const;

    bool m_isPrimary = false;
    QString m_widestText;
};

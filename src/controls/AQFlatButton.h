#pragma once

#include <QPushButton>

/// A push button without relief: quiet (a thin outline), or primary (filled with the accent) for
/// what matters most. Checked, a quiet button shows the accent. Enter presses it as Space does.
class AQFlatButton : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(bool primary READ isPrimary WRITE setPrimary)

public:
    explicit AQFlatButton(QWidget* parent = nullptr);

    bool isPrimary() const { return m_isPrimary; }
    void setPrimary(bool primary);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Look {
        QColor fill;
        QColor outline;
        QColor text;
    };
    Look look() const;

    bool m_isPrimary = false;
};

#pragma once

#include <QScrollArea>

/// A frameless area that asks for all the room that its contents need, though not for more width
/// than the screen has, and scrolls where its window does not give it. Scrolls to what the keyboard
/// focuses.
class AQScrollArea : public QScrollArea {
    Q_OBJECT

public:
    explicit AQScrollArea(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

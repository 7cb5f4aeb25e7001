#pragma once

#include <QKeyEvent>

/// A kind of button of Qt's that Enter presses as Space does, once however long it is held.
template <class Button>
class EnterClicks : public Button {
public:
    using Button::Button;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!isEnter)
            Button::keyPressEvent(event);
        else if (!event->isAutoRepeat())
            this->click();
    }
};

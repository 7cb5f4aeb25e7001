#pragma once

#include "workflows/DialogPrompts.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>

/// The real dialogs, with what the alerts said written down.
class RecordingDialogs : public DialogPrompts {
public:
    /// "message|informative text", in order.
    QStringList alerts;

    void alert(const QString& message, const QString& informative, Severity severity) override {
        alerts << message + u'|' + informative;
        DialogPrompts::alert(message, informative, severity);
    }

    /// The modal window that is shown, as what it is; null when it is something else.
    template <class Window>
    static Window* shown() {
        return qobject_cast<Window*>(QApplication::activeModalWidget());
    }
    /// Presses a button of the message box that is shown; false when there is none.
    static bool press(QMessageBox::StandardButton standardButton) {
        const auto* box = shown<QMessageBox>();
        QAbstractButton* button = box ? box->button(standardButton) : nullptr;
        if (button)
            button->click();
        return button != nullptr;
    }
};

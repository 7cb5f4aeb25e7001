#pragma once

#include <QKeyEvent>

/// Whether `event` is a key for undo, redo, copy, cut or paste, which belongs to a field while that
/// holds typed text, and else to the actions of the window.
inline bool isEditKey(const QKeyEvent& event) {
    for (const auto key : {QKeySequence::Undo, QKeySequence::Redo, QKeySequence::Copy,
                           QKeySequence::Cut, QKeySequence::Paste})
        if (event.matches(key))
            return true;
    return false;
}

/// Whether `event` is the plain key that deletes what is selected.
inline bool isDeleteKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Delete && !(event.modifiers() & ~Qt::KeypadModifier);
}

#pragma once

#include <QObject>

class History;
class QAction;

/// Undo and redo as menu items that name the step.
class UndoCommands : public QObject {
    Q_OBJECT

public:
    /// All must outlive this.
    UndoCommands(History& history, QAction& menuitemUndo, QAction& menuitemRedo,
                 QObject* parent = nullptr);

private:
    void refresh();

    History& m_history;
    QAction& m_undo;
    QAction& m_redo;
};

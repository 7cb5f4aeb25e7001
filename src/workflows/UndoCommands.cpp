#include "workflows/UndoCommands.h"

#include "data/History.h"

#include <QAction>
#include <QApplication>
#include <QWidget>

namespace {

constexpr qsizetype longestName = 48;

void show(QAction& item, bool isEnabled, const QString& verb, const QString& verbWithName,
          const QString& step) {
    item.setEnabled(isEnabled);
    // A file's name may be long, and hold what a menu takes for a mnemonic.
    QString name = step.size() > longestName ? step.left(longestName - 1) + u'\u2026' : step;
    name.replace(u'&', QLatin1String("&&"));
    item.setText(name.isEmpty() ? verb : verbWithName.arg(name));
}

} // namespace

UndoCommands::UndoCommands(History& history, QAction& menuitemUndo, QAction& menuitemRedo,
                           QObject* parent)
    : QObject(parent), m_history(history), m_undo(menuitemUndo), m_redo(menuitemRedo) {
    connect(&m_undo, &QAction::triggered, &history, &History::undo);
    connect(&m_redo, &QAction::triggered, &history, &History::redo);
    connect(&history, &History::changed, this, &UndoCommands::refresh);
    // Edits of one value are one step only as long as the person stays with it.
    connect(qApp, &QApplication::focusChanged, &history, &History::endStep);
    refresh();
}

void UndoCommands::refresh() {
    show(m_undo, m_history.canUndo(), tr("&Undo"), tr("&Undo %1"), m_history.undoName());
    show(m_redo, m_history.canRedo(), tr("&Redo"), tr("&Redo %1"), m_history.redoName());
}

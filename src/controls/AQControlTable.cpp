#include "controls/AQControlTable.h"

#include <QAccessibleWidget>

namespace {

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* table = qobject_cast<AQControlTable*>(object);
    return table ? new QAccessibleWidget(table, QAccessible::Grouping) : nullptr;
}

} // namespace

AQControlTable::AQControlTable(QWidget* parent) : QTableView(parent) {
    static const bool installed = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(installed)
}

// QTableView would announce a cell, and screen readers know none.
void AQControlTable::selectionChanged(const QItemSelection& selected,
                                      const QItemSelection& deselected) {
    QAbstractItemView::selectionChanged(selected, deselected); // NOLINT: past QTableView
}

// The current cell means nothing here. The base class would give its control the keyboard focus,
// even when it moves only because rows are removed while the person works elsewhere.
void AQControlTable::currentChanged(const QModelIndex& /*current*/,
                                    const QModelIndex& /*previous*/) {}

#include "controls/points/AQPointListAccessible.h"

#include "controls/points/AQPointList.h"
#include "controls/points/AQPointRow.h"

namespace {

/// Null for a row that its list has let go.
AQPointList* listOf(const QWidget* row) {
    while (row && !qobject_cast<const AQPointList*>(row))
        row = row->parentWidget();
    return qobject_cast<AQPointList*>(const_cast<QWidget*>(row));
}

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    if (auto* list = qobject_cast<AQPointList*>(object))
        return new AQPointListAccessible(*list);
    if (auto* row = qobject_cast<AQPointRow*>(object))
        return new AQPointRowAccessible(*row);
    return nullptr;
}

} // namespace

AQPointListAccessible::AQPointListAccessible(AQPointList& list)
    : QAccessibleWidget(&list, QAccessible::List) {}

void AQPointListAccessible::install() {
    static const bool installed = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(installed)
}

AQPointList* AQPointListAccessible::list() const {
    return qobject_cast<AQPointList*>(widget());
}

int AQPointListAccessible::childCount() const {
    return list() ? list()->count() : 0;
}

QAccessibleInterface* AQPointListAccessible::child(int index) const {
    return list() ? QAccessible::queryAccessibleInterface(list()->rowAt(index)) : nullptr;
}

int AQPointListAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* row = child ? qobject_cast<const AQPointRow*>(child->object()) : nullptr;
    return list() && row ? list()->rowOf(*row) : -1;
}

AQPointRowAccessible::AQPointRowAccessible(AQPointRow& row)
    : QAccessibleWidget(&row, QAccessible::ListItem) {}

QAccessibleInterface* AQPointRowAccessible::parent() const {
    return QAccessible::queryAccessibleInterface(listOf(widget()));
}

QAccessible::State AQPointRowAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    const auto* row = qobject_cast<const AQPointRow*>(widget());
    state.selectable = true;
    state.selected = row && row->isSelected();
    return state;
}

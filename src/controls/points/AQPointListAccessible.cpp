#include "controls/points/AQPointListAccessible.h"

#include "controls/points/AQPointList.h"
#include "controls/points/AQPointRow.h"
#include "controls/points/AQPointRowAccessible.h"
#include "data/AQSequence.h"

namespace {

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* list = qobject_cast<AQPointList*>(object);
    return list ? new AQPointListAccessible(*list) : nullptr;
}

void tell(QAccessibleInterface* row, QAccessible::Event type) {
    QAccessibleEvent event(row, type);
    QAccessible::updateAccessibility(&event);
}

} // namespace

AQPointListAccessible::AQPointListAccessible(AQPointList& list)
    : QAccessibleWidget(&list, QAccessible::List) {}

AQPointListAccessible::~AQPointListAccessible() {
    for (const auto& [id, row] : m_rows)
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(row));
}

void AQPointListAccessible::install() {
    static const bool installed = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(installed)
}

AQPointListAccessible* AQPointListAccessible::of(AQPointList* list) {
    return dynamic_cast<AQPointListAccessible*>(QAccessible::queryAccessibleInterface(list));
}

void AQPointListAccessible::tellNames(AQPointList& list) {
    const auto* self = QAccessible::isActive() ? of(&list) : nullptr;
    if (!self)
        return;
    self->forgetPointsThatWent();
    for (const auto& [id, row] : self->m_rows)
        if (row->takeNewName())
            tell(row, QAccessible::NameChanged);
}

void AQPointListAccessible::tellSelection(AQPointList& list) {
    const auto* self = QAccessible::isActive() ? of(&list) : nullptr;
    if (QAccessibleInterface* selected = self ? self->child(list.selectedRow()) : nullptr)
        tell(selected, QAccessible::Selection);
}

QAccessibleInterface* AQPointListAccessible::rowOf(const AQPointRow& row) {
    const QWidget* parent = &row;
    while (parent && !qobject_cast<const AQPointList*>(parent))
        parent = parent->parentWidget();
    const auto* self = of(qobject_cast<AQPointList*>(const_cast<QWidget*>(parent)));
    return self ? self->row(row.id()) : nullptr;
}

AQPointList* AQPointListAccessible::list() const {
    return qobject_cast<AQPointList*>(widget());
}

int AQPointListAccessible::childCount() const {
    return list() ? list()->count() : 0;
}

QAccessibleInterface* AQPointListAccessible::child(int index) const {
    return index >= 0 && index < childCount() ? row(list()->sequence().idAt(index)) : nullptr;
}

QAccessibleInterface* AQPointListAccessible::row(AQPointId id) const {
    AQPointRowAccessible*& row = m_rows[id];
    if (!row) {
        row = new AQPointRowAccessible(*list(), id);
        QAccessible::registerAccessibleInterface(row);
        row->takeNewName();
    }
    return row;
}

int AQPointListAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* row = dynamic_cast<const AQPointRowAccessible*>(child);
    return list() && row ? list()->sequence().rowOf(row->id()) : -1;
}

void AQPointListAccessible::forgetPointsThatWent() const {
    std::erase_if(m_rows, [](const auto& entry) {
        if (entry.second->isValid())
            return false;
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(entry.second));
        return true;
    });
}

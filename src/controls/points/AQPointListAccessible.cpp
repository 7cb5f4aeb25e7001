#include "controls/points/AQPointListAccessible.h"

#include "controls/AQValueView.h"
#include "controls/points/AQPointList.h"
#include "controls/points/AQPointRow.h"
#include "data/AQSequence.h"

#include <QPointer>

#include <utility>

class AQPointListAccessible::Item : public QAccessibleInterface {
public:
    Item(AQPointList& list, AQPointId id) : m_list(&list), m_id(id) {}

    int row() const { return m_list ? m_list->sequence().rowOf(m_id) : -1; }
    /// True when the name is another than at the last call.
    bool takeNewName() {
        const QString name = text(QAccessible::Name);
        return std::exchange(m_toldName, name) != name;
    }

    bool isValid() const override { return row() >= 0; }
    QObject* object() const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? m_list->rowName(row()) : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override { return isValid() ? m_list->rowRect(row()) : QRect(); }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(m_list);
    }
    int childCount() const override { return isValid() ? PointColumn::count : 0; }
    QAccessibleInterface* child(int index) const override {
        return index < 0 || index >= childCount()
                   ? nullptr
                   : QAccessible::queryAccessibleInterface(
                         m_list->rowAt(row())->editor(index).accessibleWidget());
    }
    int indexOfChild(const QAccessibleInterface* editor) const override {
        int column = childCount() - 1;
        while (column >= 0 && child(column) != editor)
            --column;
        return column;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        for (int column = 0; column < childCount(); ++column)
            if (child(column)->rect().contains(x, y))
                return child(column);
        return nullptr;
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        const QWidget* seen = m_list->viewport();
        state.selectable = true;
        state.selected = m_list->selectedRow() == row();
        state.disabled = !m_list->isEnabled();
        state.invisible = !m_list->isVisible();
        state.offscreen = !rect().intersects({seen->mapToGlobal(QPoint()), seen->size()});
        return state;
    }

private:
    const QPointer<AQPointList> m_list;
    const AQPointId m_id;
    QString m_toldName;
};

namespace {

void tell(QAccessibleInterface* item, QAccessible::Event type) {
    QAccessibleEvent event(item, type);
    QAccessible::updateAccessibility(&event);
}

} // namespace

AQPointListAccessible::AQPointListAccessible(AQPointList& list)
    : QAccessibleWidget(&list, QAccessible::List) {}

AQPointListAccessible::~AQPointListAccessible() {
    for (const auto& [id, item] : m_items)
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(item));
}

const AQPointListAccessible* AQPointListAccessible::of(AQPointList* list) {
    return QAccessible::isActive() ? dynamic_cast<const AQPointListAccessible*>(
                                         QAccessible::queryAccessibleInterface(list))
                                   : nullptr;
}

void AQPointListAccessible::tellNames(AQPointList& list) {
    const AQPointListAccessible* self = of(&list);
    if (!self)
        return;
    std::erase_if(self->m_items, [](const auto& known) {
        Item* item = known.second;
        const bool isGone = !item->isValid();
        if (isGone)
            QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(item));
        else if (item->takeNewName())
            tell(item, QAccessible::NameChanged);
        return isGone;
    });
}

void AQPointListAccessible::tellSelection(AQPointList& list) {
    const AQPointListAccessible* self = of(&list);
    if (QAccessibleInterface* selected = self ? self->child(list.selectedRow()) : nullptr)
        tell(selected, QAccessible::Selection);
}

QAccessibleInterface* AQPointListAccessible::itemOf(const AQPointRow& row) {
    QWidget* parent = row.parentWidget();
    while (parent && !qobject_cast<AQPointList*>(parent))
        parent = parent->parentWidget();
    const AQPointListAccessible* self = of(qobject_cast<AQPointList*>(parent));
    return self ? self->item(row.id()) : nullptr;
}

AQPointList* AQPointListAccessible::list() const {
    return qobject_cast<AQPointList*>(widget());
}

int AQPointListAccessible::childCount() const {
    return list() ? list()->count() : 0;
}

QAccessibleInterface* AQPointListAccessible::child(int index) const {
    return index >= 0 && index < childCount() ? item(list()->sequence().idAt(index)) : nullptr;
}

QAccessibleInterface* AQPointListAccessible::item(AQPointId id) const {
    Item*& item = m_items[id];
    if (!item) {
        item = new Item(*list(), id);
        QAccessible::registerAccessibleInterface(item);
        item->takeNewName();
    }
    return item;
}

int AQPointListAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* item = dynamic_cast<const Item*>(child);
    return item ? item->row() : -1;
}

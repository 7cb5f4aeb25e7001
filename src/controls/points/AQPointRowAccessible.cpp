#include "controls/points/AQPointRowAccessible.h"

#include "controls/AQValueView.h"
#include "controls/points/AQPointList.h"
#include "controls/points/AQPointRow.h"
#include "data/AQSequence.h"

#include <utility>

int AQPointRowAccessible::row() const {
    return m_list ? m_list->sequence().rowOf(m_id) : -1;
}

bool AQPointRowAccessible::takeNewName() {
    const QString name = text(QAccessible::Name);
    return std::exchange(m_toldName, name) != name;
}

QAccessibleInterface* AQPointRowAccessible::parent() const {
    return QAccessible::queryAccessibleInterface(m_list);
}

int AQPointRowAccessible::childCount() const {
    return isValid() ? PointColumn::count : 0;
}

QAccessibleInterface* AQPointRowAccessible::child(int index) const {
    if (index < 0 || index >= childCount())
        return nullptr;
    return QAccessible::queryAccessibleInterface(
        m_list->rowAt(row())->editor(index).accessibleWidget());
}

int AQPointRowAccessible::indexOfChild(const QAccessibleInterface* child) const {
    for (int column = 0; child && column < childCount(); ++column)
        if (m_list->rowAt(row())->editor(column).accessibleWidget() == child->object())
            return column;
    return -1;
}

QAccessibleInterface* AQPointRowAccessible::childAt(int x, int y) const {
    for (int column = 0; column < childCount(); ++column)
        if (QAccessibleInterface* editor = child(column); editor->rect().contains(x, y))
            return editor;
    return nullptr;
}

QString AQPointRowAccessible::text(QAccessible::Text kind) const {
    return kind == QAccessible::Name && isValid() ? m_list->rowName(row()) : QString();
}

QRect AQPointRowAccessible::rect() const {
    return isValid() ? m_list->rowRect(row()) : QRect();
}

QAccessible::State AQPointRowAccessible::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid)
        return state;
    state.selectable = true;
    state.selected = m_list->selectedRow() == row();
    state.disabled = !m_list->isEnabled();
    state.invisible = !m_list->isVisible();
    state.offscreen =
        m_list->viewport()
            ->visibleRegion()
            .intersected(rect().translated(-m_list->viewport()->mapToGlobal(QPoint())))
            .isEmpty();
    return state;
}

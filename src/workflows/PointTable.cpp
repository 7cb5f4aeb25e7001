#include "workflows/PointTable.h"

#include "controls/points/AQPointList.h"
#include "data/AQDataSource.h"
#include "data/ProgramChanges.h"
#include "data/ProgramInterpolation.h"
#include "workflows/ControlStates.h"

#include <QAbstractButton>
#include <QAction>

namespace {

QString analogInputReason() {
    return PointTable::tr("Not while the lamp follows its analog 1-10 V input");
}

} // namespace

PointTable::PointTable(AQDataSource& data, Outlets outlets, QObject* parent)
    : QObject(parent), m_data(data), m_outlets(outlets) {
    const NotificationCenter& notifications = data.notifications();
    connect(&notifications, &NotificationCenter::sectionChanged, this, &PointTable::updateButtons);
    connect(&notifications, &NotificationCenter::dataChanged, this, &PointTable::updateButtons);
    connect(&m_outlets.bttnTableItemAdd, &QAbstractButton::clicked, this,
            &PointTable::onTableItemAdd);
    connect(&m_outlets.bttnTableItemDelete, &QAbstractButton::clicked, this,
            &PointTable::onTableItemDelete);
    connect(&m_outlets.menuitemAddPoint, &QAction::triggered, this, &PointTable::onTableItemAdd);
    connect(&m_outlets.menuitemDeletePoint, &QAction::triggered, this,
            &PointTable::onTableItemDelete);
    updateButtons();
}

void PointTable::setEditingEnabled(bool enabled) {
    m_editingEnabled = enabled;
    m_outlets.tableView.setEnabled(enabled);
    m_outlets.tableView.setToolTip(enabled ? QString() : analogInputReason());
    updateButtons();
}

void PointTable::onTableItemAdd() {
    if (!canAdd())
        return;
    AQSequence& sequence = m_data.sequence();
    const int row = sequence.addNewAfter(m_data.selection().row(), this);
    m_data.selection().selectAdded(sequence.idAt(row), this);
}

void PointTable::addAt(const AQTimePoint& point) {
    AQSequence& sequence = m_data.sequence();
    const auto minute =
        ProgramChanges::nearestFreeMinute(sequence.points(), point.time.minuteOfDay());
    if (!canAdd() || !minute)
        return;
    AQTimePoint added = point;
    if (*minute != point.time.minuteOfDay())
        added = lightAt(sequence.points(), AQTime::fromMinuteOfDay(*minute));
    m_data.selection().selectAdded(sequence.idAt(sequence.add(added, this)), this);
}

bool PointTable::canAdd() {
    if (m_editingEnabled && !m_data.sequence().hasSpace())
        Q_EMIT refused(limitReason());
    return m_editingEnabled && m_data.sequence().hasSpace();
}

QString PointTable::limitReason() const {
    return (m_data.device() ? tr("The controller holds no more than %1 points")
                            : tr("A program holds no more than %1 points"))
        .arg(m_data.sequence().pointLimit());
}

void PointTable::onTableItemDelete() {
    if (!m_editingEnabled)
        return;
    // What a drag did to a point that is deleted in the middle of it is not what an undo should
    // bring back.
    m_data.history().cancelGesture();
    m_data.sequence().deleteWithRow(m_data.selection().row(), this);
}

void PointTable::updateButtons() {
    ControlState add{true, tr("Add a point after the selected one")};
    if (!m_data.sequence().hasSpace())
        add = {false, limitReason()};
    ControlState remove{true, tr("Delete the selected point")};
    if (m_data.selection().row() < 0)
        remove = {false, tr("Select a point first")};
    if (!m_editingEnabled)
        add = remove = {false, analogInputReason()};
    add.applyTo(m_outlets.bttnTableItemAdd);
    add.applyTo(m_outlets.menuitemAddPoint);
    remove.applyTo(m_outlets.bttnTableItemDelete);
    remove.applyTo(m_outlets.menuitemDeletePoint);
}

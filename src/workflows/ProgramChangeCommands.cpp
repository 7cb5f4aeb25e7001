#include "workflows/ProgramChangeCommands.h"

#include "data/AQDataSource.h"
#include "workflows/ScaleIntensityPanel.h"
#include "workflows/ShiftDayPanel.h"

#include <QAction>

ProgramChangeCommands::ProgramChangeCommands(AQDataSource& data, Outlets outlets, QObject* parent)
    : QObject(parent), m_data(data), m_outlets(outlets) {
    connect(&data.notifications(), &NotificationCenter::dataChanged, this,
            &ProgramChangeCommands::updateItems);
    connect(&m_outlets.menuitemShiftDay, &QAction::triggered, this,
            [this] { run<ShiftDayPanel>(m_shiftDay); });
    connect(&m_outlets.menuitemScaleIntensity, &QAction::triggered, this,
            [this] { run<ScaleIntensityPanel>(m_scaleIntensity); });
    updateItems();
}

template <class Panel>
void ProgramChangeCommands::run(ProgramChangePanel*& panel) {
    if (!panel)
        panel = new Panel(m_data, m_outlets.uncovered, &m_outlets.window);
    panel->run();
}

void ProgramChangeCommands::setEditing(const ControlState& editing) {
    m_editing = editing;
    updateItems();
}

void ProgramChangeCommands::updateItems() {
    ControlState shift{true, tr("Move all points later or earlier")};
    ControlState scale{true, tr("Make all points brighter or darker")};
    if (m_data.sequence().count() == 0)
        shift = scale = {false, tr("The program has no points")};
    if (!m_editing.isEnabled)
        shift = scale = m_editing;
    shift.applyTo(m_outlets.menuitemShiftDay);
    scale.applyTo(m_outlets.menuitemScaleIntensity);
}

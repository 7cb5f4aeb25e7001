#include "workflows/AcclimationCommands.h"

#include "controls/Announcement.h"
#include "data/AQDataSource.h"
#include "workflows/AcclimationPanel.h"

#include <QAbstractButton>
#include <QAction>
#include <QGuiApplication>

AcclimationCommands::AcclimationCommands(AQDataSource& data, Outlets outlets, QObject* parent)
    : QObject(parent), m_data(data), m_outlets(outlets), m_day(data) {
    connect(&m_outlets.menuitemAcclimate, &QAction::triggered, this, &AcclimationCommands::run);
    connect(&m_outlets.sign, &QAbstractButton::clicked, this, &AcclimationCommands::onSign);
    const NotificationCenter& center = data.notifications();
    for (const auto signal : {&NotificationCenter::acclimationChanged,
                              &NotificationCenter::dataLoaded, &NotificationCenter::dataChanged})
        connect(&center, signal, this, &AcclimationCommands::refreshSign);
    connect(&center, &NotificationCenter::dayChanged, this, [this] {
        refreshSign();
        Announcement::make(m_outlets.window, m_outlets.sign.text());
    });
    // A person who comes back may have travelled.
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) {
                if (state == Qt::ApplicationActive)
                    m_day.look();
            });
    refreshSign();
}

bool AcclimationCommands::isOver() const {
    return m_data.acclimation() && m_data.acclimation()->isOverOn(m_data.today());
}

void AcclimationCommands::run() {
    if (!m_panel) {
        m_panel = new AcclimationPanel(m_data, m_outlets.uncovered, &m_outlets.window);
        connect(m_panel, &AcclimationPanel::ghostChanged, this, &AcclimationCommands::ghostChanged);
        connect(m_panel, &AcclimationPanel::chosen, this, &AcclimationCommands::set);
    }
    m_panel->run();
}

void AcclimationCommands::onSign() {
    if (isOver())
        set(std::nullopt);
    else
        run();
}

void AcclimationCommands::set(const std::optional<Acclimation>& acclimation) {
    m_data.setAcclimation(acclimation);
    m_data.noteStep();
    Q_EMIT m_data.notifications().acclimationChanged(this);
}

void AcclimationCommands::refreshSign() {
    const auto& acclimation = m_data.acclimation();
    if (acclimation) {
        m_outlets.sign.setText(isOver()
                                   ? tr("Acclimation is over: end it")
                                   : tr("Acclimation %1").arg(acclimation->textOn(m_data.today())));
        m_outlets.sign.setToolTip(isOver() ? tr("The program runs at 100 % from now on anyway")
                                           : tr("Change or end the acclimation"));
    }
    m_outlets.sign.setVisible(acclimation.has_value());
    updateItems();
}

void AcclimationCommands::setEditing(const ControlState& editing) {
    m_editing = editing;
    updateItems();
}

void AcclimationCommands::updateItems() {
    ControlState state{true, tr("Begin with less light, and more of it every day")};
    if (m_data.sequence().count() == 0 && !m_data.acclimation())
        state = {false, tr("The program has no points")};
    if (!m_editing.isEnabled)
        state = m_editing;
    state.applyTo(m_outlets.menuitemAcclimate);
    m_outlets.sign.setEnabled(state.isEnabled);
}

#pragma once

#include "workflows/ControlStates.h"

#include <QObject>

class AQDataSource;
class ProgramChangePanel;

/// The changes of the whole program that a dialog asks about: "Shift Day" and "Scale Intensity".
class ProgramChangeCommands : public QObject {
    Q_OBJECT

public:
    struct Outlets {
        QAction& menuitemShiftDay;
        QAction& menuitemScaleIntensity;
        const QWidget& uncovered; ///< what the dialogs leave in sight
        QWidget& window;          ///< over which they are shown; owns them
    };

    /// All must outlive this.
    ProgramChangeCommands(AQDataSource& data, Outlets outlets, QObject* parent = nullptr);

    /// Whether the program may be edited, and if not, why.
    void setEditing(const ControlState& editing);

private:
    template <class Panel>
    void run(ProgramChangePanel*& panel);
    void updateItems();

    AQDataSource& m_data;
    Outlets m_outlets;
    ControlState m_editing;
    ProgramChangePanel* m_shiftDay = nullptr; ///< made when they are first asked for
    ProgramChangePanel* m_scaleIntensity = nullptr;
};

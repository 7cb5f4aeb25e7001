#pragma once

#include "data/Acclimation.h"
#include "workflows/ControlStates.h"
#include "workflows/DayWatch.h"

#include <QObject>

class AcclimationPanel;
class AQDataSource;
class QAbstractButton;

/// The acclimation of the document: the sign that tells today's light, its end, and the dialog
/// about it.
class AcclimationCommands : public QObject {
    Q_OBJECT

public:
    struct Outlets {
        QAction& menuitemAcclimate;
        QAbstractButton& sign;    ///< shown while there is an acclimation
        const QWidget& uncovered; ///< what the dialog leaves in sight
        QWidget& window;          ///< over which it is shown; owns it
    };

    /// All must outlive this.
    AcclimationCommands(AQDataSource& data, Outlets outlets, QObject* parent = nullptr);

    /// Whether the program may be edited, and if not, why.
    void setEditing(const ControlState& editing);

Q_SIGNALS:
    /// Today's light, while the dialog is open; then none.
    void ghostChanged(const std::optional<std::vector<AQTimePoint>>& points);

private:
    bool isOver() const;
    void run();
    void onSign();
    void set(const std::optional<Acclimation>& acclimation);
    void refreshSign();
    void updateItems();

    AQDataSource& m_data;
    Outlets m_outlets;
    DayWatch m_day;
    ControlState m_editing;
    AcclimationPanel* m_panel = nullptr; ///< made when it is first asked for
};

#pragma once

#include "data/AQTimePoint.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>
#include <utility>

class AQDataSource;
class AQSwitchButton;
class LampPreview;

/// Shows on the lamp the light that is being edited: the task light, or the point as it is today,
/// which the person touched last.
class LiveMode : public QObject {
    Q_OBJECT

public:
    struct Intervals {
        /// Without an edit for this long the controller is told that the preview goes on.
        std::chrono::milliseconds keepAlive{50000};
    };

    /// All must outlive this.
    LiveMode(AQDataSource& data, LampPreview& lamp, AQSwitchButton& bttnLiveModeSwitch,
             QObject* parent = nullptr);
    LiveMode(AQDataSource& data, LampPreview& lamp, AQSwitchButton& bttnLiveModeSwitch,
             Intervals intervals, QObject* parent = nullptr);

    /// The task light is being edited from now on, and has changed if the lamp shows it already.
    void taskLightTouched();
    /// While suspended another user has the lamp; afterwards it is taken again if the mode is on.
    void setSuspended(bool isSuspended);

private:
    using Levels = std::pair<int, int>;

    void onBttnLiveMode(bool isOn);
    void onLiveModeTimer();
    void onSectionChanged(int row);
    void onPointsChanged();
    bool hasLamp() const { return m_isOn && !m_isSuspended; }
    void takeLamp();
    void showEditedLight();
    std::optional<AQTimePoint> editedLight() const;

    AQDataSource& m_data;
    LampPreview& m_lamp;
    Intervals m_intervals;
    QTimer* m_liveModeTimer;
    bool m_isOn = false; ///< the switch; a lost link leaves it on
    bool m_isSuspended = false;
    bool m_isTaskLightEdited = false; ///< it was touched last; else the selected point is edited
    std::optional<Levels> m_shown;
};

#pragma once

#include "lamp/ComputerClock.h"

#include <QDialog>
#include <QTimer>

#include <chrono>

class QCheckBox;
class QComboBox;
class QDateTimeEdit;
class QDialogButtonBox;
class QLabel;
class QRadioButton;
class YAnswer;
class YMessageController;

struct DeviceTimeIntervals {
    std::chrono::milliseconds update{500};
};

/// Shows the controller's clock beside the computer's and sets it.
///
/// The controller's clock holds local wall time and no zone. Made when it is first asked for, it
/// exists for the rest of the run; modal for the whole program while open.
class DeviceTimePanel : public QDialog {
    Q_OBJECT

public:
    using Intervals = DeviceTimeIntervals;

    /// `controller` must outlive the panel.
    explicit DeviceTimePanel(YMessageController& controller, QWidget* parent,
                             ComputerClock clock = ComputerClock::system(),
                             Intervals intervals = {});

    /// Asks the controller for its clock and shows the panel. For a connected controller.
    void menuSetDeviceTime();
    /// Without a controller there is nothing to set: "OK" is disabled, the clocks go on.
    void setConnected(bool isConnected);
    /// The controller's clock minus the computer's in seconds; 0 until a controller has answered,
    /// then kept from one opening to the next.
    double deltaTime() const { return m_deltaTime; }

private:
    /// What this opening knows of the controller's clock.
    enum class DeviceTime { Unknown, Known, Invalid };

    void setUpControls();
    void setUpLayout();
    void preset(const QDateTime& now);
    void askDevice(const QDateTime& now);
    void onAnswer(const YAnswer& answer, const QDateTime& askedAt);
    void onUpdateTime();
    void onPanelSetDeviceTime();
    void updateDifference();
    QDateTime chosenTime() const;

    YMessageController& m_controller;
    ComputerClock m_clock;
    Intervals m_intervals;

    QLabel* m_lblDeviceTime;
    QLabel* m_lblComputerTime;
    QLabel* m_lblDifference;
    QRadioButton* m_radioComputerTime;
    QRadioButton* m_radioCustomTime;
    QDateTimeEdit* m_pickerCustomTime;
    QComboBox* m_comboTimezone;
    QCheckBox* m_chkDaylightSaving;
    QDialogButtonBox* m_buttons;

    QTimer* m_updateTimeTimer;
    double m_deltaTime = 0.0;
    DeviceTime m_deviceTime = DeviceTime::Unknown;
    QString m_invalidDate;
    /// The computer's offset from UTC at the opening: the controller's clock, which knows no zone,
    /// does not jump with the computer's when that changes to or from daylight saving.
    int m_offsetAtOpening = 0;
    int m_preselectedZone = 0;
    bool m_isConnected = false;
};

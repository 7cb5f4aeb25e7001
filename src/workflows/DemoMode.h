#pragma once

#include "data/AQTimePoint.h"

#include <QObject>
#include <QTimer>

#include <chrono>

class AQCurveView;
class AQDataSource;
class LampPreview;
class QPushButton;

/// Plays the whole day of the light program on the lamp, with a playhead over the curve: one minute
/// of the program per tick.
///
/// The program may be edited or replaced meanwhile; each tick shows what it is then.
class DemoMode : public QObject {
    Q_OBJECT

public:
    struct Intervals {
        std::chrono::milliseconds tick{80};
    };

    /// All must outlive this.
    DemoMode(AQDataSource& data, LampPreview& lamp, AQCurveView& curveView,
             QPushButton& bttnRunDemo, QObject* parent = nullptr);
    DemoMode(AQDataSource& data, LampPreview& lamp, AQCurveView& curveView,
             QPushButton& bttnRunDemo, Intervals intervals, QObject* parent = nullptr);

    /// A lost link leaves it running.
    bool isRunning() const { return m_demoModeTimer.isActive(); }
    /// Starts or stops.
    void onBttnRunDemo();

Q_SIGNALS:
    /// Comes before the demo takes the lamp and after it has let go of it.
    void runningChanged(bool isRunning);

private:
    void start();
    void stop();
    void onDemoModeTimer();
    void takeLamp();
    void showLight(AQTime time);

    AQDataSource& m_data;
    LampPreview& m_lamp;
    AQCurveView& m_curveView;
    QPushButton& m_bttnRunDemo;
    QTimer m_demoModeTimer;
};

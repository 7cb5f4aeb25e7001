#pragma once

#include "lamp/DemoPlayer.h"

#include <QObject>

class AQCurveView;
class QPushButton;

/// The demo in the window: the button that starts and stops it, and the playhead over the curve,
/// which gets the focus, since a click there and its keys lead through the day.
class DemoMode : public QObject {
    Q_OBJECT

public:
    using Intervals = DemoIntervals;

    /// All must outlive this.
    DemoMode(AQDataSource& data, LampPreview& lamp, AQCurveView& curveView,
             QPushButton& bttnRunDemo, Intervals intervals = {}, QObject* parent = nullptr);

    /// A lost link leaves it running.
    bool isRunning() const { return m_player.isRunning(); }
    /// Starts or stops.
    void onBttnRunDemo();

Q_SIGNALS:
    /// Comes before the demo takes the lamp and after it has let go of it.
    void runningChanged(bool isRunning);

private:
    void onRunningChanged(bool isRunning);
    void onMoved(std::optional<AQTime> time);
    void sayWherePaused() const;

    AQCurveView& m_curveView;
    QPushButton& m_bttnRunDemo;
    DemoPlayer m_player;
};

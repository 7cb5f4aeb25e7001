#pragma once

#include "data/AQTimePoint.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>

class AQDataSource;
class LampPreview;

struct DemoIntervals {
    std::chrono::milliseconds tick{80};
};

/// Plays the whole day of the light program on the lamp: one minute of the program per tick.
///
/// The program may be edited or replaced meanwhile; each tick shows what it is then. A lost link
/// leaves it running.
class DemoPlayer : public QObject {
    Q_OBJECT

public:
    /// Both must outlive this.
    DemoPlayer(AQDataSource& data, LampPreview& lamp, DemoIntervals intervals = {},
               QObject* parent = nullptr);

    bool isRunning() const { return m_timer.isActive(); }
    /// From 00:00 on; it stops by itself after 23:59.
    void start();
    void stop();

Q_SIGNALS:
    /// Comes before the demo takes the lamp and after it has let go of it.
    void runningChanged(bool isRunning);
    /// The minute that the lamp shows; none once the demo has stopped.
    void moved(std::optional<AQTime> time);

private:
    void onTick();
    void takeLamp();
    void showLight();

    AQDataSource& m_data;
    LampPreview& m_lamp;
    QTimer m_timer;
    AQTime m_time;
};

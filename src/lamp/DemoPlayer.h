#pragma once

#include "data/AQTimePoint.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>

class AQDataSource;
class LampPreview;
struct ChannelLevels;

struct DemoIntervals {
    std::chrono::milliseconds tick{80};
    /// While it is paused, the controller is told after each of these that the preview goes on.
    std::chrono::milliseconds keepAlive{50000};
};

/// Plays the whole day of the light program on the lamp, in today's light: one minute of the
/// program per tick.
///
/// It can be paused and sent to any minute, paused or not; the lamp shows that minute at once. The
/// program may be edited or replaced meanwhile: each tick shows what it is then, and so does the
/// lamp that is paused. A lost link leaves it running, or paused.
class DemoPlayer : public QObject {
    Q_OBJECT

public:
    /// Both must outlive this.
    DemoPlayer(AQDataSource& data, LampPreview& lamp, DemoIntervals intervals = {},
               QObject* parent = nullptr);

    /// True while it is paused, too.
    bool isRunning() const { return m_isRunning; }
    bool isPaused() const { return m_isRunning && !m_timer.isActive(); }
    /// From 00:00 on; it stops by itself after 23:59.
    void start();
    void stop();

    // Without a running demo these do nothing.

    /// Stays at its minute, or goes on from there.
    void setPaused(bool isPaused);
    void goTo(AQTime time);
    /// To the last point before the present minute or to the first one behind it; stays where it is
    /// when there is none. Asked again for the point before, soon after it went to one, it goes to
    /// the one before that, although it has played on.
    void goToPointBefore();
    void goToPointAfter();

Q_SIGNALS:
    /// Comes before the demo takes the lamp and after it has let go of it.
    void runningChanged(bool isRunning);
    /// The minute that the lamp shows; none once the demo has stopped.
    void moved(std::optional<AQTime> time);
    /// Only while it is running, not by a start or stop.
    void pausedChanged(bool isPaused);

private:
    void onTick();
    void onProgramChanged();
    void takeLamp();
    void showLight();
    QString sign() const;
    ChannelLevels levels() const;

    AQDataSource& m_data;
    LampPreview& m_lamp;
    QTimer m_timer;
    QTimer m_keepAliveTimer;
    bool m_isRunning = false;
    AQTime m_time;
    std::optional<int> m_wentTo; ///< the minute it was last sent to
};

#include "lamp/DemoPlayer.h"

#include "data/AQDataSource.h"
#include "data/ColorMapping.h"
#include "data/ProgramInterpolation.h"
#include "data/TimeText.h"
#include "lamp/LampPreview.h"

#include <algorithm>

namespace {

constexpr int lastMinute = AQTime::minutesPerDay - 1;

/// How far it plays on between two quick presses of a key, and somewhat more.
constexpr int minutesBetweenPresses = 12;

} // namespace

DemoPlayer::DemoPlayer(AQDataSource& data, LampPreview& lamp, DemoIntervals intervals,
                       QObject* parent)
    : QObject(parent), m_data(data), m_lamp(lamp) {
    // A precise repeating timer counts from tick to tick, so that a late one delays none after it.
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(intervals.tick);
    connect(&m_timer, &QTimer::timeout, this, &DemoPlayer::onTick);
    m_keepAliveTimer.setTimerType(Qt::PreciseTimer);
    m_keepAliveTimer.setInterval(intervals.keepAlive);
    connect(&m_keepAliveTimer, &QTimer::timeout, &lamp, &LampPreview::keepAlive);
    connect(&lamp, &LampPreview::regained, this, [this] {
        if (isRunning())
            takeLamp();
    });
    const NotificationCenter& center = data.notifications();
    connect(&center, &NotificationCenter::dataChanged, this, &DemoPlayer::onProgramChanged);
    connect(&center, &NotificationCenter::cellChanged, this, &DemoPlayer::onProgramChanged);
    connect(&center, &NotificationCenter::previewChanged, this, &DemoPlayer::onProgramChanged);
    connect(&center, &NotificationCenter::acclimationChanged, this, &DemoPlayer::onProgramChanged);
    connect(&center, &NotificationCenter::dayChanged, this, &DemoPlayer::onProgramChanged);
}

void DemoPlayer::start() {
    m_timer.start();
    m_isRunning = true;
    m_time = {};
    m_wentTo.reset();
    Q_EMIT runningChanged(true);
    Q_EMIT moved(m_time);
    takeLamp();
}

void DemoPlayer::takeLamp() {
    m_lamp.take(sign());
    showLight();
}

void DemoPlayer::onTick() {
    if (m_time.minuteOfDay() >= lastMinute) {
        stop();
        return;
    }
    m_time = AQTime::fromMinuteOfDay(m_time.minuteOfDay() + 1);
    Q_EMIT moved(m_time);
    m_lamp.setSign(sign());
    showLight();
}

void DemoPlayer::onProgramChanged() {
    if (isPaused())
        showLight();
}

void DemoPlayer::showLight() {
    m_lamp.show(levels());
    if (isPaused())
        m_keepAliveTimer.start();
}

ChannelLevels DemoPlayer::levels() const {
    const AQTimePoint light = lightAt(m_data.todaysLight(m_data.preview().points()), m_time);
    return levelsFromLight(light.colorTemp, light.brightness);
}

QString DemoPlayer::sign() const {
    const QString text = isPaused() ? tr("DEMO %1 PAUSED: press Space to go on") : tr("DEMO %1");
    return text.arg(timeText(m_time.hour, m_time.minute));
}

void DemoPlayer::setPaused(bool isPaused) {
    if (!m_isRunning || isPaused == this->isPaused())
        return;
    if (isPaused) {
        m_timer.stop();
        // Of the minutes that it played through, the lamp may be a second behind.
        m_lamp.showAtOnce(levels());
        m_keepAliveTimer.start();
    } else {
        m_keepAliveTimer.stop();
        m_timer.start();
    }
    m_lamp.setSign(sign());
    Q_EMIT pausedChanged(isPaused);
}

void DemoPlayer::goTo(AQTime time) {
    if (!m_isRunning)
        return;
    m_wentTo = time.minuteOfDay();
    if (time.minuteOfDay() == m_time.minuteOfDay())
        return;
    m_time = AQTime::fromMinuteOfDay(time.minuteOfDay());
    if (!isPaused())
        m_timer.start(); // a whole tick for this minute
    else
        m_keepAliveTimer.start();
    Q_EMIT moved(m_time);
    m_lamp.setSign(sign());
    m_lamp.showAtOnce(levels());
}

void DemoPlayer::goToPointBefore() {
    const int minute = m_time.minuteOfDay();
    const bool isSoon =
        m_wentTo && minute >= *m_wentTo && minute - *m_wentTo <= minutesBetweenPresses;
    const int from = isSoon ? *m_wentTo : minute;
    std::optional<int> found;
    // A file may hold its points in another order than that of the day.
    for (const AQTimePoint& point : m_data.preview().points())
        if (const int at = point.time.minuteOfDay(); at < from)
            found = std::max(found.value_or(at), at);
    if (found)
        goTo(AQTime::fromMinuteOfDay(*found));
}

void DemoPlayer::goToPointAfter() {
    const int from = m_time.minuteOfDay();
    std::optional<int> found;
    for (const AQTimePoint& point : m_data.preview().points())
        if (const int at = point.time.minuteOfDay(); at > from)
            found = std::min(found.value_or(at), at);
    if (found)
        goTo(AQTime::fromMinuteOfDay(*found));
}

void DemoPlayer::stop() {
    m_timer.stop();
    m_keepAliveTimer.stop();
    m_isRunning = false;
    Q_EMIT moved(std::nullopt);
    m_lamp.release();
    Q_EMIT runningChanged(false);
}

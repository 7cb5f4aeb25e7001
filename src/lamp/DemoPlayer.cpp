#include "lamp/DemoPlayer.h"

#include "data/AQDataSource.h"
#include "data/ColorMapping.h"
#include "data/ProgramInterpolation.h"
#include "data/TimeText.h"
#include "lamp/LampPreview.h"

namespace {

constexpr int lastMinute = AQTime::minutesPerDay - 1;

QString signAt(AQTime time) {
    return DemoPlayer::tr("DEMO %1").arg(timeText(time.hour, time.minute));
}

} // namespace

DemoPlayer::DemoPlayer(AQDataSource& data, LampPreview& lamp, DemoIntervals intervals,
                       QObject* parent)
    : QObject(parent), m_data(data), m_lamp(lamp) {
    // A precise repeating timer counts from tick to tick, so that a late one delays none after it.
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(intervals.tick);
    connect(&m_timer, &QTimer::timeout, this, &DemoPlayer::onTick);
    connect(&lamp, &LampPreview::regained, this, [this] {
        if (isRunning())
            takeLamp();
    });
}

void DemoPlayer::start() {
    m_timer.start();
    m_time = {};
    Q_EMIT runningChanged(true);
    Q_EMIT moved(m_time);
    takeLamp();
}

void DemoPlayer::takeLamp() {
    m_lamp.take(signAt(m_time));
    showLight();
}

void DemoPlayer::onTick() {
    if (m_time.minuteOfDay() >= lastMinute) {
        stop();
        return;
    }
    m_time = AQTime::fromMinuteOfDay(m_time.minuteOfDay() + 1);
    Q_EMIT moved(m_time);
    m_lamp.setSign(signAt(m_time));
    showLight();
}

void DemoPlayer::showLight() {
    const AQTimePoint light = lightAt(m_data.preview().points(), m_time);
    m_lamp.show(levelsFromLight(light.colorTemp, light.brightness));
}

void DemoPlayer::stop() {
    m_timer.stop();
    Q_EMIT moved(std::nullopt);
    m_lamp.release();
    Q_EMIT runningChanged(false);
}

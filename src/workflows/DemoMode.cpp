#include "workflows/DemoMode.h"

#include "controls/curve/AQCurveView.h"
#include "controls/time/TimeText.h"
#include "data/AQDataSource.h"
#include "data/ColorMapping.h"
#include "data/ProgramInterpolation.h"
#include "lamp/LampPreview.h"

#include <QPushButton>

namespace {

constexpr int lastMinute = AQTime::minutesPerDay - 1;

QString signAt(AQTime time) {
    return QStringLiteral("DEMO ") + timeText(time.hour, time.minute);
}

} // namespace

DemoMode::DemoMode(AQDataSource& data, LampPreview& lamp, AQCurveView& curveView,
                   QPushButton& bttnRunDemo, QObject* parent)
    : DemoMode(data, lamp, curveView, bttnRunDemo, Intervals{}, parent) {}

DemoMode::DemoMode(AQDataSource& data, LampPreview& lamp, AQCurveView& curveView,
                   QPushButton& bttnRunDemo, Intervals intervals, QObject* parent)
    : QObject(parent), m_data(data), m_lamp(lamp), m_curveView(curveView),
      m_bttnRunDemo(bttnRunDemo) {
    // A precise repeating timer counts from tick to tick, so that a late one delays none after it.
    m_demoModeTimer.setTimerType(Qt::PreciseTimer);
    m_demoModeTimer.setInterval(intervals.tick);
    m_bttnRunDemo.setText(QStringLiteral("Run Demo"));
    connect(&m_demoModeTimer, &QTimer::timeout, this, &DemoMode::onDemoModeTimer);
    connect(&m_bttnRunDemo, &QPushButton::clicked, this, &DemoMode::onBttnRunDemo);
    connect(&lamp, &LampPreview::regained, this, [this] {
        if (isRunning())
            takeLamp();
    });
}

void DemoMode::onBttnRunDemo() {
    if (isRunning())
        stop();
    else
        start();
}

void DemoMode::start() {
    m_demoModeTimer.start();
    m_bttnRunDemo.setText(QStringLiteral("Stop Demo"));
    Q_EMIT runningChanged(true);
    m_curveView.setPlayheadTime(AQTime{});
    takeLamp();
}

void DemoMode::takeLamp() {
    const AQTime time = m_curveView.playheadTime().value_or(AQTime{});
    m_lamp.take(signAt(time));
    showLight(time);
}

void DemoMode::onDemoModeTimer() {
    const auto time = m_curveView.playheadTime();
    if (!time || time->minuteOfDay() >= lastMinute) {
        stop();
        return;
    }
    const AQTime next = AQTime::fromMinuteOfDay(time->minuteOfDay() + 1);
    m_curveView.setPlayheadTime(next);
    m_lamp.setSign(signAt(next));
    showLight(next);
}

void DemoMode::showLight(AQTime time) {
    const AQTimePoint light = lightAt(m_data.sequence().points(), time);
    m_lamp.show(levelsFromLight(light.colorTemp, light.brightness));
}

void DemoMode::stop() {
    m_demoModeTimer.stop();
    m_bttnRunDemo.setText(QStringLiteral("Run Demo"));
    m_curveView.setPlayheadTime(std::nullopt);
    m_lamp.release();
    Q_EMIT runningChanged(false);
}

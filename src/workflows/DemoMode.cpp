#include "workflows/DemoMode.h"

#include "controls/Announcement.h"
#include "controls/curve/AQCurveView.h"
#include "data/TimeText.h"

#include <QPushButton>

DemoMode::DemoMode(AQDataSource& data, LampPreview& lamp, AQCurveView& curveView,
                   QPushButton& bttnRunDemo, Intervals intervals, QObject* parent)
    : QObject(parent), m_curveView(curveView), m_bttnRunDemo(bttnRunDemo),
      m_player(data, lamp, intervals) {
    m_bttnRunDemo.setText(tr("Run Demo"));
    connect(&m_bttnRunDemo, &QPushButton::clicked, this, &DemoMode::onBttnRunDemo);
    connect(&m_player, &DemoPlayer::runningChanged, this, &DemoMode::onRunningChanged);
    connect(&m_player, &DemoPlayer::moved, this, &DemoMode::onMoved);
    connect(&m_player, &DemoPlayer::pausedChanged, this, [this](bool isPaused) {
        m_curveView.setPlayheadPaused(isPaused);
        if (isPaused)
            sayWherePaused();
        else
            Announcement::make(m_curveView, tr("The demo goes on"));
    });
    connect(&curveView, &AQCurveView::playheadRequested, &m_player, &DemoPlayer::goTo);
    connect(&curveView, &AQCurveView::pauseRequested, &m_player,
            [this] { m_player.setPaused(!m_player.isPaused()); });
    connect(&curveView, &AQCurveView::pointBeforeRequested, &m_player,
            &DemoPlayer::goToPointBefore);
    connect(&curveView, &AQCurveView::pointAfterRequested, &m_player, &DemoPlayer::goToPointAfter);
}

void DemoMode::onBttnRunDemo() {
    if (isRunning())
        m_player.stop();
    else
        m_player.start();
}

void DemoMode::onRunningChanged(bool isRunning) {
    m_bttnRunDemo.setText(isRunning ? tr("Stop Demo") : tr("Run Demo"));
    Q_EMIT runningChanged(isRunning);
    if (isRunning)
        m_curveView.setFocus();
}

void DemoMode::onMoved(std::optional<AQTime> time) {
    m_curveView.setPlayheadTime(time);
    if (time && m_player.isPaused())
        sayWherePaused();
}

void DemoMode::sayWherePaused() const {
    const std::optional<AQTime> time = m_curveView.playheadTime();
    if (time)
        Announcement::make(m_curveView, tr("Paused at %1").arg(timeText(time->hour, time->minute)));
}

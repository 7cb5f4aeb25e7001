#include "workflows/DemoMode.h"

#include "controls/curve/AQCurveView.h"

#include <QPushButton>

DemoMode::DemoMode(AQDataSource& data, LampPreview& lamp, AQCurveView& curveView,
                   QPushButton& bttnRunDemo, Intervals intervals, QObject* parent)
    : QObject(parent), m_bttnRunDemo(bttnRunDemo), m_player(data, lamp, intervals) {
    m_bttnRunDemo.setText(tr("Run Demo"));
    connect(&m_bttnRunDemo, &QPushButton::clicked, this, &DemoMode::onBttnRunDemo);
    connect(&m_player, &DemoPlayer::runningChanged, this, &DemoMode::onRunningChanged);
    connect(&m_player, &DemoPlayer::moved, &curveView, &AQCurveView::setPlayheadTime);
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
}

#include "workflows/LiveMode.h"

#include "controls/window/AQSwitchButton.h"
#include "data/AQDataSource.h"
#include "data/ColorMapping.h"
#include "lamp/LampPreview.h"

namespace {

QString previewSign() {
    return LiveMode::tr("LIVE PREVIEW");
}

} // namespace

LiveMode::LiveMode(AQDataSource& data, LampPreview& lamp, AQSwitchButton& bttnLiveModeSwitch,
                   QObject* parent)
    : LiveMode(data, lamp, bttnLiveModeSwitch, Intervals{}, parent) {}

LiveMode::LiveMode(AQDataSource& data, LampPreview& lamp, AQSwitchButton& bttnLiveModeSwitch,
                   Intervals intervals, QObject* parent)
    : QObject(parent), m_data(data), m_lamp(lamp), m_intervals(intervals),
      m_liveModeTimer(new QTimer(this)) {
    m_liveModeTimer->setTimerType(Qt::PreciseTimer);
    connect(m_liveModeTimer, &QTimer::timeout, this, &LiveMode::onLiveModeTimer);
    connect(&bttnLiveModeSwitch, &AQSwitchButton::toggled, this, &LiveMode::onBttnLiveMode);
    connect(&lamp, &LampPreview::regained, this, &LiveMode::takeLamp);

    const NotificationCenter& notifications = data.notifications();
    connect(&notifications, &NotificationCenter::sectionChanged, this, &LiveMode::onSectionChanged);
    connect(&notifications, &NotificationCenter::cellChanged, this, &LiveMode::onPointsChanged);
    connect(&notifications, &NotificationCenter::dataChanged, this, &LiveMode::onPointsChanged);
    connect(&notifications, &NotificationCenter::previewChanged, this, &LiveMode::onPointsChanged);
    connect(&notifications, &NotificationCenter::acclimationChanged, this,
            &LiveMode::onPointsChanged);
    connect(&notifications, &NotificationCenter::dayChanged, this, &LiveMode::onPointsChanged);
    connect(&notifications, &NotificationCenter::dataLoaded, this,
            [this] { m_isTaskLightEdited = false; });
}

void LiveMode::onBttnLiveMode(bool isOn) {
    if (isOn == m_isOn)
        return;
    m_isOn = isOn;
    if (isOn) {
        takeLamp();
    } else if (!m_isSuspended) {
        m_liveModeTimer->stop();
        m_lamp.releaseAfterLevels();
    }
}

void LiveMode::setSuspended(bool isSuspended) {
    m_isSuspended = isSuspended;
    if (isSuspended)
        m_liveModeTimer->stop();
    else
        takeLamp();
}

void LiveMode::takeLamp() {
    if (!hasLamp())
        return;
    m_lamp.take(editedLight() ? previewSign()
                              : tr("LIVE PREVIEW: select a point or the task light"));
    m_liveModeTimer->start(m_intervals.keepAlive);
    m_shown.reset();
    showEditedLight();
}

void LiveMode::onLiveModeTimer() {
    m_lamp.keepAlive();
}

void LiveMode::taskLightTouched() {
    m_isTaskLightEdited = true;
    showEditedLight();
}

void LiveMode::onSectionChanged(int row) {
    // Who lets go of a point turns to no other light, and the lamp stays as it is.
    if (row >= 0)
        m_isTaskLightEdited = false;
    onPointsChanged();
}

void LiveMode::onPointsChanged() {
    if (!m_isTaskLightEdited)
        showEditedLight();
}

std::optional<AQTimePoint> LiveMode::editedLight() const {
    if (m_isTaskLightEdited)
        return m_data.taskLight();
    const AQTimePoint* selected = m_data.preview().find(m_data.selection().id());
    return selected ? std::optional(m_data.todaysLight({*selected}).front()) : std::nullopt;
}

void LiveMode::showEditedLight() {
    const auto light = editedLight();
    if (!hasLamp() || !light)
        return;
    const ChannelLevels levels = levelsFromLight(light->colorTemp, light->brightness);
    // One edit may be announced as several changes, and the same levels twice would only hold up
    // the next ones.
    const Levels shown{levels.cold, levels.warm};
    if (m_shown == shown)
        return;
    m_shown = shown;
    m_lamp.setSign(previewSign());
    m_lamp.show(levels);
    m_liveModeTimer->start(m_intervals.keepAlive);
}

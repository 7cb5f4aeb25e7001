#include "workflows/LiveMode.h"

#include "controls/window/AQSwitchButton.h"
#include "data/AQDataSource.h"
#include "data/ColorMapping.h"
#include "lamp/LampPreview.h"

#include <algorithm>

namespace {

const QString previewSign = QStringLiteral("LIVE PREVIEW");

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
    connect(&notifications, &NotificationCenter::sectionChanged, this, &LiveMode::onPointTouched);
    connect(&notifications, &NotificationCenter::cellChanged, this, &LiveMode::onPointTouched);
    connect(&notifications, &NotificationCenter::dataChanged, this, &LiveMode::onDataChanged);
    connect(&notifications, &NotificationCenter::dataLoaded, this, &LiveMode::onDataLoaded);
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
    m_lamp.take(editedLight() ? previewSign
                              : QStringLiteral("LIVE PREVIEW: select a point or the task light"));
    m_liveModeTimer->start(m_intervals.keepAlive);
    m_shown.reset();
    showEditedLight();
}

void LiveMode::onLiveModeTimer() {
    m_lamp.keepAlive();
}

void LiveMode::taskLightTouched() {
    m_editedLight = EditedLight::TaskLight;
    showEditedLight();
}

void LiveMode::onPointTouched(int row) {
    if (row < 0 || row >= m_data.sequence().count())
        return;
    m_editedLight = EditedLight::Point;
    m_editedRow = row;
    m_editedPoint = m_data.sequence().at(row);
    showEditedLight();
}

void LiveMode::onDataChanged() {
    if (m_editedLight != EditedLight::Point)
        return;
    // Rows have moved. The point is known again by its values; if it is gone, or has changed as
    // well, the lamp stays as it is until a light is touched, which the selection does on the next
    // turn.
    const auto& points = m_data.sequence().points();
    const auto found = std::ranges::find(points, m_editedPoint);
    if (found == points.end())
        m_editedLight = EditedLight::None;
    else
        m_editedRow = static_cast<int>(found - points.begin());
}

void LiveMode::onDataLoaded() {
    m_editedLight = EditedLight::None;
}

std::optional<AQTimePoint> LiveMode::editedLight() const {
    switch (m_editedLight) {
    case EditedLight::Point:
        return m_data.sequence().at(m_editedRow);
    case EditedLight::TaskLight:
        return m_data.taskLight();
    case EditedLight::None:
        break;
    }
    return std::nullopt;
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
    m_lamp.setSign(previewSign);
    m_lamp.show(levels);
    m_liveModeTimer->start(m_intervals.keepAlive);
}

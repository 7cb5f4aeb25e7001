#include "data/AQDataSource.h"

namespace {

std::vector<AQTimePoint> defaultPoints() {
    return {{{8, 30}, 1.0, 0.0},   {{10, 0}, 0.565, 0.8}, {{15, 0}, 0.5, 1.0},
            {{20, 0}, 0.565, 0.8}, {{21, 0}, 0.922, 0.5}, {{22, 30}, 1.0, 0.15},
            {{23, 30}, 1.0, 0.0}};
}

constexpr AQTimePoint defaultTaskLight{{0, 1, 0}, 0.5, 1.0};

} // namespace

AQDataSource::AQDataSource(NotificationCenter& notifications, DeviceInfoSource device)
    : m_notifications(notifications), m_device(std::move(device)), m_sequence(*this),
      m_selection(*this) {
    installDefaults();
}

std::optional<DeviceInfo> AQDataSource::device() const {
    return m_device ? m_device() : std::nullopt;
}

void AQDataSource::setIsDirty(bool isDirty) {
    if (isDirty == m_isDirty)
        return;
    m_isDirty = isDirty;
    Q_EMIT m_notifications.dataDirty(this);
}

void AQDataSource::loadDefaults() {
    installDefaults();
    announceReplacement(this);
}

void AQDataSource::announceReplacement(const QObject* sender, bool pointsReplaced) {
    if (pointsReplaced) {
        m_sequence.notifySelectionChange(-1, sender);
        m_sequence.notifyDataChange(sender, false);
    }
    Q_EMIT m_notifications.dataLoaded(sender);
}

void AQDataSource::installDefaults() {
    m_taskLight = defaultTaskLight;
    m_sequence.replacePoints(defaultPoints());
    m_isProgramMode = true;
}

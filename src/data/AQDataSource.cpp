#include "data/AQDataSource.h"

namespace {

std::vector<AQTimePoint> defaultPoints() {
    return {{{8, 30}, 1.0, 0.0},   {{10, 0}, 0.565, 0.8}, {{15, 0}, 0.5, 1.0},
            {{20, 0}, 0.565, 0.8}, {{21, 0}, 0.922, 0.5}, {{22, 30}, 1.0, 0.15},
            {{23, 30}, 1.0, 0.0}};
}

constexpr AQTimePoint defaultTaskLight{{0, 1, 0}, 0.5, 1.0};

} // namespace

AQDataSource::AQDataSource(NotificationCenter& notifications, DeviceInfoSource device,
                           DateSource date)
    : m_notifications(notifications), m_device(std::move(device)),
      m_date(date ? std::move(date) : &QDate::currentDate), m_sequence(*this), m_selection(*this) {
    installDefaults(defaultPoints());
    m_saved = contents();
    m_history.restart();
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

void AQDataSource::markDirtyOrClean() {
    const Contents present = contents();
    const auto isStored = [&](const std::optional<Contents>& stored) {
        return stored && areStoredAlike(present, *stored);
    };
    setIsDirty(!isStored(m_saved) && !isStored(m_loaded));
}

void AQDataSource::markSaved() {
    m_saved = contents();
    setIsDirty(false);
}

void AQDataSource::markUnsaved() {
    m_saved.reset();
    m_loaded.reset();
    setIsDirty(true);
}

void AQDataSource::markLoaded() {
    m_loaded = contents();
    setIsDirty(false);
}

void AQDataSource::markSent(const Contents& sent) {
    if (m_loaded && areStoredAlike(*m_loaded, sent))
        return;
    m_loaded.reset();
    markDirtyOrClean();
}

void AQDataSource::noteEdit(History::Value value) {
    m_history.noteEdit(value);
    markDirtyOrClean();
}

void AQDataSource::noteStep(const QString& name, std::optional<AQPointId> selected) {
    m_history.noteStep(name, selected);
    markDirtyOrClean();
}

void AQDataSource::loadDefaults() {
    loadDefaultsWith(defaultPoints());
}

void AQDataSource::loadDefaultsWith(std::vector<AQTimePoint> points) {
    installDefaults(std::move(points));
    announceReplacement(this);
}

void AQDataSource::announceReplacement(const QObject* sender, bool pointsReplaced) {
    if (pointsReplaced) {
        m_sequence.notifySelectionChange(-1, sender);
        m_sequence.notifyDataChange(sender, false);
    }
    Q_EMIT m_notifications.dataLoaded(sender);
}

void AQDataSource::restore(const Contents& contents, const ContentsChange& change,
                           AQPointId selected, bool isEdit) {
    using Kind = ContentsChange::Kind;
    // Points that are equal in value, as after a load of the same program, may be others.
    const bool arePointsChanged = contents.points != m_sequence.points() ||
                                  !haveSameIds(contents.points, m_sequence.points());
    const bool isAcclimationChanged = contents.acclimation != m_acclimation;
    m_taskLight = contents.taskLight;
    m_isProgramMode = contents.isProgramMode;
    m_acclimation = contents.acclimation;
    m_sequence.replacePoints(contents.points);
    markDirtyOrClean();
    const bool isOnePoint = change.kind != Kind::points && change.kind != Kind::several;
    if (arePointsChanged) {
        m_selection.moveTo(selected, isOnePoint);
        m_sequence.notifyDataChange(&m_history, false);
    }
    if (isAcclimationChanged)
        Q_EMIT m_notifications.acclimationChanged(&m_history);
    if (change.kind == Kind::taskLight)
        Q_EMIT m_notifications.taskLightChanged(&m_history);
    else if (change.kind == Kind::mode && isEdit)
        Q_EMIT m_notifications.programModeChanged(&m_history);
    else if (change.kind == Kind::mode || change.kind == Kind::several)
        Q_EMIT m_notifications.dataLoaded(&m_history);
}

void AQDataSource::installDefaults(std::vector<AQTimePoint> points) {
    m_taskLight = defaultTaskLight;
    m_sequence.replacePoints(std::move(points));
    m_isProgramMode = true;
    m_acclimation.reset();
}

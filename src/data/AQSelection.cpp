#include "data/AQSelection.h"

#include "data/AQDataSource.h"

#include <algorithm>

namespace {

constexpr int nothingAnnounced = -2;

} // namespace

int AQSelection::row() const {
    return m_document.sequence().rowOf(m_id);
}

void AQSelection::select(AQPointId id, const QObject* sender) {
    if (id != m_id)
        m_additions.clear();
    m_id = id;
    announce(sender);
}

void AQSelection::selectAdded(AQPointId id, const QObject* sender) {
    m_additions.push_back({id, m_id});
    m_id = id;
    announce(sender);
}

void AQSelection::follow() {
    if (m_id != AQPointId::none && row() < 0)
        m_id = successor();
}

void AQSelection::moveTo(AQPointId id, bool isNews) {
    m_id = id;
    if (isNews)
        m_announcedRow = nothingAnnounced;
}

AQPointId AQSelection::successor() const {
    const AQSequence& sequence = m_document.sequence();
    const auto addition = std::ranges::find(m_additions, m_id, &Addition::added);
    if (addition != m_additions.end() &&
        (addition->before == AQPointId::none || sequence.rowOf(addition->before) >= 0))
        return addition->before;
    return sequence.idAt(std::min(m_announcedRow, sequence.count() - 1));
}

void AQSelection::announceChange(const QObject* sender) {
    if (m_id != m_announcedId || row() != m_announcedRow)
        announce(sender);
}

void AQSelection::announce(const QObject* sender) {
    m_announcedId = m_id;
    m_announcedRow = row();
    Q_EMIT m_document.notifications().sectionChanged(m_announcedRow, sender);
}

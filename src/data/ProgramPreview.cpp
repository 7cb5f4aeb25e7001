#include "data/ProgramPreview.h"

#include "data/AQDataSource.h"

#include <algorithm>
#include <utility>

void ProgramPreview::show(std::vector<AQTimePoint> points) {
    m_points = std::move(points);
    Q_EMIT m_document.notifications().previewChanged();
}

void ProgramPreview::end() {
    if (std::exchange(m_points, std::nullopt))
        Q_EMIT m_document.notifications().previewChanged();
}

const std::vector<AQTimePoint>& ProgramPreview::points() const {
    return m_points ? *m_points : m_document.sequence().points();
}

const AQTimePoint* ProgramPreview::find(AQPointId id) const {
    const auto& shown = points();
    const auto found = std::ranges::find(shown, id, &AQTimePoint::id);
    return id == AQPointId::none || found == shown.end() ? nullptr : &*found;
}

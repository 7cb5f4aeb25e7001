#pragma once

#include "data/AQTimePoint.h"

#include <optional>
#include <vector>

class AQDataSource;

/// Points that are shown instead of the program while a person decides about a change of it. The
/// document does not change by it.
///
///     data.preview().show(ProgramChanges::shiftedDay(data.sequence().points(), 90));
///     data.preview().end();
///
/// Points of the program keep their ids in it, by which the selected one is found.
class ProgramPreview {
public:
    /// None, for `document`, which owns it.
    explicit ProgramPreview(AQDataSource& document) : m_document(document) {}

    /// Shows `points`, in ascending order of the minute, until the end. Posts previewChanged.
    void show(std::vector<AQTimePoint> points);
    /// Posts previewChanged if there was a preview.
    void end();
    bool isShown() const { return m_points.has_value(); }

    /// What is to be shown: those of the preview or else of the program. Valid until either
    /// changes.
    const std::vector<AQTimePoint>& points() const;
    /// The one of them that has this id, null for none.
    const AQTimePoint* find(AQPointId id) const;

private:
    AQDataSource& m_document;
    std::optional<std::vector<AQTimePoint>> m_points;
};

#pragma once

#include "data/AQTimePoint.h"

#include <vector>

class AQDataSource;
class QObject;

/// Which point of the light program is selected: one value with one owner, the document. Curve,
/// table, keyboard focus and live mode show it or ask for it, and none keeps one of its own.
///
/// It holds the point and not its row, so that it stays right when points change places. Each
/// change, and each time the person turns to a point, posts sectionChanged with the row it has
/// then.
///
/// Deleting points that were just added goes back the way they came: a point remembers which one
/// was selected when it was added, until the person selects another.
class AQSelection {
public:
    /// Nothing, in the program of `document`, which owns it.
    explicit AQSelection(AQDataSource& document) : m_document(document) {}

    /// `none` when nothing is selected.
    AQPointId id() const { return m_id; }
    /// -1 when nothing is selected.
    int row() const;

    /// The person turns to a point, perhaps once more, or lets go (`none`). Posts sectionChanged.
    void select(AQPointId id, const QObject* sender);
    /// The same for a point that was added for the person, who may take it back.
    void selectAdded(AQPointId id, const QObject* sender);

    // For the sequence, around each dataChanged.

    /// When the selected point is gone, selects the one that was selected when it was added, else
    /// the one that has its row now, else the last one. Posts nothing.
    void follow();
    /// The history goes to a point. Posts nothing, but the next announceChange() does, with
    /// `isNews` even for the point that was selected.
    void moveTo(AQPointId id, bool isNews);
    /// Posts sectionChanged when the selected point or its row is another than was posted last.
    void announceChange(const QObject* sender);

private:
    struct Addition {
        AQPointId added;
        AQPointId before; ///< what was selected then
    };

    AQPointId successor() const;
    void announce(const QObject* sender);

    AQDataSource& m_document;
    AQPointId m_id = AQPointId::none;
    AQPointId m_announcedId = AQPointId::none;
    int m_announcedRow = -1;
    std::vector<Addition> m_additions; ///< since the person last selected another point
};

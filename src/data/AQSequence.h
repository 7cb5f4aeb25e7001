#pragma once

#include "data/AQTimePoint.h"

#include <QObject>

#include <vector>

class AQDataSource;
class History;
class NotificationCenter;
class ProgramPreview;

/// The daily light program: time points in ascending order of their minute of the day. Of a file
/// whose points are in another order, the first change of a time puts them in order.
///
/// A point has a row, its place in that order, and an id, which stays when the row does not. Who
/// keeps a point for longer than a call keeps its id:
///
///     const AQPointId id = sequence.idAt(row);
///     sequence.setTime(row, {12, 0}, this);            // may reorder
///     sequence.updateWithRow(sequence.rowOf(id), AQSequence::Brightness{0.8}, this);
///
/// Every change by a person goes through these operations, which keep the order, mark the document
/// dirty and post the notifications; dataDirty comes first, and only when the document was clean.
/// Rows out of range are ignored. `sender` (may be null) is passed on as the notification's object.
/// Owned by the document and never replaced, so observers may keep a reference.
class AQSequence : public QObject {
    Q_OBJECT

public:
    struct ColorTemp {
        double fraction; ///< 0.0 warmest .. 1.0 coldest; stored as it is
    };
    struct Brightness {
        double fraction; ///< 0.0 dark .. 1.0 full; stored as it is
    };
    static constexpr int defaultPointLimit = 20;

    /// Empty, for `document`, which owns it.
    explicit AQSequence(AQDataSource& document);

    int count() const { return static_cast<int>(m_data.size()); }
    const std::vector<AQTimePoint>& points() const { return m_data; }
    /// `row` must be valid.
    const AQTimePoint& at(int row) const;
    /// `none` outside the program.
    AQPointId idAt(int row) const { return isRow(row) ? at(row).id : AQPointId::none; }
    /// -1 for a point that is not, or no longer, in the program.
    int rowOf(AQPointId id) const;
    /// Where its changes are announced.
    NotificationCenter& notifications() const;
    /// Where its changes are noted.
    History& history() const;
    /// What is to be shown instead of it for a while.
    const ProgramPreview& preview() const;
    /// The point limit of the connected controller, 20 without one or while it has not told.
    int pointLimit() const;
    /// True while `count()` is below `pointLimit()`. Insertion itself never refuses.
    bool hasSpace() const { return count() < pointLimit(); }

    /// Posts cellChanged (column 1).
    void updateWithRow(int row, ColorTemp value, const QObject* sender);
    /// Posts cellChanged twice: column 1, whose swatch depends on brightness, then column 2.
    void updateWithRow(int row, Brightness value, const QObject* sender);
    /// Returns -1 when the point stayed in place (cellChanged, column 0), else its new row after a
    /// reorder (dataChanged). An invalid row or time returns -1 and changes nothing.
    int setTime(int row, AQTime time, const QObject* sender);
    /// Inserts a point (colour temperature 0.5, intensity 0.5) half way to the next one, or at the
    /// latest free minute of the day. Returns its row. Posts dataChanged.
    int addNewAfter(int row, const QObject* sender);
    /// Inserts `point` behind those of its minute and gives it an id. Returns its row. Posts
    /// dataChanged.
    int add(const AQTimePoint& point, const QObject* sender);
    /// Posts dataChanged.
    void deleteWithRow(int row, const QObject* sender);
    /// Takes `points`, in ascending order of the minute, as the whole program; those that bear an
    /// id keep it. One step of the history of this name, even when a gesture is going on; none
    /// when the points are the same. Posts dataChanged.
    void replaceAll(std::vector<AQTimePoint> points, const QString& stepName,
                    const QObject* sender);
    /// True when another point than `exceptRow` has this hour and minute.
    bool hasPointAt(AQTime time, int exceptRow) const;

    /// Posts dataChanged, after marking the document dirty when `dirty`; then sectionChanged if the
    /// selection was moved by it.
    void notifyDataChange(const QObject* sender, bool dirty);
    /// Selects the point in this row, none for -1, and posts sectionChanged; changes no data. A row
    /// behind the last is ignored.
    void notifySelectionChange(int row, const QObject* sender);

    /// For readers of whole programs: takes the points as they come, posts nothing, marks nothing.
    /// Their times must be valid. Points that bear an id keep it, as those that come back to the
    /// program do; the others get one.
    void replacePoints(std::vector<AQTimePoint> points);

private:
    bool isRow(int row) const { return row >= 0 && row < count(); }
    int minuteAt(int row) const { return at(row).time.minuteOfDay(); }
    void insert(int row, int minuteOfDay);
    void giveId(AQTimePoint& point);
    void notifyCellChange(int row, int column, const QObject* sender);

    AQDataSource& m_document;
    std::vector<AQTimePoint> m_data;
    std::uint32_t m_lastId = 0; ///< ids are never used again
};

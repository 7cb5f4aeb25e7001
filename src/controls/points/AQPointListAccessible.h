#pragma once

#include "data/AQTimePoint.h"

#include <QAccessibleWidget>

#include <unordered_map>

class AQPointList;
class AQPointRow;

/// The list of points for assistive programs: an item for each row, named after its point and
/// place, which holds the three editors. The items are there whether or not the rows exist as
/// widgets, so that a reader may keep those it once asked for; the editors are made when it asks
/// for them.
class AQPointListAccessible : public QAccessibleWidget {
public:
    explicit AQPointListAccessible(AQPointList& list);
    ~AQPointListAccessible() override;

    // What `list` has to tell; costs nothing while no assistive program runs.

    /// The rows that were asked for and have other names now.
    static void tellNames(AQPointList& list);
    /// The row that is selected now.
    static void tellSelection(AQPointList& list);

    /// What holds the editors of `row`; null once its list has let it go.
    static QAccessibleInterface* itemOf(const AQPointRow& row);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

private:
    class Item;

    AQPointList* list() const;
    QAccessibleInterface* item(AQPointId id) const;
    static const AQPointListAccessible* of(AQPointList* list);

    mutable std::unordered_map<AQPointId, Item*> m_items; ///< that were asked for
};

#pragma once

#include "data/AQTimePoint.h"

#include <QAccessibleWidget>

#include <unordered_map>

class AQPointList;
class AQPointRow;
class AQPointRowAccessible;

/// The list of points for assistive programs: all of its rows, whether or not they exist as
/// widgets, so that a reader may keep the rows it once asked for.
class AQPointListAccessible : public QAccessibleWidget {
public:
    explicit AQPointListAccessible(AQPointList& list);
    ~AQPointListAccessible() override;

    /// Makes QAccessible use this; any number of times.
    static void install();

    // What `list` has to tell; costs nothing while no assistive program runs.

    /// The rows that were asked for and have other names now.
    static void tellNames(AQPointList& list);
    /// The row that is selected now.
    static void tellSelection(AQPointList& list);

    /// What holds the editors of `row`; null once its list has let it go.
    static QAccessibleInterface* rowOf(const AQPointRow& row);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

private:
    static AQPointListAccessible* of(AQPointList* list);
    AQPointList* list() const;
    QAccessibleInterface* row(AQPointId id) const;
    void forgetPointsThatWent() const;

    mutable std::unordered_map<AQPointId, AQPointRowAccessible*> m_rows; ///< that were asked for
};

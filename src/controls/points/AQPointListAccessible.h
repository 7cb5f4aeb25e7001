#pragma once

#include <QAccessibleWidget>

class AQPointList;
class AQPointRow;

/// The list of points for assistive programs: all of its rows, whether or not they exist as
/// widgets.
class AQPointListAccessible : public QAccessibleWidget {
public:
    explicit AQPointListAccessible(AQPointList& list);

    /// Makes QAccessible use this and AQPointRowAccessible; any number of times.
    static void install();

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

private:
    AQPointList* list() const;
};

/// A row for assistive programs: an item of the list that holds its three editors.
class AQPointRowAccessible : public QAccessibleWidget {
public:
    explicit AQPointRowAccessible(AQPointRow& row);

    QAccessibleInterface* parent() const override;
    QAccessible::State state() const override;
};

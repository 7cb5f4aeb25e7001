#pragma once

#include "data/AQTimePoint.h"

#include <QAccessibleInterface>
#include <QPointer>

class AQPointList;

/// A row of the list of points for assistive programs: an item that is named after its point and
/// place, and holds the three editors. These are made when they are asked for.
class AQPointRowAccessible : public QAccessibleInterface {
public:
    AQPointRowAccessible(AQPointList& list, AQPointId id) : m_list(&list), m_id(id) {}

    /// True when the name is another than at the last call.
    bool takeNewName();

    bool isValid() const override { return row() >= 0; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;

    AQPointId id() const { return m_id; }

private:
    int row() const;

    const QPointer<AQPointList> m_list;
    const AQPointId m_id;
    QString m_toldName;
};

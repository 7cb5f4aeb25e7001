#pragma once

#include <QObject>
#include <QString>

class AQDataSource;
class AQPointList;
struct AQTimePoint;
class QAbstractButton;
class QAction;

/// Adding and deleting points, with the buttons and menu items for it, and when the list of points
/// can be used.
class PointTable : public QObject {
    Q_OBJECT

public:
    struct Outlets {
        AQPointList& tableView;
        QAbstractButton& bttnTableItemAdd;
        QAbstractButton& bttnTableItemDelete;
        QAction& menuitemAddPoint;
        QAction& menuitemDeletePoint;
    };

    /// All must outlive this.
    PointTable(AQDataSource& data, Outlets outlets, QObject* parent = nullptr);

    /// The editing area: the list and the two buttons.
    void setEditingEnabled(bool enabled);

    /// Adds a point after the selected one, if any, and selects it.
    void onTableItemAdd();
    /// Adds this point, or one at the nearest free minute with the light that the program has
    /// there, and selects it.
    void addAt(const AQTimePoint& point);
    /// Deletes the selected point.
    void onTableItemDelete();

Q_SIGNALS:
    /// No point can be added, for this reason.
    void refused(const QString& reason);

private:
    bool canAdd();
    QString limitReason() const;
    void updateButtons();

    AQDataSource& m_data;
    Outlets m_outlets;
    bool m_editingEnabled = true;
};

#pragma once

#include <QObject>

class AQDataSource;
class AQPointList;
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
    /// Deletes the selected point.
    void onTableItemDelete();

private:
    void updateButtons();

    AQDataSource& m_data;
    Outlets m_outlets;
    bool m_editingEnabled = true;
};

#pragma once

#include "controls/AQValueDelegate.h"

#include <QObject>

#include <array>
#include <vector>

class AQDataSource;
class PointTableModel;
class QAbstractButton;
class QAction;
class QTableView;

/// The light program as a table of editing controls, with the buttons and menu items that add and
/// delete points.
///
/// The controls of a row are made when the row comes and kept while it stays; they take their
/// values from the model. The selection is shared with the curve through sectionChanged.
class PointTable : public QObject, public AQValueDelegate {
    Q_OBJECT

public:
    struct Outlets {
        QTableView& tableView;
        QAbstractButton& bttnTableItemAdd;
        QAbstractButton& bttnTableItemDelete;
        QAction& menuitemAddPoint;
        QAction& menuitemDeletePoint;
    };

    /// All must outlive this.
    PointTable(AQDataSource& data, Outlets outlets, QObject* parent = nullptr);
    ~PointTable() override;

    /// -1 when no row is selected.
    int selectedRow() const;
    /// The editing area: the cell controls and the two buttons.
    void setEditingEnabled(bool enabled);

    void onTableItemAdd();
    void onTableItemDelete();

    void aqValueDidChange(AQValueView& view, const QVariant& value) override;
    bool aqValueShouldChange(AQValueView& view, const QVariant& value) override;
    void aqGotFocus(AQValueView& view) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using CellControls = std::array<AQValueView*, 3>;
    struct Cell {
        int row = -1;
        int column = -1;
    };

    Cell cellOf(const AQValueView& view) const;
    void syncRows();
    CellControls makeRow(int row);
    void insertIntoTabOrder(int row);
    void fitToFont();
    void refresh(int row, int column);
    void setTime(int row, const QVariant& value);
    void select(int row);
    void selectOnNextTurn(int row);
    void moveFocus(int fromRow, int toRow);
    void onSectionChanged(int row, const QObject* sender);
    void onSelectionDidChange();
    void updateButtons();

    AQDataSource& m_data;
    Outlets m_outlets;
    PointTableModel* m_model;
    std::vector<CellControls> m_rows;
    bool m_editingEnabled = true;
    /// Set while the controls take values from the model, whose echo is no edit.
    bool m_refreshing = false;
    /// Set while the selection follows somebody else's, whose echo is no news.
    bool m_following = false;
};

#pragma once

#include <QTableView>

/// A table whose cells are controls, each of which says in its accessible name where it stands.
///
/// To screen readers it is a group of these controls. As a table it would show its cells' texts
/// only: no control, no focus and nothing to edit.
class AQControlTable : public QTableView {
    Q_OBJECT

public:
    explicit AQControlTable(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
};

#pragma once

#include <QAbstractTableModel>

class AQDataSource;

/// The light program as a table: one row a point, columns time, colour temperature, intensity.
///
/// Thin: it asks the sequence for every value. `Qt::DisplayRole` is the value as text,
/// `Qt::EditRole` the value itself: an AQTime; the pair (colour temperature, intensity) as a
/// QVariantList; a double. When points come or go, rows are added or removed at the end and all
/// values reported as changed, so that what stands in the cells is reused.
class PointTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// `data` must outlive the model.
    explicit PointTableModel(AQDataSource& data, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void onDataChanged();
    void onCellChanged(int row, int column);

    AQDataSource& m_document;
    int m_rows;
};

#pragma once

#include <QHeaderView>

/// The titles over a table's columns: quiet, on the table's own ground and ruled off below.
class AQTableHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit AQTableHeader(QWidget* parent = nullptr);

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
};

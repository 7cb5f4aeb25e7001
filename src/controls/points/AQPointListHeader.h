#pragma once

#include <QWidget>

/// The titles over the columns of a point list: quiet, on the list's own ground and ruled off
/// below.
class AQPointListHeader : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// The width of the first column; the others share `rest`, and what is left is above a scroll
    /// bar.
    void setColumns(int timeWidth, int rest);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_timeWidth = 0;
    int m_rest = 0;
};

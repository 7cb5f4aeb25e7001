#pragma once

#include <QScrollBar>

/// An upright scroll bar: a plain handle on the ground of what it scrolls.
class AQScrollBar : public QScrollBar {
    Q_OBJECT

public:
    explicit AQScrollBar(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

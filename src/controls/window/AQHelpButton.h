#pragma once

#include "controls/window/EnterClicks.h"

#include <QPushButton>

/// A small round "?" that opens a help text; a push button to keyboards and screen readers.
class AQHelpButton : public EnterClicks<QPushButton> {
    Q_OBJECT

public:
    explicit AQHelpButton(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

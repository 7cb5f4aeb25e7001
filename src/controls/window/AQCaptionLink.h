#pragma once

#include "controls/window/EnterClicks.h"

#include <QPushButton>

/// A command that stands as a text in the curve's caption, in its small letters and in the accent;
/// underlined under the pointer.
class AQCaptionLink : public EnterClicks<QPushButton> {
    Q_OBJECT

public:
    explicit AQCaptionLink(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

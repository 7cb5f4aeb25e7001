#pragma once

#include "controls/window/AQBarLabel.h"

/// The sign that the lamp shows a preview: white words on the accent, hidden while there are none.
class AQPreviewSign : public AQBarLabel {
    Q_OBJECT

public:
    explicit AQPreviewSign(QWidget* parent);

    /// An empty text hides the sign. Screen readers are told of a new one.
    void setSign(const QString& sign);

protected:
    void paintEvent(QPaintEvent* event) override;
};

#pragma once

#include "controls/time/AQTimeValueView.h"

/// Edits how long the task light stays on, minutes and seconds. An AQTime holds it: hour x 60 +
/// minute minutes (0..255) and the seconds.
class AQTimeDurationEdit : public AQTimeValueView {
    Q_OBJECT

public:
    explicit AQTimeDurationEdit(QWidget* parent = nullptr);
};

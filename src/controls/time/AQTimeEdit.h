#pragma once

#include "controls/time/AQTimeValueView.h"

/// Edits a time of day, hours and minutes. The seconds of what the person enters are 0.
class AQTimeEdit : public AQTimeValueView {
    Q_OBJECT

public:
    explicit AQTimeEdit(QWidget* parent = nullptr);
};

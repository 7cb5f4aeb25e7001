#include "controls/time/AQTimeDurationEdit.h"

#include "controls/time/DurationFormat.h"

AQTimeDurationEdit::AQTimeDurationEdit(QWidget* parent)
    : AQTimeValueView(std::make_unique<DurationFormat>(), parent) {}

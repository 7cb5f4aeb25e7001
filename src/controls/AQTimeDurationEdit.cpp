#include "controls/AQTimeDurationEdit.h"

#include "controls/DurationFormat.h"

AQTimeDurationEdit::AQTimeDurationEdit(QWidget* parent)
    : AQTimeValueView(std::make_unique<DurationFormat>(), parent) {}

#include "controls/time/AQTimeEdit.h"

#include "controls/time/ClockFormat.h"

AQTimeEdit::AQTimeEdit(QWidget* parent) : AQTimeValueView(std::make_unique<ClockFormat>(), parent) {
    setRefusalText(tr("Another point already has the time %1."));
}

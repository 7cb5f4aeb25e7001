#pragma once

#include <QString>

/// A time of day as axes and tags show it: "07:05". Hour 24, the next midnight, reads "00".
QString timeText(int hour, int minute);

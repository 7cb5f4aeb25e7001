#include "data/TimeText.h"

QString timeText(int hour, int minute) {
    return QStringLiteral("%1:%2")
        .arg(hour % 24, 2, 10, QLatin1Char('0'))
        .arg(minute, 2, 10, QLatin1Char('0'));
}

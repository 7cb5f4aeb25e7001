#include "lamp/ComputerClock.h"

ComputerClock ComputerClock::system() {
    const auto zone = [] {
        const QTimeZone named = QTimeZone::systemTimeZone();
        // A computer whose zone has no name known to Qt still has an offset.
        return named.isValid() ? named : QTimeZone(QDateTime::currentDateTime().offsetFromUtc());
    };
    return {[] { return QDateTime::currentDateTimeUtc(); }, zone};
}

#include "data/DocumentContents.h"

namespace {

bool isStoredAlike(const AQTimePoint& some, const AQTimePoint& other) {
    return some.time == other.time &&
           byteFromFraction(some.colorTemp) == byteFromFraction(other.colorTemp) &&
           byteFromFraction(some.brightness) == byteFromFraction(other.brightness);
}

} // namespace

bool areStoredAlike(const DocumentContents& some, const DocumentContents& others) {
    return some.isProgramMode == others.isProgramMode && some.acclimation == others.acclimation &&
           isStoredAlike(some.taskLight, others.taskLight) &&
           std::ranges::equal(some.points, others.points, isStoredAlike);
}

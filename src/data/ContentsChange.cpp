#include "data/ContentsChange.h"

#include "data/TimeText.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace {

using Kind = ContentsChange::Kind;

QString clock(const AQTime& time) {
    return timeText(time.hour, time.minute);
}

Kind kindOf(const AQTimePoint& before, const AQTimePoint& after) {
    const bool isMoved = before.time != after.time;
    const bool isColored = before.colorTemp != after.colorTemp;
    const bool isDimmed = before.brightness != after.brightness;
    if (isMoved + isColored + isDimmed != 1)
        return Kind::point;
    return isMoved ? Kind::time : isColored ? Kind::colorTemp : Kind::brightness;
}

ContentsChange ofPoints(const std::vector<AQTimePoint>& before,
                        const std::vector<AQTimePoint>& after) {
    std::unordered_map<AQPointId, const AQTimePoint*> former;
    for (const AQTimePoint& point : before)
        former.emplace(point.id, &point);
    ContentsChange change;
    int changes = 0;
    for (const AQTimePoint& point : after) {
        const auto known = former.extract(point.id);
        if (known && *known.mapped() == point)
            continue;
        ++changes;
        change.kind = known ? kindOf(*known.mapped(), point) : Kind::added;
        change.after = point;
        if (known)
            change.before = *known.mapped();
    }
    for (const auto& [id, point] : former) {
        ++changes;
        change.kind = Kind::deleted;
        change.before = *point;
    }
    if (changes > 1)
        change.kind = Kind::points;
    return change;
}

} // namespace

ContentsChange ContentsChange::between(const DocumentContents& before,
                                       const DocumentContents& after) {
    ContentsChange change = ofPoints(before.points, after.points);
    const bool isLightChanged = before.taskLight != after.taskLight;
    const bool isModeChanged = before.isProgramMode != after.isProgramMode;
    const bool isAcclimationChanged = before.acclimation != after.acclimation;
    if ((change.kind != Kind::none) + isLightChanged + isModeChanged + isAcclimationChanged > 1)
        change.kind = Kind::several;
    else if (isLightChanged)
        change.kind = Kind::taskLight;
    else if (isModeChanged)
        change.kind = Kind::mode;
    else if (isAcclimationChanged)
        change.kind = !before.acclimation  ? Kind::acclimationBegun
                      : !after.acclimation ? Kind::acclimationEnded
                                           : Kind::acclimationChanged;
    change.isProgramMode = after.isProgramMode;
    return change;
}

QString ContentsChange::name() const {
    switch (kind) {
    case Kind::time:
        return tr("Move %1 to %2").arg(clock(before.time), clock(after.time));
    case Kind::colorTemp:
        return tr("Colour Temperature at %1").arg(clock(after.time));
    case Kind::brightness:
        return tr("Intensity at %1").arg(clock(after.time));
    case Kind::point:
        return tr("Edit %1").arg(clock(before.time));
    case Kind::added:
        return tr("Add %1").arg(clock(after.time));
    case Kind::deleted:
        return tr("Delete %1").arg(clock(before.time));
    case Kind::taskLight:
        return tr("Task Light");
    case Kind::mode:
        return isProgramMode ? tr("Switch to Program") : tr("Switch to Analog Input");
    case Kind::acclimationBegun:
        return tr("Acclimate");
    case Kind::acclimationChanged:
        return tr("Change Acclimation");
    case Kind::acclimationEnded:
        return tr("End Acclimation");
    case Kind::points:
        return tr("Edit Program");
    case Kind::several:
    case Kind::none:
        break;
    }
    return tr("Change");
}

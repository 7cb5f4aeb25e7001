#include "lamp/HeldDay.h"

#include "data/AQDataSource.h"
#include "data/DeviceProgramImage.h"
#include "lamp/ProgramComparison.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace {

int lightIn(const DeviceImage& image) {
    int sum = 0;
    for (const auto& channel : image.channels)
        for (const SequenceEntry& entry : channel)
            sum += entry.level;
    return sum;
}

} // namespace

std::optional<int> heldAcclimationDay(const AQDataSource& data, const StoredProgram& stored) {
    const auto& acclimation = data.acclimation();
    if (!acclimation)
        return {};
    const auto channels = static_cast<int>(stored.image.channels.size());
    const auto imageOn = [&](int day) {
        auto contents = data.contents();
        contents.points = lightOn(acclimation->firstDay.addDays(day - 1),
                                  std::move(contents.points), acclimation);
        return DeviceProgramImage::imageOf(contents, channels);
    };
    // No day has less light than the one before it, so there is one that can be it.
    std::vector<int> days(static_cast<std::size_t>(acclimation->dayOn(data.today())));
    std::iota(days.begin(), days.end(), 1);
    const auto later = std::ranges::upper_bound(days, lightIn(stored.image), {},
                                                [&](int day) { return lightIn(imageOn(day)); });
    const auto day = static_cast<int>(later - days.begin());
    return day > 0 && imageOn(day).channels == stored.image.channels ? std::optional(day)
                                                                     : std::nullopt;
}

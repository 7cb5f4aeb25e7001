#include "data/DeviceProgramImage.h"

#include "data/AQDataSource.h"
#include "data/ColorMapping.h"
#include "yprotocoll/YAnswers.h"
#include "yprotocoll/YCommands.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

using Entries = std::vector<SequenceEntry>;
using Answers = std::vector<std::shared_ptr<const YAnswer>>;

constexpr int twoChannels = 2;
constexpr int fourChannels = 4;
/// The task light among the channels is scaled to the highest level, points to the highest byte.
constexpr double taskLightScale = 254.0;

bool isKnownChannelCount(int channels) {
    return channels == twoChannels || channels >= fourChannels;
}

std::uint8_t levelOf(const AQTimePoint& point, int channel) {
    switch (channel) {
    case 0:
        return levelsFromLight(point.colorTemp, point.brightness).cold;
    case 1:
        return levelsFromLight(point.colorTemp, point.brightness).warm;
    case 2:
        return byteFromFraction(point.colorTemp);
    case 3:
        return byteFromFraction(point.brightness);
    default:
        return 0;
    }
}

/// The program's entries of one channel. A single entry would give the controller nothing to fade
/// between, so it is sent as the same level from the start to the end of the day.
Entries programEntries(const AQSequence& sequence, int channel) {
    Entries entries;
    for (const AQTimePoint& point : sequence.points()) {
        Q_ASSERT(point.time.isValid());
        entries.push_back({static_cast<std::uint8_t>(point.time.hour),
                           static_cast<std::uint8_t>(point.time.minute), levelOf(point, channel)});
    }
    if (entries.size() == 1) {
        const std::uint8_t level = entries.front().level;
        entries = {{0, 0, level}, {23, 59, level}};
    }
    return entries;
}

void foldInTaskLight(Entries& entries, int channel, const AQTimePoint& taskLight) {
    const double value = channel % 2 == 0 ? taskLight.colorTemp : taskLight.brightness;
    const double limited = value > 0.0 ? std::min(value, 1.0) : 0.0;
    const auto level = static_cast<std::uint8_t>(std::lround(limited * taskLightScale));
    if (channel < 2 && !entries.empty())
        entries.front().level = level;
    else if (channel >= 2 && entries.empty())
        entries.push_back({0, 0, level});
}

double taskLightFraction(std::uint8_t level) {
    return std::min(level / taskLightScale, 1.0);
}

/// What the answers of a load hold.
struct Loaded {
    std::vector<AQTimePoint> points;
    AQTimePoint taskLight;
};

/// The entries of each channel, or none when the answers are not those of a load.
std::optional<std::vector<Entries>> channelEntries(const Answers& answers) {
    std::vector<Entries> channels;
    std::vector<std::uint8_t> names;
    for (std::size_t index = 1; index < answers.size(); ++index) {
        const auto* answer = dynamic_cast<const AnswerSequenceData*>(answers[index].get());
        if (!answer)
            return {};
        names.push_back(answer->channel);
        channels.push_back(answer->seqData);
    }
    // Some controllers name one and the same channel in all their answers.
    const bool allTheSame = std::ranges::adjacent_find(names, std::not_equal_to{}) == names.end();
    for (std::size_t index = 0; index < names.size(); ++index)
        if (!allTheSame && names[index] != index)
            return {};
    // Two channels together describe a point.
    for (std::size_t even = 0; even + 1 < channels.size(); even += 2)
        if (channels[even].size() != channels[even + 1].size())
            return {};
    return channels;
}

/// The points at the times of `times`, their light being that of its entry and the partner's.
template <class LightOf>
bool makePoints(const Entries& times, const Entries& partner, LightOf lightOf,
                std::vector<AQTimePoint>& points) {
    for (std::size_t index = 0; index < times.size(); ++index) {
        const AQTime time{times[index].hour, times[index].minute, 0};
        if (!time.isValid())
            return false;
        const Light light = lightOf(times[index].level, partner[index].level);
        points.push_back({time, light.colorTemp, light.brightness});
    }
    return true;
}

void setLight(AQTimePoint& point, Light light) {
    point.colorTemp = light.colorTemp;
    point.brightness = light.brightness;
}

bool readTwoChannels(const std::vector<Entries>& channels, const AnswerTaskMode& taskMode,
                     Loaded& loaded) {
    setLight(loaded.taskLight, lightFromLevels(taskMode.levels[0].raw, taskMode.levels[1].raw));
    return makePoints(channels[0], channels[1], lightFromLevels, loaded.points);
}

bool readFourChannels(const std::vector<Entries>& channels, Loaded& loaded) {
    const auto taskLightOf = [](const SequenceEntry& colorTemp, const SequenceEntry& brightness) {
        return Light{taskLightFraction(colorTemp.level), taskLightFraction(brightness.level)};
    };
    // An empty program was sent with the task light alone in these channels.
    if (channels[2].size() == 1) {
        setLight(loaded.taskLight, taskLightOf(channels[2][0], channels[3][0]));
        return true;
    }
    setLight(loaded.taskLight,
             channels[0].empty() ? Light{0.5, 1.0} : taskLightOf(channels[0][0], channels[1][0]));
    return makePoints(
        channels[2], channels[3],
        [](std::uint8_t colorTemp, std::uint8_t brightness) {
            return Light{fractionFromByte(colorTemp), fractionFromByte(brightness)};
        },
        loaded.points);
}

/// The duration of the task light. The hours are counted without the minutes that the seconds carry
/// over, which therefore may not exceed the controller's minutes; none then. The application itself
/// sends no carry.
std::optional<AQTime> durationOf(const AnswerTaskMode& taskMode) {
    const int minute = (taskMode.minutes + taskMode.seconds / 60) % 60;
    const int wholeHours = taskMode.minutes - minute;
    if (wholeHours < 0)
        return {};
    return AQTime{(wholeHours / 60) % 24, minute, taskMode.seconds % 60};
}

std::optional<Loaded> readAnswers(const Answers& answers, int channelCount) {
    const int expected = 1 + std::min(channelCount, fourChannels);
    if (std::cmp_not_equal(answers.size(), expected))
        return {};
    const auto* taskMode = dynamic_cast<const AnswerTaskMode*>(answers[0].get());
    const auto channels = channelEntries(answers);
    if (!taskMode || !channels)
        return {};
    const auto duration = durationOf(*taskMode);
    if (!duration)
        return {};
    Loaded loaded;
    loaded.taskLight.time = *duration;
    const bool ok = channelCount == twoChannels ? readTwoChannels(*channels, *taskMode, loaded)
                                                : readFourChannels(*channels, loaded);
    return ok ? std::optional(std::move(loaded)) : std::nullopt;
}

} // namespace

TransferResult DeviceProgramImage::checkLoad(const std::optional<DeviceInfo>& device) {
    if (!device || !device->channelCount)
        return TransferResult::errorNoDevice{};
    if (!isKnownChannelCount(*device->channelCount))
        return TransferResult::errorWrongChannelCount{*device->channelCount};
    return TransferResult::ok{};
}

TransferResult DeviceProgramImage::checkSend(const AQDataSource& document,
                                             const std::optional<DeviceInfo>& device) {
    const TransferResult result = checkLoad(device);
    if (!result.isOk())
        return result;
    const int points = document.sequence().count();
    const int maximum = device->pointLimit(0);
    if (points > maximum)
        return TransferResult::errorTooManyPoints{points, maximum};
    return TransferResult::ok{};
}

std::vector<YCommand> DeviceProgramImage::loadCommands(const DeviceInfo& device) {
    std::vector<YCommand> commands{CmdGetTaskMode()};
    for (int channel = 0; channel < std::min(*device.channelCount, fourChannels); ++channel)
        commands.push_back(CmdGetSequenceData(channel, device));
    return commands;
}

std::vector<YCommand> DeviceProgramImage::sendCommands(const AQDataSource& document,
                                                       const DeviceInfo& device) {
    const AQTimePoint& taskLight = document.taskLight();
    std::vector<YCommand> commands;
    for (int channel = 0; channel < *device.channelCount; ++channel) {
        Entries entries = programEntries(document.sequence(), channel);
        if (*device.channelCount >= fourChannels)
            foldInTaskLight(entries, channel, taskLight);
        commands.push_back(CmdSetSequenceData(channel, entries, device));
    }
    const ChannelLevels levels = levelsFromLight(taskLight.colorTemp, taskLight.brightness);
    const AQTime& duration = taskLight.time;
    commands.push_back(
        CmdSetTaskMode(duration.hour, duration.minute, duration.second, levels.cold, levels.warm));
    return commands;
}

TransferResult DeviceProgramImage::apply(const Answers& answers, const DeviceInfo& device,
                                         AQDataSource& document) {
    const TransferResult check = checkLoad(device);
    if (!check.isOk())
        return check;
    auto loaded = readAnswers(answers, *device.channelCount);
    if (!loaded)
        return TransferResult::errorInvalidData{};
    document.sequence().replacePoints(std::move(loaded->points));
    document.setTaskLight(loaded->taskLight);
    return TransferResult::ok{};
}

#include "data/DeviceProgramImage.h"

#include "data/AQDataSource.h"
#include "data/ColorMapping.h"
#include "yprotocoll/YAnswers.h"
#include "yprotocoll/YCommands.h"

#include <algorithm>
#include <cmath>
#include <span>
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
Entries programEntries(std::span<const AQTimePoint> points, int channel) {
    Entries entries;
    for (const AQTimePoint& point : points) {
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
    return channels;
}

/// Two channels together describe a point.
bool arePaired(const std::vector<Entries>& channels) {
    return channels[0].size() == channels[1].size() &&
           (channels.size() < fourChannels || channels[2].size() == channels[3].size());
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

bool readTwoChannels(const DeviceImage& image, DocumentContents& contents) {
    setLight(contents.taskLight, lightFromLevels(image.taskMode.cold, image.taskMode.warm));
    return makePoints(image.channels[0], image.channels[1], lightFromLevels, contents.points);
}

bool readFourChannels(const std::vector<Entries>& channels, DocumentContents& contents) {
    const auto taskLightOf = [](const SequenceEntry& colorTemp, const SequenceEntry& brightness) {
        return Light{taskLightFraction(colorTemp.level), taskLightFraction(brightness.level)};
    };
    // An empty program was sent with the task light alone in these channels.
    if (channels[2].size() == 1) {
        setLight(contents.taskLight, taskLightOf(channels[2][0], channels[3][0]));
        return true;
    }
    setLight(contents.taskLight,
             channels[0].empty() ? Light{0.5, 1.0} : taskLightOf(channels[0][0], channels[1][0]));
    return makePoints(
        channels[2], channels[3],
        [](std::uint8_t colorTemp, std::uint8_t brightness) {
            return Light{fractionFromByte(colorTemp), fractionFromByte(brightness)};
        },
        contents.points);
}

/// The duration of the task light. The hours are counted without the minutes that the seconds carry
/// over, which therefore may not exceed the controller's minutes; none then. The application itself
/// sends no carry.
std::optional<AQTime> durationOf(const DeviceImage::TaskMode& taskMode) {
    const int minute = (taskMode.minutes + taskMode.seconds / 60) % 60;
    const int wholeHours = taskMode.minutes - minute;
    if (wholeHours < 0)
        return {};
    return AQTime{(wholeHours / 60) % 24, minute, taskMode.seconds % 60};
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

DeviceImage DeviceProgramImage::imageOf(const DocumentContents& contents, int channelCount) {
    const AQTimePoint& taskLight = contents.taskLight;
    DeviceImage image;
    for (int channel = 0; channel < channelCount; ++channel) {
        Entries& entries = image.channels.emplace_back(programEntries(contents.points, channel));
        if (channelCount >= fourChannels)
            foldInTaskLight(entries, channel, taskLight);
    }
    const ChannelLevels levels = levelsFromLight(taskLight.colorTemp, taskLight.brightness);
    const auto byte = [](int value) {
        constexpr int most = 255;
        return static_cast<std::uint8_t>(std::clamp(value, 0, most));
    };
    image.taskMode = {byte(taskLight.time.minuteOfDay()), byte(taskLight.time.second), levels.cold,
                      levels.warm};
    return image;
}

std::vector<YCommand> DeviceProgramImage::sendCommands(const DeviceImage& image,
                                                       const DeviceInfo& device) {
    std::vector<YCommand> commands;
    for (std::size_t channel = 0; channel < image.channels.size(); ++channel)
        commands.push_back(
            CmdSetSequenceData(static_cast<int>(channel), image.channels[channel], device));
    const auto& [minutes, seconds, cold, warm] = image.taskMode;
    commands.push_back(CmdSetTaskMode(0, minutes, seconds, cold, warm));
    return commands;
}

std::optional<DeviceImage> DeviceProgramImage::imageOf(const Answers& answers,
                                                       const DeviceInfo& device) {
    const int expected = 1 + std::min(device.channelCount.value_or(0), fourChannels);
    if (!checkLoad(device).isOk() || std::cmp_not_equal(answers.size(), expected))
        return {};
    const auto* taskMode = dynamic_cast<const AnswerTaskMode*>(answers[0].get());
    auto channels = channelEntries(answers);
    if (!taskMode || !channels)
        return {};
    return DeviceImage{
        std::move(*channels),
        {taskMode->minutes, taskMode->seconds, taskMode->levels[0].raw, taskMode->levels[1].raw}};
}

std::optional<DocumentContents> DeviceProgramImage::contentsOf(const DeviceImage& image) {
    const auto duration = durationOf(image.taskMode);
    if (!isKnownChannelCount(static_cast<int>(image.channels.size())) ||
        !arePaired(image.channels) || !duration)
        return {};
    DocumentContents contents;
    contents.taskLight.time = *duration;
    const bool isReadable = image.channels.size() == twoChannels
                                ? readTwoChannels(image, contents)
                                : readFourChannels(image.channels, contents);
    return isReadable ? std::optional(std::move(contents)) : std::nullopt;
}

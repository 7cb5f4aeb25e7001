#include "data/AQDataSource.h"
#include "data/DeviceProgramImage.h"
#include "data/NotificationLog.h"
#include "yprotocoll/YAnswers.h"
#include "yprotocoll/YMessageError.h"

#include "fuzz/ByteFeed.h"
#include "fuzz/Require.h"
#include "yprotocoll/LogCapture.h"

#include <algorithm>

// Input: mode | channels and most entries of the controller | what it answers to a load.
// Mode 0, anything: for each answer its number, length and payload.
// Mode 1, what a controller may send: the task mode's five bytes | the number of entries of the
// channels 0 and 1, then of 2 and 3 | the entries of all channels.

namespace {

using Bytes = std::vector<std::uint8_t>;
using Answers = std::vector<std::shared_ptr<const YAnswer>>;

constexpr std::uint8_t sequenceNumber = 47;
constexpr std::uint8_t taskModeNumber = 51;
constexpr std::size_t entrySize = 3;
constexpr int mostEntries = 84; ///< in one message

Answers readAnything(ByteFeed& feed) {
    Answers answers;
    while (!feed.isEmpty()) {
        const std::uint8_t number = feed.byte();
        const auto payload = feed.bytes(feed.byte());
        try {
            answers.push_back(YAnswer::create(number, {payload.begin(), payload.end()}));
        } catch (const YMessageError&) {
            answers.push_back(nullptr);
        }
    }
    return answers;
}

Answers readTransfer(ByteFeed& feed, int channelCount) {
    Bytes taskMode(5);
    std::ranges::copy(feed.bytes(taskMode.size()), taskMode.begin());
    const int counts[] = {feed.byte() % (mostEntries + 1), feed.byte() % (mostEntries + 1)};
    Answers answers{YAnswer::create(taskModeNumber, taskMode)};
    for (int channel = 0; channel < std::min(channelCount, 4); ++channel) {
        const auto size = entrySize * static_cast<std::size_t>(counts[channel / 2]);
        Bytes payload(1 + size);
        payload[0] = static_cast<std::uint8_t>(channel);
        std::ranges::copy(feed.bytes(size), payload.begin() + 1);
        answers.push_back(YAnswer::create(sequenceNumber, payload));
    }
    return answers;
}

/// The duration would be less than the minutes that it is made of.
bool carriesBeyondTheHour(const AnswerTaskMode& taskMode) {
    return taskMode.minutes < (taskMode.minutes + taskMode.seconds / 60) % 60;
}

/// Whether these are the answers to a load, of a program with times of day.
bool isLoad(const Answers& answers, int channelCount) {
    const auto channels = static_cast<std::size_t>(std::min(channelCount, 4));
    if (answers.size() != channels + 1)
        return false;
    const auto* taskMode = dynamic_cast<const AnswerTaskMode*>(answers[0].get());
    if (!taskMode || carriesBeyondTheHour(*taskMode))
        return false;
    std::vector<std::vector<SequenceEntry>> entries;
    for (std::size_t channel = 0; channel < channels; ++channel) {
        const auto* data = dynamic_cast<const AnswerSequenceData*>(answers[channel + 1].get());
        if (!data || data->channel != channel)
            return false;
        entries.push_back(data->seqData);
        if (channel % 2 == 1 && entries[channel - 1].size() != entries[channel].size())
            return false;
    }
    const auto& times = entries[channels - 2];
    if (channels == 4 && times.size() == 1)
        return true; // the task light, no point
    return std::ranges::all_of(
        times, [](const SequenceEntry& entry) { return entry.hour < 24 && entry.minute < 60; });
}

struct Contents {
    std::vector<AQTimePoint> points;
    AQTimePoint taskLight;
    bool operator==(const Contents&) const = default;
};

Contents contentsOf(const AQDataSource& document) {
    return {document.sequence().points(), document.taskLight()};
}

bool isFraction(double value) {
    return value >= 0.0 && value <= 1.0;
}

void requireValid(const AQDataSource& document) {
    for (const AQTimePoint& point : document.sequence().points()) {
        require(point.time.isValid() && point.time.second == 0, "a point has a minute of the day");
        require(isFraction(point.colorTemp) && isFraction(point.brightness),
                "a point's values are fractions");
    }
    const AQTimePoint& taskLight = document.taskLight();
    require(taskLight.time.isValid(), "the task light's duration is a time");
    require(isFraction(taskLight.colorTemp) && isFraction(taskLight.brightness),
            "the task light's values are fractions");
}

/// What a load returns after these commands were sent.
Answers storedBy(const std::vector<YCommand>& commands, int channelCount) {
    Bytes taskMode = commands.back().data();
    taskMode.push_back(0); // the fade time, which is the controller's own
    Answers answers{YAnswer::create(taskModeNumber, taskMode)};
    for (int channel = 0; channel < std::min(channelCount, 4); ++channel) {
        const Bytes& payload = commands[static_cast<std::size_t>(channel)].data();
        require(payload[0] == channel, "the channels are sent in order");
        answers.push_back(YAnswer::create(sequenceNumber, payload));
    }
    return answers;
}

std::vector<YCommand> send(const AQDataSource& document, const DeviceInfo& device) {
    LogCapture log;
    auto commands = DeviceProgramImage::sendCommands(document, device);
    require(commands.size() == static_cast<std::size_t>(device.channelCount) + 1,
            "a command for each channel and one for the task light");
    // A single entry, or the task light alone, are sent even where the controller claims to hold
    // less.
    require(device.maxPointsInSeq < 2 || log.lines().empty(), "nothing is cut off on the way");
    return commands;
}

/// A document that came from a controller goes back to it, and comes again as it was.
void checkReturn(const AQDataSource& document, const DeviceInfo& device) {
    const TransferResult check = DeviceProgramImage::checkSend(document, device);
    const int limit = std::min(device.maxPointsInSeq, mostEntries);
    if (document.sequence().count() > limit) {
        require(check == TransferResult::errorTooManyPoints{document.sequence().count(), limit},
                "more points than the controller holds are refused");
        return;
    }
    require(check.isOk(), "what a controller sent can be sent to it");
    const auto commands = send(document, device);
    if (device.maxPointsInSeq < 2)
        return;

    NotificationCenter notifications;
    AQDataSource loaded(notifications);
    const auto stored = storedBy(commands, device.channelCount);
    require(DeviceProgramImage::apply(stored, device, loaded).isOk(),
            "what was sent can be loaded");
    requireValid(loaded);
    if (device.channelCount >= 4)
        require(contentsOf(loaded) == contentsOf(document), "four channels keep every value");
    else
        require(loaded.taskLight().time == document.taskLight().time, "the duration is kept");
}

/// Twice the points, which may be more than a message carries.
void checkMany(AQDataSource& document, const DeviceInfo& device) {
    const std::vector<AQTimePoint> points = document.sequence().points();
    for (const AQTimePoint& point : points)
        document.sequence().appendPoint(point);
    const bool fits = document.sequence().count() <= std::min(device.maxPointsInSeq, mostEntries);
    require(DeviceProgramImage::checkSend(document, device).isOk() == fits,
            "no more points are sent than the controller and a message hold");
    if (fits)
        send(document, device);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteFeed feed(data, size);
    const bool isTransfer = feed.byte() % 2 == 1;
    DeviceInfo device;
    device.channelCount = feed.byte();
    device.maxPointsInSeq = feed.byte();
    const Answers answers =
        isTransfer ? readTransfer(feed, device.channelCount) : readAnything(feed);

    NotificationCenter notifications;
    NotificationLog log(notifications);
    AQDataSource document(notifications);
    const Contents before = contentsOf(document);
    const TransferResult result = DeviceProgramImage::apply(answers, device, document);
    require(log.take().empty() && !document.isDirty() && document.isProgramMode(),
            "a load announces nothing and leaves flag and mode alone");
    const bool isKnown = DeviceProgramImage::checkLoad(device).isOk();
    require(result.isOk() == (isKnown && isLoad(answers, device.channelCount)),
            "the answers of a load are taken, and no others");
    if (result.isOk()) {
        requireValid(document);
        checkReturn(document, device);
        checkMany(document, device);
    } else {
        require(contentsOf(document) == before, "a failed load changes nothing");
        require(result.is<TransferResult::errorInvalidData>() == isKnown,
                "data are invalid, or the controller has no usable channels");
    }
    return 0;
}

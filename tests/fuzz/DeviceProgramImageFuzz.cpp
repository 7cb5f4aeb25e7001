#include "data/DeviceProgramImage.h"
#include "yprotocoll/YAnswers.h"
#include "yprotocoll/YMessageError.h"

#include "fuzz/DocumentFuzz.h"

#include <spdlog/spdlog.h>

#include <algorithm>

// Input: mode | channels and most entries of the controller | what it answers to a load.
// Mode 0, anything: for each answer its number, length and payload.
// Mode 1, what a controller may send: the task mode's five bytes | the number of entries of the
// channels 0 and 1, then of 2 and 3 | the entries of all channels.

namespace {

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

/// What a load returns after these commands were sent.
Answers storedBy(const std::vector<YCommand>& commands, int channelCount) {
    Bytes taskMode = commands.back().data();
    taskMode.push_back(0); // the fade time, which is the controller's own
    Answers answers{YAnswer::create(taskModeNumber, taskMode)};
    for (int channel = 0; channel < std::min(channelCount, 4); ++channel)
        answers.push_back(
            YAnswer::create(sequenceNumber, commands[static_cast<std::size_t>(channel)].data()));
    return answers;
}

/// As a load does; false when the answers hold no program.
bool apply(const Answers& answers, const DeviceInfo& device, AQDataSource& document) {
    const auto image = DeviceProgramImage::imageOf(answers, device);
    const auto contents = image ? DeviceProgramImage::contentsOf(*image) : std::nullopt;
    if (!contents)
        return false;
    document.sequence().replacePoints(contents->points);
    document.setTaskLight(contents->taskLight);
    return true;
}

/// A document that came from a controller goes back to it, and comes again as it was.
void checkReturn(const AQDataSource& document, const DeviceInfo& device) {
    const bool fits = document.sequence().count() <= std::min(*device.maxPointsInSeq, mostEntries);
    require(DeviceProgramImage::checkSend(document, device).isOk() == fits,
            "no more points are sent than the controller and a message hold");
    if (!fits || device.maxPointsInSeq < 2)
        return;

    const auto stored = storedBy(
        DeviceProgramImage::sendCommands(
            DeviceProgramImage::imageOf(document.contents(), *device.channelCount), device),
        *device.channelCount);
    NotificationCenter notifications;
    AQDataSource loaded(notifications);
    require(apply(stored, device, loaded), "what was sent can be loaded");
    requireValid(loaded);
    require(loaded.taskLight().time == document.taskLight().time, "the duration is kept");
    require(device.channelCount < 4 || loaded.contents() == document.contents(),
            "four channels keep every value");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    spdlog::set_level(spdlog::level::off);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteFeed feed(data, size);
    const bool isTransfer = feed.byte() % 2 == 1;
    DeviceInfo device;
    device.channelCount = feed.byte();
    device.maxPointsInSeq = feed.byte();
    const Answers answers =
        isTransfer ? readTransfer(feed, *device.channelCount) : readAnything(feed);

    NotificationCenter notifications;
    AQDataSource document(notifications);
    const AQDataSource::Contents before = document.contents();
    const bool isApplied = apply(answers, device, document);
    requireValid(document);
    require(document.taskLight().time.isValid(), "the task light's duration is a time");
    if (isApplied)
        checkReturn(document, device);
    else
        require(document.contents() == before, "a failed load changes nothing");
    return 0;
}

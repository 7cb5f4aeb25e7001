#include "yprotocoll/YAnswers.h"

#include "fuzz/Fuzz.h"
#include "yprotocoll/DimmingCurve.h"
#include "yprotocoll/YMessageError.h"

#include <algorithm>

// Input: an answer's number and its payload. The same bytes are also tried as a frame.

namespace {

void requireLevel(const AnswerLevel& level) {
    require(level.share >= 0.0 && level.share <= 1.0, "a share is a fraction");
    require(levelFromShare(level.share) == std::min<int>(level.raw, 254),
            "the dimming curve leads back to the level");
}

void requireRanges(const YAnswer& answer) {
    if (const auto* mode = dynamic_cast<const AnswerDeviceMode*>(&answer)) {
        require(mode->mode <= 1, "the mode is one bit");
        std::ranges::for_each(mode->levels, requireLevel);
    }
    if (const auto* mode = dynamic_cast<const AnswerTaskMode*>(&answer))
        std::ranges::for_each(mode->levels, requireLevel);
    if (const auto* mode = dynamic_cast<const AnswerAnalogMode*>(&answer)) {
        requireLevel(mode->minLevel);
        requireLevel(mode->maxLevel);
    }
    if (const auto* settings = dynamic_cast<const AnswerDeviceSettings*>(&answer)) {
        requireLevel(settings->minOnOutLevel);
        for (const AnswerAddress& address : settings->addresses)
            require(address.number <= (address.isGroup ? 15 : 63), "an address is in its range");
    }
    if (const auto* clock = dynamic_cast<const AnswerRTC*>(&answer))
        require(clock->year >= 2000 && clock->year <= 2255, "a year is in its range");
    if (const auto* sequence = dynamic_cast<const AnswerSequenceData*>(&answer))
        require(sequence->seqData.size() == (answer.data().size() - 1) / 3, "whole entries only");

    const auto isText = [](const std::string& text) {
        return !text.empty() &&
               std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
    };
    for (const AnswerField& field : answer.fields())
        require(isText(field.label) && isText(field.value), "a field has a name and a value");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const auto answer = YAnswer::fromFrame({data, size});
        const Bytes frame = answer->frame();
        require(frame.size() <= size && std::equal(frame.begin(), frame.end(), data),
                "framing again gives the same bytes");
    } catch (const YMessageError&) {
    }
    if (size == 0)
        return 0;
    const Bytes payload(data + 1, data + size);
    try {
        const auto answer = YAnswer::create(data[0], payload);
        require(answer->id() == data[0] && answer->data() == payload, "the bytes are kept");
        requireRanges(*answer);
        require(YAnswer::fromFrame(answer->frame())->fields() == answer->fields(),
                "a frame means what its payload does");
    } catch (const YMessageError& error) {
        require(error.is<YMessageError::PacketLength>() || error.is<YMessageError::UnknownPacket>(),
                "the number is unknown, or the length is wrong");
    }
    return 0;
}

#include "yprotocoll/YAnswers.h"

#include "fuzz/Fuzz.h"
#include "yprotocoll/DimmingCurve.h"
#include "yprotocoll/YMessageError.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <optional>
#include <utility>

// Input: an answer's number and its payload. The same bytes are also tried as a frame.

namespace {

using AnswerPtr = std::shared_ptr<const YAnswer>;

/// The answer, or the error that creating it throws.
struct Made {
    AnswerPtr answer;
    std::optional<YMessageError> error;
};

template <class Make>
Made attempt(Make make) {
    try {
        return {make(), {}};
    } catch (const YMessageError& error) {
        return {nullptr, error};
    }
}

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
    if (const auto* sequence = dynamic_cast<const AnswerSequenceData*>(&answer)) {
        const Bytes& data = answer.data();
        require(sequence->channel == data[0], "the channel comes first");
        require(sequence->seqData.size() == (data.size() - 1) / 3, "whole entries only");
        for (std::size_t i = 0; i < sequence->seqData.size(); ++i)
            require(sequence->seqData[i] ==
                        SequenceEntry{data[1 + 3 * i], data[2 + 3 * i], data[3 + 3 * i]},
                    "entries keep their bytes");
    }
}

void requireFields(const YAnswer& answer) {
    const auto isText = [](const std::string& text) {
        return !text.empty() &&
               std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
    };
    for (const AnswerField& field : answer.fields())
        require(isText(field.label) && isText(field.value), "a field has a name and a value");
}

/// Whether a longer payload means the same.
bool ignoresSurplus(std::uint8_t id) {
    return id != 2 && id != 45 && id != 47 && id != 49;
}

void checkCreate(std::uint8_t id, Bytes payload) {
    constexpr std::size_t longestMinimum = 31;
    const Made made = attempt([&] { return YAnswer::create(id, payload); });
    if (!made.answer) {
        const auto* const length = made.error->get<YMessageError::PacketLength>();
        require(length || made.error == YMessageError(YMessageError::UnknownPacket{id}),
                "the number is unknown, or the length is wrong");
        require(!length || std::cmp_equal(length->length, payload.size()), "the length is told");
        require(!length || payload.size() < longestMinimum ||
                    payload.size() > YMessage::maxDataLength,
                "a long enough payload is an answer");
        return;
    }
    require(made.answer->id() == id && made.answer->data() == payload, "the bytes are kept");
    requireRanges(*made.answer);
    requireFields(*made.answer);
    if (ignoresSurplus(id) && payload.size() < YMessage::maxDataLength) {
        payload.push_back(id);
        require(YAnswer::create(id, payload)->fields() == made.answer->fields(),
                "surplus bytes change nothing");
    }
}

/// What `YAnswer::fromFrame` makes of bytes that may be a frame.
void checkFrame(View bytes) {
    const Made made = attempt([&] { return YAnswer::fromFrame(bytes); });
    if (bytes.empty() || bytes[0] != 'Y') {
        require(made.error == YMessageError(YMessageError::PacketStart{}), "no start byte");
        return;
    }
    const std::size_t total = bytes.size() < 4 ? 4 : bytes[2] + std::size_t{4};
    if (total > bytes.size()) {
        require(made.error && made.error->is<YMessageError::PacketLength>(), "an incomplete frame");
        return;
    }
    const View frame = bytes.first(total);
    const unsigned sum = std::accumulate(frame.begin() + 1, frame.end(), 0U, std::bit_xor<>{});
    if (sum != 0) {
        require(made.error == YMessageError(YMessageError::Checksum{}), "a wrong checksum");
        return;
    }
    const Bytes payload(frame.begin() + 3, frame.end() - 1);
    const Made byHand = attempt([&] { return YAnswer::create(frame[1], payload); });
    require(made.error == byHand.error, "a frame fails as its payload does");
    if (!made.answer)
        return;
    require(std::ranges::equal(made.answer->frame(), frame), "framing again gives the same bytes");
    require(made.answer->fields() == byHand.answer->fields(),
            "a frame means what its payload does");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    checkFrame({data, size});
    if (size == 0)
        return 0;
    const Bytes payload(data + 1, data + size);
    checkCreate(data[0], payload);
    if (payload.size() > YMessage::maxDataLength)
        return 0;

    Bytes frame{'Y', data[0], static_cast<std::uint8_t>(payload.size())};
    frame.insert(frame.end(), payload.begin(), payload.end());
    frame.push_back(
        std::accumulate(frame.begin() + 1, frame.end(), std::uint8_t{0}, std::bit_xor<>{}));
    checkFrame(frame);
    return 0;
}

#include "yprotocoll/YAnswers.h"

#include "fuzz/Require.h"
#include "yprotocoll/DimmingCurve.h"
#include "yprotocoll/LogCapture.h"
#include "yprotocoll/YMessageError.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <optional>

// Input: an answer's number and its payload. The same bytes are also tried as a frame.

namespace {

using Bytes = std::vector<std::uint8_t>;
using View = std::span<const std::uint8_t>;
using AnswerPtr = std::shared_ptr<const YAnswer>;

struct Kind {
    std::uint8_t id;
    bool ignoresSurplus;  ///< a longer payload means the same
    std::uint8_t minimum; ///< payload bytes
    const char* name;
};

constexpr Kind kinds[] = {
    {2, false, 3, "AnswerVersion"},       {4, true, 8, "AnswerProductInfo"},
    {33, true, 31, "AnswerDebugInfo"},    {35, true, 2, "AnswerDebugTxRxDALI"},
    {41, true, 2, "AnswerTime"},          {43, true, 3, "AnswerDeviceMode"},
    {45, false, 1, "AnswerSequenceData"}, {51, true, 5, "AnswerTaskMode"},
    {53, true, 12, "AnswerAnalogMode"},   {55, true, 4, "AnswerDeviceSettings"},
    {71, true, 6, "AnswerRTC"},           {73, true, 2, "AnswerBufferInfo"},
    {75, true, 2, "AnswerDaylightInfo"}};

const Kind* kindOf(std::uint8_t id, std::size_t length) {
    static constexpr Kind sequenceInfo{47, false, 3, "AnswerSequenceDataInfo"};
    static constexpr Kind sequence{47, false, 1, "AnswerSequenceData"};
    static constexpr Kind transmitBuffer{49, false, 1, "AnswerDemoModeTransmitBuffer"};
    static constexpr Kind demoMode{49, true, 3, "AnswerDemoMode"};
    if (id == 47)
        return length == 3 ? &sequenceInfo : &sequence;
    if (id == 49)
        return length == 1 ? &transmitBuffer : &demoMode;
    const auto* const kind = std::ranges::find(kinds, id, &Kind::id);
    return kind == std::end(kinds) ? nullptr : kind;
}

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

void requireLog(const YAnswer& answer) {
    LogCapture log;
    answer.logVerbose();
    const auto fields = answer.fields();
    require(log.lines().size() == fields.size(), "one line for each field");
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::string& line = log.lines()[i];
        require(line == "trace     - " + fields[i].label + ": " + fields[i].value,
                "a line holds name and value");
        require(!fields[i].label.empty() && !fields[i].value.empty(), "a field has both");
        require(std::ranges::all_of(line, [](char c) { return c >= ' ' && c <= '~'; }),
                "a line is plain text");
    }
}

void checkCreate(std::uint8_t id, const Bytes& payload) {
    const Made made = attempt([&] { return YAnswer::create(id, payload); });
    const Kind* const kind = kindOf(id, payload.size());
    if (!kind) {
        require(made.error == YMessageError(YMessageError::UnknownPacket{id}), "an unknown number");
        return;
    }
    if (payload.size() < kind->minimum || payload.size() > YMessage::maxDataLength) {
        const auto length = static_cast<int>(payload.size());
        require(made.error == YMessageError(YMessageError::PacketLength{kind->name, length}),
                "a payload of a wrong length");
        return;
    }
    require(made.answer != nullptr, "a long enough payload is an answer");
    require(made.answer->name() == kind->name, "the number tells the class");
    require(made.answer->id() == id && made.answer->data() == payload, "the bytes are kept");
    requireRanges(*made.answer);
    requireLog(*made.answer);
    if (kind->ignoresSurplus) {
        const Bytes needed(payload.begin(),
                           payload.begin() + static_cast<std::ptrdiff_t>(kind->minimum));
        require(YAnswer::create(id, needed)->fields() == made.answer->fields(),
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
    frame.push_back(data[0]); // the next frame's first byte
    checkFrame(frame);
    return 0;
}

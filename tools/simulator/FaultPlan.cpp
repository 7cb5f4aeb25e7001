#include "simulator/FaultPlan.h"

#include <algorithm>
#include <string_view>

namespace {

using Bytes = std::vector<std::uint8_t>;
using K = Fault::Kind;

bool anyOf(const std::vector<Fault>& faults, K kind) {
    return std::ranges::find(faults, kind, &Fault::kind) != faults.end();
}

std::uint8_t byte(int value) {
    return static_cast<std::uint8_t>(value);
}

Bytes text(std::string_view characters) {
    return {characters.begin(), characters.end()};
}

/// Cuts a piece after `count` bytes; the rest follows after `pause`.
void cut(std::vector<LinePiece>& pieces, std::size_t index, std::size_t count,
         std::chrono::milliseconds pause) {
    LinePiece& piece = pieces[index];
    if (count == 0 || count >= piece.bytes.size())
        return;
    const auto middle = piece.bytes.begin() + static_cast<std::ptrdiff_t>(count);
    LinePiece rest{Bytes(middle, piece.bytes.end()), pause, piece.label};
    piece.bytes.erase(middle, piece.bytes.end());
    pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(index) + 1, std::move(rest));
}

} // namespace

std::vector<Fault> FaultPlan::take(std::uint8_t command) {
    std::vector<Fault> result;
    for (Counted& counted : m_faults) {
        if (counted.fault.command.value_or(command) != command)
            continue;
        ++counted.seen;
        if (counted.seen >= counted.fault.first && counted.seen <= counted.fault.last)
            result.push_back(counted.fault);
    }
    return result;
}

bool FaultPlan::preventsExecution(const std::vector<Fault>& faults) {
    return anyOf(faults, K::Deaf) || anyOf(faults, K::Unplug);
}

YMessage FaultPlan::misheard(const std::vector<Fault>& faults, const YMessage& command) {
    constexpr std::uint8_t setSequence = 44;
    constexpr std::uint8_t taskMode = 50;
    constexpr std::size_t entrySize = 3;
    Bytes payload = command.data();
    const bool isSequence = command.id() == setSequence;
    // Where levels stand: behind the channel's number in each entry, at the end of the task mode.
    const std::size_t first = isSequence ? entrySize : 2;
    const std::size_t step = isSequence ? entrySize : 1;
    for (const Fault& fault : faults) {
        if (fault.kind == K::OtherLevels && (isSequence || command.id() == taskMode))
            for (std::size_t at = first; at < payload.size(); at += step)
                payload[at] = byte(std::max(0, payload[at] - fault.amount()));
        if (fault.kind == K::FewerPoints && isSequence)
            payload.resize(
                payload.size() -
                std::min(payload.size() - 1, entrySize * static_cast<std::size_t>(fault.amount())));
    }
    return YMessage(command.name(), command.id(), payload);
}

FaultOutcome FaultPlan::apply(const std::vector<Fault>& faults, const YMessage& command,
                              const std::optional<YMessage>& answer) {
    FaultOutcome outcome;
    for (const Fault& fault : faults) {
        if (fault.kind == K::Unplug)
            outcome.unplugFor = fault.duration();
        if (fault.kind == K::Reset)
            outcome.resetFor = fault.duration();
    }
    if (!answer || anyOf(faults, K::Silence) || preventsExecution(faults))
        return outcome;

    YMessage altered = *answer;
    Bytes frame = altered.frame();
    for (const Fault& fault : faults)
        alter(fault, altered, frame);
    const LinePiece whole{frame, {}, altered.name()};
    outcome.pieces.push_back(whole);
    for (const Fault& fault : faults)
        surround(fault, command, whole, outcome);
    for (const Fault& fault : faults)
        spread(fault, outcome);
    return outcome;
}

void FaultPlan::alter(const Fault& fault, YMessage& answer, Bytes& frame) {
    Bytes payload = answer.data();
    switch (fault.kind) {
    case K::WrongNumber:
        answer = YMessage(answer.name(), byte(fault.amount()), payload);
        frame = answer.frame();
        break;
    case K::Channel: {
        constexpr std::size_t limitsLength = 3; // of the answer 47 that is not about a channel
        if ((answer.id() == 45 || answer.id() == 47) && payload.size() != limitsLength)
            payload.front() = byte(fault.amount());
        answer = YMessage(answer.name(), answer.id(), payload);
        frame = answer.frame();
        break;
    }
    case K::Shorter:
        payload.resize(payload.size() -
                       std::min(payload.size(), static_cast<std::size_t>(fault.amount())));
        answer = YMessage(answer.name(), answer.id(), payload);
        frame = answer.frame();
        break;
    case K::Longer:
        payload.resize(std::min(YMessage::maxDataLength,
                                payload.size() + static_cast<std::size_t>(fault.amount())));
        answer = YMessage(answer.name(), answer.id(), payload);
        frame = answer.frame();
        break;
    case K::Length:
        frame[2] = byte(fault.amount());
        break;
    case K::WrongChecksum:
        frame.back() ^= 1U;
        break;
    case K::NoiseInside: {
        const Bytes noise = strayBytes(fault.amount());
        frame.insert(frame.begin() + static_cast<std::ptrdiff_t>(frame.size() / 2), noise.begin(),
                     noise.end());
        break;
    }
    default:
        break;
    }
}

void FaultPlan::surround(const Fault& fault, const YMessage& command, const LinePiece& whole,
                         FaultOutcome& outcome) {
    auto& pieces = outcome.pieces;
    const auto before = [&](Bytes bytes, std::string label) {
        pieces.insert(pieces.begin(), {std::move(bytes), {}, std::move(label)});
    };
    const auto after = [&](Bytes bytes, std::string label) {
        pieces.push_back({std::move(bytes), {}, std::move(label)});
    };
    switch (fault.kind) {
    case K::NoiseBefore:
        before(strayBytes(fault.amount()), "noise");
        break;
    case K::NoiseAfter:
        after(strayBytes(fault.amount()), "noise");
        break;
    case K::FalseStart:
        before({YMessage::startByte, 7, byte(fault.amount())}, "false start");
        break;
    case K::Echo:
        before(command.frame(), "echo");
        break;
    case K::ModemNoise:
        before(text("AT\r\r\nERROR\r\n"), "modem noise");
        break;
    case K::Twice:
        pieces.push_back(whole);
        break;
    case K::Unasked:
        after(unaskedAnswer(fault.amount()), "unasked");
        break;
    case K::Flood: {
        Bytes flood;
        for (int i = 0; i < fault.amount(); ++i) {
            const Bytes frame = unaskedAnswer(Fault::defaultValue(K::Unasked));
            flood.insert(flood.end(), frame.begin(), frame.end());
        }
        after(std::move(flood), "flood");
        break;
    }
    default:
        break;
    }
}

void FaultPlan::spread(const Fault& fault, FaultOutcome& outcome) {
    auto& pieces = outcome.pieces;
    switch (fault.kind) {
    case K::Delay:
        pieces.front().pause += fault.duration();
        break;
    case K::Split:
        cut(pieces, 0, static_cast<std::size_t>(fault.amount()), std::chrono::milliseconds(20));
        break;
    case K::Dribble:
        for (std::size_t i = 0; i < pieces.size(); ++i)
            cut(pieces, i, 1, fault.duration());
        break;
    case K::Reset:
        pieces.resize(1);
        pieces[0].bytes.resize(pieces[0].bytes.size() / 2);
        break;
    default:
        break;
    }
}

Bytes FaultPlan::strayBytes(int count) {
    Bytes bytes;
    while (static_cast<int>(bytes.size()) < count) {
        const auto value = static_cast<std::uint8_t>(m_random() >> 8U);
        if (value != YMessage::startByte)
            bytes.push_back(value);
    }
    return bytes;
}

Bytes FaultPlan::unaskedAnswer(int number) {
    return YMessage("unasked", byte(number), {1, 0, 0}).frame();
}

#include "simulator/Fault.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

struct KindInfo {
    Fault::Kind kind;
    std::string_view name;
    int defaultValue;
    std::string_view help;
};

using K = Fault::Kind;

constexpr std::array kinds{
    KindInfo{K::Silence, "silence", 0, "no answer, though the command is executed"},
    KindInfo{K::Deaf, "deaf", 0, "no answer, and the command is lost"},
    KindInfo{K::Delay, "delay", 150, "answer after N milliseconds"},
    KindInfo{K::WrongChecksum, "wrong-checksum", 0, "one bit of the checksum is turned"},
    KindInfo{K::WrongNumber, "wrong-number", 33, "answer number N instead of the right one"},
    KindInfo{K::Channel, "channel", 0, "answers about channels name channel N, whatever was asked"},
    KindInfo{K::Length, "length", 255, "length byte N, whatever the payload holds"},
    KindInfo{K::Shorter, "shorter", 1, "payload N bytes too short, in a sound frame"},
    KindInfo{K::Longer, "longer", 1, "payload N bytes too long, in a sound frame"},
    KindInfo{K::NoiseBefore, "noise-before", 7, "N stray bytes before the frame"},
    KindInfo{K::NoiseInside, "noise-inside", 3, "N stray bytes in the middle of the frame"},
    KindInfo{K::NoiseAfter, "noise-after", 7, "N stray bytes after the frame"},
    KindInfo{K::FalseStart, "false-start", 20,
             "a 'Y' announcing N bytes of payload before the frame"},
    KindInfo{K::Dribble, "dribble", 2, "N milliseconds between one byte and the next"},
    KindInfo{K::Split, "split", 1, "a pause of 20 milliseconds after N bytes"},
    KindInfo{K::Twice, "twice", 0, "the answer comes two times"},
    KindInfo{K::Unasked, "unasked", 43, "answer number N, which nobody asked for, follows"},
    KindInfo{K::Flood, "flood", 2000, "N unasked answers follow"},
    KindInfo{K::Echo, "echo", 0, "the command comes back before the answer"},
    KindInfo{K::ModemNoise, "modem-noise", 0, "a modem's reply to AT before the answer"},
    KindInfo{K::Reset, "reset", 300, "half of the answer, then deaf and dumb for N milliseconds"},
    KindInfo{K::OtherLevels, "other-levels", 9, "levels are stored N lower than sent"},
    KindInfo{K::FewerPoints, "fewer-points", 1, "the last N entries of a channel are not stored"},
    KindInfo{K::Unplug, "unplug", 0,
             "the cable is pulled when the command arrives; back after N milliseconds, 0: never"},
};

const KindInfo& infoOf(Fault::Kind kind) {
    return *std::ranges::find(kinds, kind, &KindInfo::kind);
}

/// Takes a decimal number from the front of `text`.
bool takeNumber(std::string_view& text, int& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || number < 0)
        return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return true;
}

bool takePrefix(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

/// The part after the kind's name.
bool parseDetails(std::string_view text, Fault& fault) {
    int number = 0;
    if (takePrefix(text, "=")) {
        if (!takeNumber(text, number))
            return false;
        fault.value = number;
    }
    if (takePrefix(text, "#")) {
        if (!takeNumber(text, number) || number > 255)
            return false;
        fault.command = static_cast<std::uint8_t>(number);
    }
    if (takePrefix(text, "@")) {
        if (!takeNumber(text, fault.first))
            return false;
        fault.last = fault.first;
        if (takePrefix(text, "..")) {
            fault.last = std::numeric_limits<int>::max();
            if (!text.empty() && !takeNumber(text, fault.last))
                return false;
        }
    }
    return text.empty();
}

} // namespace

std::optional<Fault> Fault::parse(std::string_view text, std::string* error) {
    const auto nameEnd = std::min(text.find_first_of("=#@"), text.size());
    const auto found = std::ranges::find(kinds, text.substr(0, nameEnd), &KindInfo::name);
    Fault fault;
    if (found == kinds.end()) {
        if (error)
            *error = "unknown fault: " + std::string(text);
        return std::nullopt;
    }
    fault.kind = found->kind;
    if (!parseDetails(text.substr(nameEnd), fault)) {
        if (error)
            *error = "fault is not kind[=value][#command][@first[..last]]: " + std::string(text);
        return std::nullopt;
    }
    return fault;
}

int Fault::defaultValue(Kind kind) {
    return infoOf(kind).defaultValue;
}

std::string Fault::help() {
    std::string text;
    for (const KindInfo& info : kinds) {
        std::string name(info.name);
        if (info.defaultValue != 0 || info.kind == Kind::Unplug)
            name.append(1, '=').append(std::to_string(info.defaultValue));
        name.resize(22, ' ');
        text += "  " + name + std::string(info.help) + "\n";
    }
    return text;
}

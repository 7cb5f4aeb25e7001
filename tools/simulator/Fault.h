#pragma once

#include <chrono>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

/// One thing that goes wrong on the line, and with which answers.
///
/// Written as text: `kind[=value][#command][@first[..last]]`, for example `silence@3..7` (answers 3
/// to 7), `delay=150` (every answer), `wrong-checksum#46@2` (the second answer to command 46).
/// Answers are counted from 1, from the moment the fault was put into the plan; with a command
/// number only the answers to that command count.
struct Fault {
    enum class Kind {
        Silence,       ///< no answer; the command is executed
        Deaf,          ///< no answer; the command is lost
        Delay,         ///< value: milliseconds until the answer
        WrongChecksum, ///< the checksum's lowest bit is turned
        WrongNumber,   ///< value: the answer's number instead of the right one
        Channel,       ///< value: the channel that answers about channels name, whatever was asked
        Length,        ///< value: the length byte, which then does not fit the frame
        Shorter,       ///< value: bytes cut from the payload; the frame is sound
        Longer,        ///< value: bytes added to the payload; the frame is sound
        NoiseBefore,   ///< value: number of stray bytes before the frame; none of them is 'Y'
        NoiseInside,   ///< the same in the middle of the frame
        NoiseAfter,    ///< the same after the frame
        FalseStart,    ///< a 'Y' that announces this many payload bytes stands before the frame
        Dribble,       ///< value: milliseconds between one byte and the next
        Split,         ///< value: number of bytes after which the frame pauses for 20 ms
        Twice,         ///< the answer comes two times
        Unasked,       ///< value: number of an answer that nobody asked for, after the right one
        Flood,         ///< value: number of unasked answers after the right one
        Echo,          ///< the command itself comes back before the answer
        ModemNoise,    ///< what a modem would say to `AT` stands before the answer
        Reset,         ///< half of the answer, then nothing is heard or said for value milliseconds
        OtherLevels,   ///< value: how much lower than sent levels are stored
        FewerPoints,   ///< value: how many entries of a channel, at its end, are not stored
        Unplug,        ///< the cable is pulled when the command arrives; value: milliseconds until
                       ///< it is plugged in again, 0 for never
    };

    Kind kind = Kind::Silence;
    std::optional<int> value; ///< none: what `defaultValue` says
    std::optional<std::uint8_t> command;
    int first = 1;
    int last = std::numeric_limits<int>::max();

    /// None when the text is not of the form above; `error` then says why in one line.
    static std::optional<Fault> parse(std::string_view text, std::string* error = nullptr);

    static int defaultValue(Kind kind);
    int amount() const { return value.value_or(defaultValue(kind)); }
    std::chrono::milliseconds duration() const { return std::chrono::milliseconds(amount()); }

    /// One line a kind: its name and what it does, for the help text.
    static std::string help();
};

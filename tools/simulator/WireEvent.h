#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// One line of the log of what happened on a simulated controller's line.
///
///     +12.345678 ttyUSB0 <- 59 01 00 01 CmdGetVersion     received from the program
///     +12.346112 ttyUSB0 -> 59 02 04 ... AnswerVersion    sent to the program
///     +13.000000 ttyUSB0 == unplugged                     anything else that happened
///
/// The time of a frame is that of its last byte: `<-` when it has arrived, `->` when it has left.
/// On a paced line the first byte was 86.8 µs a byte earlier.
struct WireEvent {
    enum class Kind { Received, Sent, Note };

    double seconds = 0.0; ///< since the log began, on the monotonic clock
    std::string port;     ///< the device's name, "ttyUSB0"
    Kind kind = Kind::Note;
    std::vector<std::uint8_t> bytes; ///< empty for notes
    std::string text;                ///< the message's name, or "noise"; the note itself

    std::string toLine() const; ///< without a line feed
    static std::optional<WireEvent> fromLine(std::string_view line);
};

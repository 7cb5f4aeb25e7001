#include "simulator/WireEvent.h"

#include <charconv>
#include <cstdio>

namespace {

std::string_view arrow(WireEvent::Kind kind) {
    switch (kind) {
    case WireEvent::Kind::Received:
        return "<-";
    case WireEvent::Kind::Sent:
        return "->";
    case WireEvent::Kind::Note:
        break;
    }
    return "==";
}

std::string_view takeWord(std::string_view& line) {
    const auto end = std::min(line.find(' '), line.size());
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return word;
}

/// A word of two hexadecimal digits.
bool takeByte(std::string_view& line, std::uint8_t& value) {
    std::string_view rest = line;
    const std::string_view word = takeWord(rest);
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, 16);
    if (word.size() != 2 || error != std::errc{} || end != word.data() + word.size())
        return false;
    line = rest;
    return true;
}

} // namespace

std::string WireEvent::toLine() const {
    char number[32];
    std::snprintf(number, sizeof number, "%+.6f ", seconds);
    std::string line = number + port + ' ' + std::string(arrow(kind));
    for (const std::uint8_t byte : bytes) {
        std::snprintf(number, sizeof number, " %02x", byte);
        line += number;
    }
    return line + ' ' + text;
}

std::optional<WireEvent> WireEvent::fromLine(std::string_view line) {
    WireEvent event;
    const std::string time(takeWord(line));
    event.port = takeWord(line);
    const std::string_view direction = takeWord(line);
    if (time.empty() || time[0] != '+')
        return std::nullopt;
    event.seconds = std::strtod(time.c_str(), nullptr);
    if (direction == arrow(Kind::Received))
        event.kind = Kind::Received;
    else if (direction == arrow(Kind::Sent))
        event.kind = Kind::Sent;
    else if (direction != arrow(Kind::Note))
        return std::nullopt;
    for (std::uint8_t byte = 0; event.kind != Kind::Note && takeByte(line, byte);)
        event.bytes.push_back(byte);
    event.text = line;
    return event;
}

#include "LogFormatter.h"

#include <string_view>

namespace {

std::string_view levelTag(spdlog::level::level_enum level) {
    switch (level) {
    case spdlog::level::critical:
    case spdlog::level::err:
        return "ERROR | ";
    case spdlog::level::warn:
        return "WARN  | ";
    case spdlog::level::info:
        return "INFO  | ";
    case spdlog::level::debug:
        return "DEBUG | ";
    default:
        return "TRACE | ";
    }
}

} // namespace

void LogFormatter::format(const spdlog::details::log_msg& message, spdlog::memory_buf_t& line) {
    fmt::format_to(std::back_inserter(line), "{}{} | {}{}", levelTag(message.level),
                   message.thread_id,
                   std::string_view(message.payload.data(), message.payload.size()), m_eol);
}

std::unique_ptr<spdlog::formatter> LogFormatter::clone() const {
    return std::make_unique<LogFormatter>(m_eol);
}

#pragma once

#include <spdlog/formatter.h>

#include <memory>

/// One line of the log: level tag, thread id, " | " and the message, for example
/// "INFO  | 4711 | device version 1.4".
class LogFormatter : public spdlog::formatter {
public:
    /// `eol` is put after each line; empty for the system log, which makes lines itself.
    explicit LogFormatter(std::string eol) : m_eol(std::move(eol)) {}

    void format(const spdlog::details::log_msg& message, spdlog::memory_buf_t& line) override;
    std::unique_ptr<spdlog::formatter> clone() const override;

private:
    std::string m_eol;
};

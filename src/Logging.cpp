#include "Logging.h"

#include "BackgroundSink.h"
#include "LogFormatter.h"

#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/sinks/syslog_sink.h>
#include <spdlog/spdlog.h>

#include <syslog.h>
#include <unistd.h>

Logging::Logging() {
    std::vector<spdlog::sink_ptr> sinks;
    const auto systemLog =
        std::make_shared<spdlog::sinks::syslog_sink_st>("aquelon", LOG_PID, LOG_USER, true);
    systemLog->set_formatter(std::make_unique<LogFormatter>(""));
    sinks.push_back(systemLog);
    if (isatty(STDERR_FILENO) != 0) {
        const auto terminal = std::make_shared<spdlog::sinks::stderr_sink_st>();
        terminal->set_formatter(std::make_unique<LogFormatter>("\n"));
        sinks.push_back(terminal);
    }
    constexpr std::size_t longestQueue = 8192;
    const auto logger = std::make_shared<spdlog::logger>(
        "aquelon", std::make_shared<BackgroundSink>(std::move(sinks), longestQueue));
    logger->set_level(spdlog::level::debug);
    spdlog::set_default_logger(logger);
}

Logging::~Logging() {
    spdlog::shutdown();
}

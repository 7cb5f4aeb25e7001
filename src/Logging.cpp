#include "Logging.h"

#include "LogFormatter.h"

#include <spdlog/async.h>
#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/sinks/syslog_sink.h>
#include <spdlog/spdlog.h>

#include <syslog.h>
#include <unistd.h>

Logging::Logging() {
    constexpr std::size_t queueLength = 8192;
    spdlog::init_thread_pool(queueLength, 1);

    std::vector<spdlog::sink_ptr> sinks;
    const auto systemLog =
        std::make_shared<spdlog::sinks::syslog_sink_mt>("aquelon", LOG_PID, LOG_USER, true);
    systemLog->set_formatter(std::make_unique<LogFormatter>(""));
    sinks.push_back(systemLog);
    if (isatty(STDERR_FILENO) != 0) {
        const auto terminal = std::make_shared<spdlog::sinks::stderr_sink_mt>();
        terminal->set_formatter(std::make_unique<LogFormatter>("\n"));
        sinks.push_back(terminal);
    }
    const auto logger = std::make_shared<spdlog::async_logger>(
        "aquelon", sinks.begin(), sinks.end(), spdlog::thread_pool(),
        spdlog::async_overflow_policy::overrun_oldest);
    logger->set_level(spdlog::level::debug);
    spdlog::set_default_logger(logger);
}

Logging::~Logging() {
    spdlog::shutdown();
}

#pragma once

#include <spdlog/sinks/base_sink.h>
#include <spdlog/spdlog.h>

#include <memory>
#include <mutex>
#include <string>
#include <vector>

/// Collects what is logged during its life, as "level message", at every level.
class LogCapture {
public:
    LogCapture() : m_before(spdlog::default_logger()), m_sink(std::make_shared<Sink>()) {
        auto logger = std::make_shared<spdlog::logger>("capture", m_sink);
        logger->set_level(spdlog::level::trace);
        spdlog::set_default_logger(std::move(logger));
    }
    ~LogCapture() { spdlog::set_default_logger(m_before); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    const std::vector<std::string>& lines() const { return m_sink->lines; }

private:
    struct Sink : spdlog::sinks::base_sink<std::mutex> {
        std::vector<std::string> lines;

    protected:
        void sink_it_(const spdlog::details::log_msg& msg) override {
            const auto level = spdlog::level::to_string_view(msg.level);
            lines.push_back(std::string(level.data(), level.size()) + ' ' +
                            std::string(msg.payload.data(), msg.payload.size()));
        }
        void flush_() override {}
    };

    std::shared_ptr<spdlog::logger> m_before;
    std::shared_ptr<Sink> m_sink;
};

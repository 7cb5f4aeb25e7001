#pragma once

#include <spdlog/details/log_msg_buffer.h>
#include <spdlog/sinks/sink.h>

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

/// Hands log lines on to other sinks from a thread of its own, so that a slow one holds up nobody
/// who logs. The oldest lines are dropped when it falls too far behind.
///
/// It replaces spdlog's own asynchronous logger, whose thread wakes every 10 s with nothing to do
/// and whose queue fills 3 MB of memory before the first line.
class BackgroundSink : public spdlog::sinks::sink {
public:
    /// `longestQueue` lines are kept at most. The sinks are used by the thread alone and need no
    /// mutex of their own.
    BackgroundSink(std::vector<spdlog::sink_ptr> sinks, std::size_t longestQueue);
    /// Writes what is left.
    ~BackgroundSink() override;
    BackgroundSink(const BackgroundSink&) = delete;
    BackgroundSink& operator=(const BackgroundSink&) = delete;

    void log(const spdlog::details::log_msg& message) override;
    /// Does nothing, since lines are written as soon as possible.
    void flush() override {}
    /// These do nothing, since the sinks bring their formatters with them.
    void set_pattern(const std::string& /*pattern*/) override {}
    void set_formatter(std::unique_ptr<spdlog::formatter> /*formatter*/) override {}

private:
    void write();

    const std::vector<spdlog::sink_ptr> m_sinks;
    const std::size_t m_longestQueue;
    std::mutex m_mutex; ///< guards all that follows but the condition
    std::deque<spdlog::details::log_msg_buffer> m_queue;
    bool m_isEnding = false;
    std::condition_variable m_changed;
    std::thread m_thread;
};

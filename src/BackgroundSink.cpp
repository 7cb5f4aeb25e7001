#include "BackgroundSink.h"

#include <exception>

BackgroundSink::BackgroundSink(std::vector<spdlog::sink_ptr> sinks, std::size_t longestQueue)
    : m_sinks(std::move(sinks)), m_longestQueue(longestQueue) {}

BackgroundSink::~BackgroundSink() {
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_changed.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

void BackgroundSink::log(const spdlog::details::log_msg& message) {
    {
        const std::lock_guard lock(m_mutex);
        if (m_queue.size() == m_longestQueue)
            m_queue.pop_front();
        m_queue.emplace_back(message);
        // The thread waits for the first line, because a second one slows the program's start.
        if (!m_thread.joinable())
            m_thread = std::thread([this] { write(); });
    }
    m_changed.notify_one();
}

void BackgroundSink::write() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_isEnding || !m_queue.empty(); });
        if (m_queue.empty())
            return;
        const spdlog::details::log_msg_buffer message = std::move(m_queue.front());
        m_queue.pop_front();
        lock.unlock();
        try {
            for (const auto& target : m_sinks)
                target->log(message);
        } catch (const std::exception&) {
            // There is nowhere left to say that a line was lost.
        }
        lock.lock();
    }
}

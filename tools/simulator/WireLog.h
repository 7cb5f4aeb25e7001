#pragma once

#include "simulator/WireEvent.h"

#include <chrono>
#include <cstdio>
#include <memory>
#include <span>
#include <string>
#include <vector>

/// Keeps what happened on the lines of all simulated devices, in order, and writes each event at
/// once to a file when there is one.
class WireLog {
public:
    /// Keeps events in memory only; times count from now.
    WireLog();
    /// Writes to a file, "-" for the standard output, as well. Throws std::system_error when the
    /// file cannot be made.
    explicit WireLog(const std::string& path);

    void received(const std::string& port, std::span<const std::uint8_t> bytes, std::string text);
    void sent(const std::string& port, std::span<const std::uint8_t> bytes, std::string text);
    void note(const std::string& port, std::string text);

    const std::vector<WireEvent>& events() const { return m_events; }
    double secondsNow() const;
    /// Events are no longer kept in memory, for runs of hours.
    void setKeepEvents(bool keep) { m_keepEvents = keep; }

private:
    struct CloseFile {
        void operator()(std::FILE* file) const;
    };

    void add(WireEvent event);

    std::chrono::steady_clock::time_point m_start;
    std::unique_ptr<std::FILE, CloseFile> m_file;
    std::vector<WireEvent> m_events;
    bool m_keepEvents = true;
};

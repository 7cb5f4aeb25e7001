#include "simulator/WireLog.h"

#include <cerrno>
#include <system_error>

void WireLog::CloseFile::operator()(std::FILE* file) const {
    if (file != stdout)
        std::fclose(file);
}

WireLog::WireLog() : m_start(std::chrono::steady_clock::now()) {}

WireLog::WireLog(const std::string& path) : WireLog() {
    m_file.reset(path == "-" ? stdout : std::fopen(path.c_str(), "we"));
    if (!m_file)
        throw std::system_error(errno, std::generic_category(), path);
}

double WireLog::secondsNow() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
}

void WireLog::received(const std::string& port, std::span<const std::uint8_t> bytes,
                       std::string text) {
    add({secondsNow(),
         port,
         WireEvent::Kind::Received,
         {bytes.begin(), bytes.end()},
         std::move(text)});
}

void WireLog::sent(const std::string& port, std::span<const std::uint8_t> bytes, std::string text) {
    add({secondsNow(), port, WireEvent::Kind::Sent, {bytes.begin(), bytes.end()}, std::move(text)});
}

void WireLog::note(const std::string& port, std::string text) {
    add({secondsNow(), port, WireEvent::Kind::Note, {}, std::move(text)});
}

void WireLog::add(WireEvent event) {
    if (m_file) {
        std::fprintf(m_file.get(), "%s\n", event.toLine().c_str());
        std::fflush(m_file.get());
    }
    if (m_keepEvents)
        m_events.push_back(std::move(event));
}

#include "workflows/SessionTrace.h"

#include "yprotocoll/link/YMessageController.h"

#include <spdlog/details/null_mutex.h>
#include <spdlog/sinks/base_sink.h>
#include <spdlog/spdlog.h>

#include <QDateTime>
#include <QMetaMethod>

#include <algorithm>
#include <functional>
#include <thread>
#include <utility>

namespace {

using Receive = std::function<void(const spdlog::details::log_msg&)>;

/// Hands on the lines of the thread that made it.
class ReceivingSink : public spdlog::sinks::base_sink<spdlog::details::null_mutex> {
public:
    explicit ReceivingSink(Receive receive) : m_receive(std::move(receive)) {}

protected:
    void sink_it_(const spdlog::details::log_msg& message) override {
        if (std::this_thread::get_id() == m_thread)
            m_receive(message);
    }
    void flush_() override {}

private:
    const Receive m_receive;
    const std::thread::id m_thread = std::this_thread::get_id();
};

} // namespace

SessionTrace::SessionTrace(YMessageController& controller, QObject* parent) : QObject(parent) {
    connect(&controller, &YMessageController::written, this,
            [this](const std::string& command, std::span<const std::uint8_t> bytes) {
                add(Clock::now(), "-> " + command, bytes);
            });
    connect(&controller, &YMessageController::received, this,
            [this](std::span<const std::uint8_t> bytes) { add(Clock::now(), "<-", bytes); });
    m_sink = std::make_shared<ReceivingSink>([this](const spdlog::details::log_msg& message) {
        std::string level(spdlog::level::to_string_view(message.level).data());
        std::ranges::transform(level, level.begin(), [](char letter) {
            return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
        });
        add(message.time,
            level + ' ' + std::string(message.payload.data(), message.payload.size()));
    });
    spdlog::default_logger()->sinks().push_back(m_sink);
}

SessionTrace::~SessionTrace() {
    std::erase(spdlog::default_logger()->sinks(), m_sink);
}

void SessionTrace::add(Clock::time_point time, std::string text,
                       std::span<const std::uint8_t> bytes) {
    m_lines.append({time, std::move(text), {bytes.begin(), bytes.end()}});
    if (isSignalConnected(QMetaMethod::fromSignal(&SessionTrace::added)))
        Q_EMIT added(textOf(m_lines.last()));
}

QString SessionTrace::textOf(const Line& line) {
    const auto sinceEpoch =
        std::chrono::duration_cast<std::chrono::milliseconds>(line.time.time_since_epoch());
    QString text = QDateTime::fromMSecsSinceEpoch(sinceEpoch.count())
                       .toString(QStringLiteral("HH:mm:ss.zzz ")) +
                   QString::fromStdString(line.text);
    if (!line.bytes.empty())
        text +=
            u' ' + QString::fromLatin1(QByteArray(reinterpret_cast<const char*>(line.bytes.data()),
                                                  static_cast<qsizetype>(line.bytes.size()))
                                           .toHex(' '));
    return text;
}

QStringList SessionTrace::lines() const {
    QStringList lines;
    for (qsizetype index = m_lines.firstIndex(); index <= m_lines.lastIndex(); ++index)
        lines += textOf(m_lines.at(index));
    return lines;
}

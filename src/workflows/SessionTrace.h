#pragma once

#include <QContiguousCache>
#include <QObject>
#include <QStringList>

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class YMessageController;

namespace spdlog::sinks {
class sink;
}

/// The last lines of the log, and of what went over the line to the controller, for whoever has to
/// find out what went wrong. Always kept, so it is cheap: lines become texts only when asked for.
///
///     06:28:24.574 -> CmdGetVersion 59 01 00 01
///     06:28:24.575 <- 59 02 04 01 04 11 01 13
///     06:28:24.575 INFO device version 1.4
class SessionTrace : public QObject {
    Q_OBJECT

public:
    static constexpr int most = 500; ///< lines kept

    /// From now on; `controller` must outlive this. The log is that of the main thread.
    explicit SessionTrace(YMessageController& controller, QObject* parent = nullptr);
    ~SessionTrace() override;

    QStringList lines() const; ///< the oldest first

Q_SIGNALS:
    void added(const QString& line);

private:
    using Clock = std::chrono::system_clock;
    struct Line {
        Clock::time_point time;
        std::string text;
        std::vector<std::uint8_t> bytes;
    };

    void add(Clock::time_point time, std::string text, std::span<const std::uint8_t> bytes = {});
    static QString textOf(const Line& line);

    QContiguousCache<Line> m_lines{most}; ///< the oldest make room
    std::shared_ptr<spdlog::sinks::sink> m_sink;
};

#include "BackgroundSink.h"

#include <gtest/gtest.h>

#include <future>
#include <string>

namespace {

/// Keeps the lines; the first one is held up until it is let go.
class SlowSink : public spdlog::sinks::sink {
public:
    void log(const spdlog::details::log_msg& message) override {
        if (lines.empty()) {
            reached.set_value();
            letGo.get_future().wait();
        }
        lines.emplace_back(message.payload.data(), message.payload.size());
    }
    void flush() override {}
    void set_pattern(const std::string& /*pattern*/) override {}
    void set_formatter(std::unique_ptr<spdlog::formatter> /*formatter*/) override {}

    std::promise<void> reached;
    std::promise<void> letGo;
    std::vector<std::string> lines;
};

TEST(BackgroundSink, holdsNobodyUpAndDropsTheOldest) {
    const auto slow = std::make_shared<SlowSink>();
    {
        BackgroundSink sink({slow}, 3);
        const auto log = [&](int number) {
            const std::string line = "line " + std::to_string(number);
            sink.log(spdlog::details::log_msg("test", spdlog::level::info, line));
        };
        log(1);
        slow->reached.get_future().wait();
        for (int number = 2; number <= 9; ++number)
            log(number);
        slow->letGo.set_value();
    }
    EXPECT_EQ(slow->lines, (std::vector<std::string>{"line 1", "line 7", "line 8", "line 9"}));
}

} // namespace

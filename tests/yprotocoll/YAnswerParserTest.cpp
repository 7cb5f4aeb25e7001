#include "yprotocoll/YAnswerParser.h"

#include <gtest/gtest.h>

namespace {

using Bytes = std::vector<std::uint8_t>;
using Story = std::vector<std::string>;

/// What the parser told, in order.
struct Recorder : YAnswerParserDelegate {
    virtual ~Recorder() = default;
    Story story;
    void answerParserGotAnswer(std::shared_ptr<const YAnswer> answer) override {
        story.push_back(answer->description());
    }
    void answerParserGotError(const YMessageError& error) override {
        story.push_back(error.description());
    }
};

Bytes frame(std::uint8_t id, Bytes payload) {
    return YMessage("Answer", id, std::move(payload)).frame();
}

Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Story parse(const std::vector<Bytes>& chunks) {
    YAnswerParser parser;
    Recorder recorder;
    parser.setDelegate(&recorder);
    for (const Bytes& chunk : chunks)
        parser.receivedData(chunk);
    return recorder.story;
}

const Bytes version = frame(2, {1, 4, 17});
const std::string versionText = "AnswerVersion #2 [01 04 11]";
const Bytes buffer = frame(73, {64, 60});
const std::string bufferText = "AnswerBufferInfo #73 [40 3c]";
const std::string noStart = "packet must start with 'Y'";
const std::string badChecksum = "checksum doesn't match";

TEST(YAnswerParser, findsItsWayThroughNoise) {
    const struct {
        std::vector<Bytes> chunks;
        Story story;
    } rows[] = {
        {{Bytes{1, 2, 3, 'Y'} + Bytes{0, 0, 0} + version},
         {noStart, "unknown answer #0", versionText}},
        // A false start costs the length it announces.
        {{Bytes{'Y', 45, 20} + version + version, version + version}, {badChecksum, versionText}},
        {{frame(73, {1}) + buffer}, {"AnswerBufferInfo: wrong packet length: 1", bufferText}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(parse(row.chunks), row.story);
}

// A parser that moves its buffer for every byte it drops needs minutes for this, and the test's
// time limit ends it.
TEST(YAnswerParser, longNoiseCostsLinearTime) {
    constexpr std::size_t size = 4U << 20U;
    EXPECT_EQ(parse({Bytes(size, 0), version}), (Story{noStart, noStart, versionText}));
}

} // namespace

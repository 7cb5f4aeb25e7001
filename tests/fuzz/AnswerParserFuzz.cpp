#include "yprotocoll/YAnswerParser.h"

#include "fuzz/Fuzz.h"

#include <algorithm>
#include <optional>

// Input: event at which the delegate resets the parser, 0 for none | count of chunk sizes |
// the sizes, used over and over | the stream.

namespace {

/// One report to the delegate: a frame that was decoded, or an error.
struct Event {
    Bytes frame;
    std::optional<YMessageError> error;
    bool operator==(const Event&) const = default;
};
using Story = std::vector<Event>;

struct Listener : YAnswerParserDelegate {
    Listener() { parser.setDelegate(this); }
    virtual ~Listener() = default;
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    void feed(View stream, View chunkSizes = {}) {
        for (std::size_t index = 0; !stream.empty(); ++index) {
            std::size_t size = stream.size();
            if (!chunkSizes.empty())
                size = std::clamp<std::size_t>(chunkSizes[index % chunkSizes.size()], 1, size);
            parser.receivedData(stream.first(size));
            stream = stream.subspan(size);
        }
    }

    void answerParserGotAnswer(std::shared_ptr<const YAnswer> answer) override {
        tell({answer->frame(), {}});
    }
    void answerParserGotError(const YMessageError& error) override { tell({{}, error}); }

    YAnswerParser parser;
    Story story;
    std::size_t reports = 0;
    std::size_t resetAt = 0;

private:
    void tell(Event event) {
        // How often noise is reported depends on the chunks it comes in; that it is, does not.
        const bool isNoise = event.error && event.error->is<YMessageError::PacketStart>();
        if (!isNoise || story.empty() || story.back() != event)
            story.push_back(std::move(event));
        if (++reports == resetAt)
            parser.reset();
    }
};

/// Completes whatever waits for more, with an answer after it.
const Bytes& tail() {
    static const Bytes bytes = [] {
        Bytes made(YMessage::maxDataLength + 4);
        const Bytes answer = YMessage("AnswerVersion", 2, {1, 4, 17}).frame();
        made.insert(made.end(), answer.begin(), answer.end());
        return made;
    }();
    return bytes;
}

void requireTailFound(Listener& listener) {
    listener.resetAt = 0;
    listener.feed(tail());
    const Bytes answer = YMessage("AnswerVersion", 2, {1, 4, 17}).frame();
    require(!listener.story.empty() && listener.story.back().frame == answer,
            "after one false frame at most an answer is found");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteFeed feed(data, size);
    const std::size_t resetAt = feed.byte();
    const View chunkSizes = feed.bytes(feed.byte());
    const View stream = feed.rest();

    Listener whole;
    whole.feed(stream);
    Listener chunked;
    chunked.feed(stream, chunkSizes);
    require(whole.story == chunked.story, "a stream tells the same in any chunks");
    requireTailFound(chunked);

    if (resetAt > 0) {
        Listener resetting;
        resetting.resetAt = resetAt;
        resetting.feed(stream);
        requireTailFound(resetting);
    }
    return 0;
}

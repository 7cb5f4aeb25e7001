#include "yprotocoll/YAnswerParser.h"

#include "fuzz/Fuzz.h"

#include <algorithm>
#include <functional>
#include <numeric>
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

/// How often noise is reported depends on the chunks it comes in; that it is, does not.
void add(std::vector<Event>& story, Event event) {
    const bool isNoise = event.error && event.error->is<YMessageError::PacketStart>();
    if (!isNoise || story.empty() || story.back() != event)
        story.push_back(std::move(event));
}

/// What a stream tells, found without a buffer, and the bytes that wait for more at its end.
struct Expected {
    std::vector<Event> story;
    View kept;
};

Event outcomeOf(View frame) {
    // Apart from the decoder, since exceptions are what costs most here.
    if (std::accumulate(frame.begin() + 1, frame.end(), 0U, std::bit_xor<>{}) != 0)
        return {{}, YMessageError::Checksum{}};
    try {
        return {YAnswer::fromFrame(frame)->frame(), {}};
    } catch (const YMessageError& error) {
        return {{}, error};
    }
}

Expected expect(View stream) {
    Expected expected;
    while (stream.size() >= 4) {
        std::size_t consumed = 1;
        if (stream[0] != 'Y') {
            while (consumed + 1 < stream.size() && stream[consumed] != 'Y')
                ++consumed;
            add(expected.story, {{}, YMessageError::PacketStart{}});
        } else {
            consumed = stream[2] + std::size_t{4};
            if (consumed > stream.size())
                break;
            add(expected.story, outcomeOf(stream.first(consumed)));
        }
        stream = stream.subspan(consumed);
    }
    expected.kept = stream;
    return expected;
}

struct Listener : YAnswerParserDelegate {
    explicit Listener(bool listens = true) {
        if (listens)
            parser.setDelegate(this);
    }
    virtual ~Listener() = default;
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Chunks may be empty, but then the next one has a byte at least.
    void feed(View stream, View chunkSizes = {}) {
        for (std::size_t index = 0; !stream.empty(); ++index) {
            std::size_t size = stream.size();
            if (!chunkSizes.empty())
                size = std::min<std::size_t>(size, chunkSizes[index % chunkSizes.size()]);
            parser.receivedData(stream.first(size));
            if (size == 0)
                parser.receivedData(stream.first(size = 1));
            stream = stream.subspan(size);
        }
    }

    void answerParserGotAnswer(std::shared_ptr<const YAnswer> answer) override {
        tell({answer->frame(), {}});
    }
    void answerParserGotError(const YMessageError& error) override { tell({{}, error}); }

    YAnswerParser parser;
    std::vector<Event> story;
    std::size_t reports = 0;
    std::size_t resetAt = 0;

private:
    void tell(Event event) {
        add(story, std::move(event));
        if (++reports == resetAt)
            parser.reset();
    }
};

Bytes operator+(View left, View right) {
    Bytes bytes(left.begin(), left.end());
    bytes.insert(bytes.end(), right.begin(), right.end());
    return bytes;
}

/// Completes the frame that waits, and holds one of its own that must be found.
Bytes tailFor(View kept) {
    std::size_t missing = 0;
    if (!kept.empty() && kept[0] == 'Y')
        missing = (kept.size() < 3 ? 0 : kept[2]) + std::size_t{4} - kept.size();
    return Bytes(missing) + YMessage("AnswerVersion", 2, {1, 4, 17}).frame();
}

void checkReset(View stream, std::size_t resetAt, View tail) {
    Listener listener;
    listener.resetAt = resetAt;
    listener.feed(stream);
    if (listener.reports < resetAt)
        return;
    require(listener.reports == resetAt, "a reset from within a report ends the chunk");
    listener.story.clear();
    listener.feed(tail);
    require(listener.story == expect(tail).story, "nothing is left after a reset");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteFeed feed(data, size);
    const std::size_t resetAt = feed.byte();
    const View chunkSizes = feed.bytes(feed.byte());
    const View stream = feed.rest();

    const Expected expected = expect(stream);
    const Bytes tail = tailFor(expected.kept);
    const std::vector<Event> tailStory = expect(expected.kept + tail).story;
    std::vector<Event> wholeStory = expected.story;
    for (const Event& event : tailStory)
        add(wholeStory, event);
    for (const View sizes : {View{}, chunkSizes}) {
        Listener listener;
        listener.feed(stream, sizes);
        require(listener.story == expected.story, "a stream tells the same in any chunks");
        listener.feed(tail, sizes);
        require(listener.story == wholeStory, "no byte is lost and none comes twice");
    }

    Listener deaf(false);
    deaf.feed(stream);
    deaf.parser.setDelegate(&deaf);
    deaf.feed(tail);
    require(deaf.story == tailStory, "without a delegate the same bytes are consumed");

    if (resetAt > 0)
        checkReset(stream, resetAt, tail);
    return 0;
}

// Frames made and taken apart, against the least that any program must do with the same bytes.

#include "Benches.h"
#include "Measure.h"
#include "Table.h"
#include "yprotocoll/SequenceEntry.h"
#include "yprotocoll/YAnswerParser.h"
#include "yprotocoll/YCommands.h"

#include <benchmark/benchmark.h>

#include <numeric>
#include <random>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int batch = 1000; ///< one by one they are too short for the clock
constexpr int batches = 200;

class Counter final : public YAnswerParserDelegate {
public:
    std::size_t answers = 0;
    std::size_t errors = 0;
    void answerParserGotAnswer(std::shared_ptr<const YAnswer> /*answer*/) override { ++answers; }
    void answerParserGotError(const YMessageError& /*error*/) override { ++errors; }
};

/// A channel's program of 20 entries, as it is answered.
Bytes answerFrame() {
    Bytes data{1};
    for (std::uint8_t i = 0; i < 20; ++i)
        data.insert(data.end(), {i, 30, static_cast<std::uint8_t>(10 * i)});
    return YMessage("AnswerSequenceData", 47, data).frame();
}

/// A copy with its checksum: what a frame costs at the least.
Bytes copyWithChecksum(const Bytes& data) {
    Bytes copy = data;
    copy.push_back(std::accumulate(data.begin(), data.end(), std::uint8_t{0}, std::bit_xor<>()));
    return copy;
}

/// Times `work` and `floor` in turns, `batch` of each; microseconds for one.
template <typename Work, typename Floor>
void measure(benchmark::State& state, const char* what, Work work, Floor floor) {
    const auto repeat = [](auto& one) {
        for (int i = 0; i < batch; ++i)
            one();
    };
    Samples ours;
    Samples least;
    for (auto _ : state) {
        ours.add(milliseconds([&] { repeat(work); }) * 1000.0 / batch);
        least.add(milliseconds([&] { repeat(floor); }) * 1000.0 / batch);
    }
    Table::add(
        {what, "us", ours.median(), least.median(), "a copy with its checksum", Promise::none()});
}

void encode(benchmark::State& state) {
    const std::vector<SequenceEntry> entries(20, SequenceEntry{12, 30, 100});
    const Bytes data(62, 100);
    measure(
        state, "command of 20 entries: made and encoded",
        [&] {
            auto frame = CmdSetSequenceData(1, entries, {}).frame();
            benchmark::DoNotOptimize(frame.data());
        },
        [&] {
            auto copy = copyWithChecksum(data);
            benchmark::DoNotOptimize(copy.data());
        });
}

void parse(benchmark::State& state) {
    const Bytes frame = answerFrame();
    YAnswerParser parser;
    Counter counter;
    parser.setDelegate(&counter);
    measure(
        state, "answer of 20 entries: parsed and decoded", [&] { parser.receivedData(frame); },
        [&] {
            auto copy = copyWithChecksum(frame);
            benchmark::DoNotOptimize(copy.data());
        });
    if (counter.answers != static_cast<std::size_t>(batch) * batches)
        state.SkipWithError("the answers were not understood");
}

void parseGarbage(benchmark::State& state) {
    constexpr std::size_t chunkSize = 4096; // as much as the system hands over at once
    std::mt19937 random(1);
    Bytes garbage(std::size_t{1} << 20);
    for (std::uint8_t& byte : garbage)
        byte = static_cast<std::uint8_t>(random());
    YAnswerParser parser;
    Counter counter;
    parser.setDelegate(&counter);
    Samples ours;
    Samples floor;
    for (auto _ : state) {
        ours.add(milliseconds([&] {
            for (std::size_t at = 0; at < garbage.size(); at += chunkSize)
                parser.receivedData(std::span(garbage).subspan(at, chunkSize));
        }));
        floor.add(milliseconds([&] {
            auto copy = copyWithChecksum(garbage);
            benchmark::DoNotOptimize(copy.data());
        }));
    }
    Table::add({"a megabyte of garbage parsed", "ms", ours.median(), floor.median(),
                "a copy with its checksum", Promise::none()});
    if (counter.errors == 0)
        state.SkipWithError("garbage was not noticed");
}

} // namespace

void registerProtocolBenches() {
    benchmark::RegisterBenchmark("encode", encode)->Iterations(batches);
    benchmark::RegisterBenchmark("parse", parse)->Iterations(batches);
    benchmark::RegisterBenchmark("parse garbage", parseGarbage)->Iterations(20);
}

// From the start of the process to its first picture, the program and an empty window in turns.

#include "Benches.h"
#include "Measure.h"
#include "ProgramRun.h"
#include "Table.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int runs = 25;

ProgramCall program(const std::string& platform) {
    return {{AQUELON_PROGRAM}, platform};
}

ProgramCall emptyWindow(const std::string& platform) {
    return {{EMPTY_WINDOW_PROGRAM}, platform};
}

void start(benchmark::State& state, const std::string& platform) {
    Samples ours;
    Samples empty;
    runToFirstPaint(program(platform)); // the files are in memory from here on
    runToFirstPaint(emptyWindow(platform));
    for (auto _ : state) {
        ours.add(runToFirstPaint(program(platform)));
        empty.add(runToFirstPaint(emptyWindow(platform)));
    }
    Table::add({"start to first paint, " + platform, "ms", ours.median(), empty.median(),
                "an empty window", Promise::timesFloor(1.5)});
}

void instructions(benchmark::State& state) {
    const std::string folder = PROFILE_FOLDER;
    for (auto _ : state) {
        const auto ours = instructionsToFirstPaint(program("offscreen"), folder + "/aquelon.cg");
        const auto empty =
            instructionsToFirstPaint(emptyWindow("offscreen"), folder + "/empty-window.cg");
        Table::add({"instructions from start to first paint, offscreen", "M",
                    static_cast<double>(ours) / 1e6, static_cast<double>(empty) / 1e6,
                    "an empty window", Promise::atMost(150.0)});
    }
}

} // namespace

void registerStartBenches() {
    for (const std::string platform : {"offscreen", "xcb"})
        benchmark::RegisterBenchmark(("start, " + platform).c_str(), [platform](
                                                                         benchmark::State& state) {
            start(state, platform);
        })->Iterations(runs);
    benchmark::RegisterBenchmark("instructions", instructions)->Iterations(1);
}

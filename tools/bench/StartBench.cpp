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

ProgramCall blankWindow(const std::string& platform) {
    return {{EMPTY_WINDOW_PROGRAM, "--blank"}, platform};
}

struct StartTimes {
    void add(const FirstPaint& shown) {
        clock.add(shown.clock);
        processor.add(shown.processor);
    }
    Samples clock;
    Samples processor;
};

void start(benchmark::State& state, const std::string& platform) {
    StartTimes ours;
    StartTimes empty;
    StartTimes blank;
    runToFirstPaint(program(platform)); // the files are in memory from here on
    runToFirstPaint(emptyWindow(platform));
    for (auto _ : state) {
        ours.add(runToFirstPaint(program(platform)));
        empty.add(runToFirstPaint(emptyWindow(platform)));
        blank.add(runToFirstPaint(blankWindow(platform)));
    }
    const std::string name = "start to first paint, " + platform;
    Table::add({name, "ms", ours.clock.median(), empty.clock.median(), "an empty window",
                Promise::timesFloor(1.5)});
    Table::add({name + ", of which on a processor", "ms", ours.processor.median(),
                empty.processor.median(), "an empty window", Promise::timesFloor(1.5)});
    Table::add({"  the empty window itself, " + platform, "ms", empty.clock.median(),
                blank.clock.median(), "a window without a letter", Promise::none()});
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

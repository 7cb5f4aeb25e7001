// What the program takes while nothing happens: memory and wake-ups.

#include "Benches.h"
#include "ProgramRun.h"
#include "Table.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <stdexcept>
#include <thread>

using namespace std::chrono_literals;

namespace {

constexpr auto settling = 3s;
constexpr auto observation = 10s;
constexpr double scansWithin = 5.0; ///< one every 2 s looks for a controller
const std::string platform = "xcb";

void waitForText(const std::string& path, const std::string& text) {
    for (int i = 0; i < 300; ++i) {
        std::ifstream file(path);
        for (std::string line; std::getline(file, line);)
            if (line.find(text) != std::string::npos)
                return;
        std::this_thread::sleep_for(100ms);
    }
    throw std::runtime_error("no " + text + " in " + path);
}

struct Idle {
    double megabytes;
    double wakeUps;
};

Idle observe(const RunningProgram& program) {
    std::this_thread::sleep_for(settling);
    const auto before = program.wakeUps();
    std::this_thread::sleep_for(observation);
    return {program.residentMegabytes(), static_cast<double>(program.wakeUps() - before)};
}

void idleAlone(benchmark::State& state) {
    for (auto _ : state) {
        const RunningProgram empty({{EMPTY_WINDOW_PROGRAM}, platform});
        const RunningProgram program({{AQUELON_PROGRAM}, platform});
        const Idle idle = observe(program);
        Table::add({"memory while idle, not connected", "MB", idle.megabytes,
                    empty.residentMegabytes(), "an empty window", Promise::atMost(45.0)});
        Table::add({"wake-ups in 10 s, not connected", "", idle.wakeUps, 0.0, "",
                    Promise::atMost(scansWithin)});
    }
}

void idleConnected(benchmark::State& state) {
    const std::string log = PROFILE_FOLDER "/idle.log";
    for (auto _ : state) {
        std::ofstream(log, std::ios::trunc).close();
        const RunningProgram empty({{EMPTY_WINDOW_PROGRAM}, platform});
        const RunningProgram program(
            {{SIMULATOR_PROGRAM, "--log", log, "--", AQUELON_PROGRAM}, platform});
        waitForText(log, "AnswerSequenceDataInfo");
        const Idle idle = observe(program);
        Table::add({"memory while idle, connected", "MB", idle.megabytes, empty.residentMegabytes(),
                    "an empty window", Promise::atMost(45.0)});
        Table::add({"wake-ups in 10 s, connected", "", idle.wakeUps, 0.0, "",
                    Promise::atMost(scansWithin)});
    }
}

} // namespace

void registerIdleBenches() {
    benchmark::RegisterBenchmark("idle, not connected", idleAlone)->Iterations(1);
    benchmark::RegisterBenchmark("idle, connected", idleConnected)->Iterations(1);
}

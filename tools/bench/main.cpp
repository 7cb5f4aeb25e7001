// Measures what is promised of the program's speed and prints one table; ./bench starts it.

#include "Benches.h"
#include "Table.h"

#include <benchmark/benchmark.h>
#include <spdlog/sinks/null_sink.h>
#include <spdlog/spdlog.h>

#include <QApplication>

#include <cstdio>

namespace {

/// Says what is being measured; the results stand in the table.
class Progress : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            std::fprintf(stderr, "%s\n", run.benchmark_name().c_str());
    }
};

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    spdlog::set_default_logger(spdlog::null_logger_mt("bench"));
    spdlog::set_level(spdlog::level::debug);

    registerStartBenches();
    registerIdleBenches();
    registerPaintBenches();
    registerDragBenches();
    registerDemoBenches();
    registerTransferBenches();
    registerTurnRoundBenches();
    Progress progress;
    benchmark::RunSpecifiedBenchmarks(&progress);
    return Table::print() ? 0 : 1;
}

#include <gtest/gtest.h>

#include <QProcess>

#include <poll.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace {

constexpr int limit = 10'000; // milliseconds that anything may take

/// The simulator with a shell under it.
struct SimulatorRun {
    SimulatorRun(const char* options, const QString& script) {
        process.start(QStringLiteral(SIMULATOR_PROGRAM),
                      QString::fromUtf8(options).split(u' ', Qt::SkipEmptyParts) +
                          QStringList{QStringLiteral("--"), QStringLiteral("sh"),
                                      QStringLiteral("-c"), script});
    }
    int exitStatus() {
        EXPECT_TRUE(process.waitForFinished(limit));
        return process.exitCode();
    }

    QProcess process; ///< killed at its end
};

TEST(SimulatorProgram, showsTheDevicesItWasAskedForToItsProgramOnly) {
    const struct {
        const char* options;
        const char* seen; ///< ports with the number of their USB product
    } rows[] = {
        {"--name ttyUSB0", "ttyUSB0 0c24 "},
        {"--name ttyUSB0 --no-device --foreign --builtin", "ttyS0 ttyUSB1 6001 "},
    };
    for (const auto& row : rows) {
        // Looks until it sees what it should; the limit ends it otherwise.
        SimulatorRun run(row.options, QStringLiteral(R"sh(
            look() {
                for tty in /sys/class/tty/*; do
                    printf '%s ' "${tty##*/}"
                    [ -c "/dev/${tty##*/}" ] || printf '(no device file) '
                    cat "$tty"/../../../../idProduct 2>/dev/null | tr '\n' ' '
                done
            }
            while [ "$(look)" != "%1" ]; do :; done; exit 7)sh")
                                          .arg(QLatin1String(row.seen)));
        EXPECT_EQ(run.exitStatus(), 7) << row.options;
    }
}

TEST(SimulatorProgram, programDoesNotOutliveIt) {
    for (const int number : {SIGTERM, SIGKILL}) {
        // Simulator and program both inherit the writing end; it hangs up when both are gone.
        std::array<int, 2> ends{};
        ASSERT_EQ(::pipe(ends.data()), 0);
        SimulatorRun run("", QStringLiteral("echo ready; exec sleep 600"));
        EXPECT_TRUE(run.process.waitForReadyRead(limit));
        ::close(ends[1]);
        pollfd poller{ends[0], 0, 0};
        EXPECT_EQ(::poll(&poller, 1, 0), 0);
        ::kill(static_cast<pid_t>(run.process.processId()), number);
        EXPECT_EQ(::poll(&poller, 1, limit), 1);
        EXPECT_EQ(run.exitStatus(), number == SIGTERM ? 128 + SIGTERM : SIGKILL);
        ::close(ends[0]);
    }
}

} // namespace

#include "simulator/WireEvent.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>

#include <poll.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace {

constexpr int limit = 10'000; // milliseconds that anything may take

const QString simulator = QStringLiteral(SIMULATOR_PROGRAM);
const QString probe = QStringLiteral(PROBE_PROGRAM);
const QString versionText = QStringLiteral(" 59 02 04 01 04 11 01 13");

/// The simulator with the probe under it.
class SimulatorRun {
public:
    explicit SimulatorRun(const QStringList& options, const QStringList& program = {probe}) {
        m_process.setProcessChannelMode(QProcess::SeparateChannels);
        m_process.start(simulator, options + QStringList{QStringLiteral("--")} + program);
    }
    ~SimulatorRun() {
        m_process.kill();
        m_process.waitForFinished(limit);
    }
    SimulatorRun(const SimulatorRun&) = delete;
    SimulatorRun& operator=(const SimulatorRun&) = delete;

    /// The next line the probe says; empty when it says nothing more.
    QString line() {
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(limit))
                return {};
        }
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }
    QStringList linesUntilReady() {
        QStringList lines;
        for (QString text = line(); text != QLatin1String("ready"); text = line()) {
            if (text.isEmpty())
                return {QStringLiteral("never ready")};
            lines.append(text);
        }
        return lines;
    }
    /// Ends the probe's input and returns the simulator's exit status.
    int end() {
        m_process.closeWriteChannel();
        m_process.waitForFinished(limit);
        return m_process.exitCode();
    }
    QString errorOutput() { return QString::fromUtf8(m_process.readAllStandardError()); }
    QProcess& process() { return m_process; }

private:
    QProcess m_process;
};

class Control {
public:
    explicit Control(const QString& path) : m_path(path) {}
    QString operator()(const QString& command) const {
        QLocalSocket socket;
        socket.connectToServer(m_path);
        socket.write(command.toUtf8() + '\n');
        while (!socket.canReadLine() && socket.waitForReadyRead(limit)) {
        }
        return QString::fromUtf8(socket.readLine()).trimmed();
    }

private:
    QString m_path;
};

QStringList words(const char* text) {
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

TEST(SimulatorProgram, showsTheDevicesItWasAskedFor) {
    const struct {
        const char* options;
        QStringList seen;
    } cases[] = {
        {"",
         {QStringLiteral("present ttyUSB0 controller"),
          QStringLiteral("version ttyUSB0") + versionText}},
        {"--pace --name ttyUSB7 --firmware 2.0 --device-type none",
         {QStringLiteral("present ttyUSB7 controller"),
          QStringLiteral("version ttyUSB7 59 02 03 02 00 11 12")}},
        {"--no-device --foreign --builtin",
         {QStringLiteral("present ttyS0"), QStringLiteral("present ttyUSB1")}},
        {"--usb-id 7a51:0c25", {QStringLiteral("present ttyUSB0")}},
    };
    for (const auto& c : cases) {
        SimulatorRun run(words(c.options));
        QStringList seen = run.linesUntilReady();
        seen.sort();
        EXPECT_EQ(seen, c.seen) << c.options << ": " << qPrintable(seen.join(QLatin1Char('|')));
        EXPECT_EQ(run.end(), 0) << run.errorOutput().toStdString();
    }
}

TEST(SimulatorProgram, pullsAndPlugsTheCableOnDemand) {
    const QTemporaryDir folder;
    const QString log = folder.filePath(QStringLiteral("wire.log"));
    const Control control(folder.filePath(QStringLiteral("control")));
    SimulatorRun run({QStringLiteral("--log"), log, QStringLiteral("--control"),
                      folder.filePath(QStringLiteral("control"))},
                     {probe, QStringLiteral("7")});
    EXPECT_EQ(run.linesUntilReady().size(), 2);
    EXPECT_EQ(control(QStringLiteral("sequence 1 06:30=10 20:00=254")), QStringLiteral("ok"));

    // Under the same name twice, then under another.
    for (const char* name : {"ttyUSB0", "ttyUSB0", "ttyUSB5"}) {
        EXPECT_EQ(control(QStringLiteral("unplug")), QStringLiteral("ok"));
        QStringList lines{run.line(), run.line()};
        lines.sort(); // the two ways of noticing race
        EXPECT_EQ(lines[0], QStringLiteral("hangup"));
        EXPECT_TRUE(lines[1].startsWith(QStringLiteral("remove ttyUSB"))) << qPrintable(lines[1]);
        EXPECT_EQ(control(QStringLiteral("plug ") + QLatin1String(name)), QStringLiteral("ok"));
        EXPECT_EQ(run.line(), QStringLiteral("add ") + QLatin1String(name));
        EXPECT_EQ(run.line(), QStringLiteral("version ") + QLatin1String(name) + versionText);
    }
    EXPECT_TRUE(control(QStringLiteral("unplug ttyUSB9")).startsWith(QStringLiteral("error: ")));
    EXPECT_TRUE(control(QStringLiteral("fault nonsense")).startsWith(QStringLiteral("error: ")));

    const auto status = QJsonDocument::fromJson(control(QStringLiteral("status")).toUtf8());
    const QJsonObject device = status[QStringLiteral("devices")][0].toObject();
    EXPECT_EQ(device[QStringLiteral("name")].toString(), QStringLiteral("ttyUSB5"));
    EXPECT_EQ(device[QStringLiteral("commands")][QStringLiteral("CmdGetVersion")].toInt(), 4);
    EXPECT_EQ(device[QStringLiteral("channels")][1].toArray().last().toString(),
              QStringLiteral("20:00=254"));
    EXPECT_EQ(run.end(), 7);

    QFile file(log);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    int commands = 0;
    for (const QByteArray& text : file.readAll().split('\n')) {
        const auto event = WireEvent::fromLine(text.toStdString());
        if (event && event->text == "CmdGetVersion")
            ++commands;
    }
    EXPECT_EQ(commands, 4);
}

TEST(SimulatorProgram, pullsTheCableAtItsTime) {
    SimulatorRun run(words("--unplug-at 0.3 --plug-at 0.6:ttyUSB3"));
    EXPECT_EQ(run.linesUntilReady().size(), 2);
    QStringList lines{run.line(), run.line()};
    EXPECT_TRUE(lines.contains(QStringLiteral("remove ttyUSB0")));
    EXPECT_EQ(run.line(), QStringLiteral("add ttyUSB3"));
}

TEST(SimulatorProgram, programDoesNotOutliveIt) {
    for (const int number : {SIGTERM, SIGKILL}) {
        // Simulator and program both inherit the writing end; it hangs up when both are gone.
        std::array<int, 2> ends{};
        ASSERT_EQ(::pipe(ends.data()), 0);
        SimulatorRun run({}, {QStringLiteral("sh"), QStringLiteral("-c"),
                              QStringLiteral("echo ready; exec sleep 600")});
        EXPECT_TRUE(run.linesUntilReady().isEmpty());
        ::close(ends[1]);
        pollfd poller{ends[0], 0, 0};
        EXPECT_EQ(::poll(&poller, 1, 0), 0);
        ::kill(static_cast<pid_t>(run.process().processId()), number);
        EXPECT_EQ(::poll(&poller, 1, limit), 1);
        EXPECT_TRUE(run.process().waitForFinished(limit));
        EXPECT_EQ(run.process().exitCode(), number == SIGTERM ? 128 + SIGTERM : SIGKILL);
        ::close(ends[0]);
    }
}

TEST(SimulatorProgram, saysWhatIsWrong) {
    const struct {
        const char* options;
        const char* program;
        int status;
        const char* text;
    } cases[] = {
        {"--channels many", "true", 2, "--channels takes a number"},
        {"--fault silense", "true", 2, "unknown fault: silense"},
        {"--firmware 1", "true", 2, "MAJOR.MINOR"},
        {"--usb-id 7a51", "true", 2, "VENDOR:PRODUCT"},
        {"--log /nonexistent/log", "true", 1, "/nonexistent/log"},
        {"", "", 2, "no program"},
        {"", "/nonexistent/program", 127, "/nonexistent/program"},
    };
    for (const auto& c : cases) {
        SimulatorRun run(words(c.options), words(c.program));
        EXPECT_EQ(run.end(), c.status) << c.text;
        EXPECT_TRUE(run.errorOutput().contains(QString::fromUtf8(c.text))) << c.text;
    }
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "/nonexistent");
    SimulatorRun run({});
    qputenv("PATH", path);
    EXPECT_EQ(run.end(), 127);
    EXPECT_TRUE(run.errorOutput().contains(QStringLiteral("install the package umockdev")));
}

} // namespace

#include "data/AQDataSource.h"
#include "data/AQDataSourceReader.h"
#include "simulator/EventLoop.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <unistd.h>

namespace {

const char program[] = "<settings><timeline>"
                       "<point><time>480</time><intensity>0</intensity><color>128</color></point>"
                       "<point><time>720</time><intensity>255</intensity><color>128</color></point>"
                       "</timeline>%1</settings>";

/// The built program, run by the simulator with two controllers to plug in.
class CtlTest : public testing::Test {
protected:
    struct Run {
        int status;
        QString output;
        QString errors;
    };

    void SetUp() override {
        simulator.connectToServer(QStringLiteral(CTL_CONTROL));
        ASSERT_TRUE(simulator.waitForConnected()) << "to be run by aquelon-simulator";
        write(file, {});
    }
    void TearDown() override {
        tell("fault off");
        for (int number : {0, 1})
            tell("unplug " + port(number).toUtf8());
    }
    void write(const QString& path, const QString& more) {
        QFile out(path);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(QString::fromLatin1(program).arg(more).toUtf8());
    }
    /// Qt locks a port by its name for all programs of the machine, so these are our own.
    static QString port(int number) {
        return QStringLiteral("ttyUSB%1").arg(1000 + 10 * (getpid() % 10'000) + number);
    }
    QByteArray tell(const QByteArray& command) {
        simulator.write(command + '\n');
        while (!simulator.canReadLine() && simulator.waitForReadyRead()) {
        }
        return simulator.readLine().trimmed();
    }
    void plug(int number = 0) { ASSERT_EQ(tell("plug " + port(number).toUtf8()), "ok"); }
    QJsonObject device() {
        return QJsonDocument::fromJson(tell("status"))[QStringLiteral("devices")][0].toObject();
    }
    QString noon() { return device()[QStringLiteral("channels")][0][1].toString(); }

    static std::unique_ptr<QProcess> start(const QStringList& arguments) {
        auto process = std::make_unique<QProcess>();
        process->start(QStringLiteral(CTL_PROGRAM), arguments);
        EXPECT_TRUE(process->waitForStarted());
        return process;
    }
    static Run end(QProcess& process) {
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
    static Run run(const QStringList& arguments) { return end(*start(arguments)); }
    static QJsonObject json(const Run& run) {
        EXPECT_EQ(run.output.count(u'\n'), 1);
        EXPECT_EQ(run.errors, QString());
        return QJsonDocument::fromJson(run.output.toUtf8()).object();
    }

    QLocalSocket simulator;
    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("day.sq"));
};

QStringList words(const char* text) {
    return QString::fromLatin1(text).split(u' ');
}

TEST_F(CtlTest, refusesWhatCannotBeMeant) {
    const std::pair<const char*, int> cases[] = {
        {"", 2},
        {"dance", 2},
        {"list --bogus", 2},
        {"send", 2},
        {"send a b", 2},
        {"send x --scale 0", 2},
        {"list x", 2},
        {"send x --scale 101%", 2},
        {"info --timeout soon", 2},
        {"info --set", 2},
        {"info --timeout -1", 2},
        {"check /nowhere", 1},
        {"send /", 1},
        {"demo /dev/null", 1},
        {"list", 3},
        {"clock", 3},
        {"info --device /dev/ttyS9", 3},
    };
    for (const auto& [arguments, status] : cases) {
        const Run told = run(words(arguments));
        EXPECT_EQ(told.status, status) << arguments;
        EXPECT_EQ(told.output, QString()) << arguments;
        EXPECT_TRUE(told.errors.startsWith(u"aquelonctl: ")) << arguments;
        const QJsonObject object = json(run(words(arguments) << QStringLiteral("--json")));
        EXPECT_EQ(object[QStringLiteral("exit")].toInt(), status) << arguments;
        EXPECT_FALSE(object[QStringLiteral("error")].toString().isEmpty()) << arguments;
    }
    EXPECT_EQ(run({QStringLiteral("check"), file}).status, 0);
    EXPECT_TRUE(run({QStringLiteral("--help")}).output.contains(u"compare FILE"));
}

TEST_F(CtlTest, sendsComparesAndLoads) {
    plug();
    EXPECT_EQ(json(run(words("info --json")))[QStringLiteral("firmware")],
              QStringLiteral("1.4.17"));
    EXPECT_EQ(run({QStringLiteral("compare"), file}).status, 5);
    EXPECT_EQ(run({QStringLiteral("send"), file}).status, 0);
    EXPECT_EQ(noon(), QStringLiteral("12:00=254"));
    EXPECT_EQ(run({QStringLiteral("compare"), file}).status, 0);

    const QString copy = folder.filePath(QStringLiteral("copy.sq"));
    EXPECT_EQ(run({QStringLiteral("load"), copy}).status, 0);
    EXPECT_EQ(run({QStringLiteral("load"), copy}).status, 1);
    EXPECT_EQ(run({QStringLiteral("load"), copy, QStringLiteral("--force")}).status, 0);
    EXPECT_EQ(run({QStringLiteral("compare"), copy}).status, 0);

    // A file gets its share of today, and that of the command line.
    EXPECT_EQ(run({QStringLiteral("send"), file, QStringLiteral("--scale"), QStringLiteral("50%")})
                  .status,
              0);
    const QString half = noon();
    EXPECT_NE(half, QStringLiteral("12:00=254"));
    write(file, QStringLiteral("<acclimation><start>50</start><days>100</days><first_day>%1"
                               "</first_day></acclimation>")
                    .arg(QDate::currentDate().toString(QStringLiteral("yyyyMMdd"))));
    EXPECT_EQ(run({QStringLiteral("compare"), file}).status, 0);
    EXPECT_EQ(run({QStringLiteral("send"), file}).status, 0);
    EXPECT_EQ(noon(), half);

    tell("clock 0 0 12 1 1 20");
    EXPECT_TRUE(run({QStringLiteral("clock")}).output.contains(u"2020-01-01 12:00:0"));
    EXPECT_EQ(run(words("clock --set")).status, 0);
    EXPECT_TRUE(device()[QStringLiteral("clock")].toString().startsWith(
        QDate::currentDate().toString(Qt::ISODate)));
}

TEST_F(CtlTest, findsTheControllerMeant) {
    auto waiting = start(words("info --timeout 20"));
    EXPECT_FALSE(waiting->waitForFinished(500));
    plug();
    EXPECT_EQ(end(*waiting).status, 0);
    plug(1);
    EXPECT_EQ(run({QStringLiteral("info")}).status, 3);
    EXPECT_EQ(run({QStringLiteral("list")}).output.count(u'\n'), 2);
    const QString second = QStringLiteral("/dev/") + port(1);
    EXPECT_EQ(json(run({QStringLiteral("info"), QStringLiteral("--json"),
                        QStringLiteral("--device"), second}))[QStringLiteral("device")],
              second);
}

TEST_F(CtlTest, tellsWhatFailsOnTheWay) {
    plug();
    tell("fault other-levels=1#50");
    const Run other = run({QStringLiteral("send"), file});
    EXPECT_EQ(other.status, 5);
    EXPECT_TRUE(other.errors.contains(u"stored something else: Task light"));
    tell("fault off");
    tell("fault silence#44@2..");
    EXPECT_EQ(run({QStringLiteral("send"), file}).status, 4);
    tell("fault off");
    tell("fault unplug#46@2");
    const Run pulled = run({QStringLiteral("compare"), file});
    EXPECT_EQ(pulled.status, 4);
    EXPECT_TRUE(pulled.errors.contains(u"removed")) << pulled.errors.toStdString();
}

TEST_F(CtlTest, leavesTheLampInOrder) {
    plug();
    auto demo = start({QStringLiteral("demo"), file});
    const auto isPlaying = [this] { return device()[QStringLiteral("demoActive")].toBool(); };
    ASSERT_TRUE(runUntil(isPlaying));
    const Run taken = run({QStringLiteral("info")});
    EXPECT_EQ(taken.status, 4);
    EXPECT_TRUE(taken.errors.contains(u"another program")) << taken.errors.toStdString();
    ::kill(static_cast<pid_t>(demo->processId()), SIGINT);
    EXPECT_EQ(end(*demo).status, 128 + SIGINT);
    EXPECT_FALSE(isPlaying());

    // A send that has begun ends first.
    tell("forget");
    write(file, QStringLiteral("<task_light_mode><nMinutes>7</nMinutes></task_light_mode>"));
    tell("fault delay=150");
    auto send = start({QStringLiteral("send"), file});
    ASSERT_TRUE(runUntil([this] { return noon() == QStringLiteral("12:00=254"); }));
    EXPECT_NE(device()[QStringLiteral("taskLight")][QStringLiteral("minutes")].toInt(), 7);
    ::kill(static_cast<pid_t>(send->processId()), SIGTERM);
    EXPECT_EQ(end(*send).status, 128 + SIGTERM);
    EXPECT_EQ(device()[QStringLiteral("taskLight")][QStringLiteral("minutes")].toInt(), 7);
}

} // namespace

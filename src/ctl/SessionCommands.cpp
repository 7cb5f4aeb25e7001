#include "ctl/ProgramFile.h"
#include "ctl/Session.h"
#include "lamp/ComputerClock.h"
#include "lamp/ProgramCopy.h"
#include "lamp/TimeZones.h"
#include "lamp/WallTime.h"
#include "yprotocoll/YAnswers.h"
#include "yprotocoll/YCommands.h"

#include <QFileInfo>
#include <QJsonArray>

#include <cmath>
#include <cstdio>

namespace {

using Command = Arguments::Command;

constexpr double msecsPerSecond = 1000.0;

QString isoText(const QDateTime& wallTime) {
    return wallTime.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

} // namespace

void Session::run() {
    switch (m_arguments.command) {
    case Command::info:
        info();
        break;
    case Command::load:
    case Command::compare:
        m_transfers.read(m_arguments.command == Command::load ? Transfers::Read::Program
                                                              : Transfers::Read::AndMode,
                         [this](const TransferResult& result, const StoredProgram& program) {
                             onRead(result, program);
                         });
        break;
    case Command::send:
        send();
        break;
    case Command::clock:
        clock();
        break;
    case Command::demo:
        demo();
        break;
    case Command::list:
    case Command::check:
        break; // they need no link
    }
}

QJsonObject Session::deviceJson() const {
    return {{QStringLiteral("device"), QString::fromStdString(m_controller.portPath())}};
}

void Session::list(const std::vector<SerialPortInfo>& ports) {
    Outcome outcome;
    QJsonArray paths;
    for (const SerialPortInfo& port : ports) {
        outcome.lines << QString::fromStdString(port.path);
        paths << outcome.lines.last();
    }
    outcome.result[QStringLiteral("controllers")] = paths;
    finish(outcome);
}

void Session::info() {
    m_controller.send(CmdGetDeviceMode(), [this](const YAnswer& answer) {
        const DeviceInfo& device = *m_controller.device();
        const auto* mode = dynamic_cast<const AnswerDeviceMode*>(&answer);
        const bool isProgramMode = mode && mode->isProgramMode();
        const QString firmware = QStringLiteral("%1.%2.%3")
                                     .arg(device.version.major)
                                     .arg(device.version.minor)
                                     .arg(device.build);
        const int points = device.pointLimit(0);
        Outcome outcome;
        outcome.result = deviceJson();
        outcome.result[QStringLiteral("firmware")] = firmware;
        outcome.result[QStringLiteral("type")] = device.deviceType;
        outcome.result[QStringLiteral("channels")] = device.channelCount.value_or(0);
        outcome.result[QStringLiteral("mostPoints")] = points;
        outcome.result[QStringLiteral("mode")] =
            isProgramMode ? QStringLiteral("program") : QStringLiteral("analog");
        outcome.lines = {
            QStringLiteral("Device:   ") + QString::fromStdString(m_controller.portPath()),
            QStringLiteral("Firmware: ") + firmware,
            QStringLiteral("Type:     %1").arg(device.deviceType),
            QStringLiteral("Channels: %1").arg(device.channelCount.value_or(0)),
            QStringLiteral("Points:   %1 at most").arg(points),
            QStringLiteral("Mode:     ") +
                (isProgramMode ? QStringLiteral("light program") : QStringLiteral("analog input"))};
        finish(outcome);
    });
}

void Session::onRead(const TransferResult& result, const StoredProgram& program) {
    // Lists that make no program can be compared, too.
    const bool isCompared = m_arguments.command == Command::compare;
    if (isCompared ? program.image.channels.empty() : !result.isOk())
        finish(Outcome::failure(Exit::refused, result.description()));
    else if (isCompared)
        compare(program);
    else
        load(program);
}

void Session::load(const StoredProgram& program) {
    // Somebody may have made the file meanwhile.
    QString fault = fileFault();
    if (fault.isEmpty()) {
        fault = ProgramCopy::save(m_arguments.file, program, m_controller.device());
        if (!fault.isEmpty())
            fault = m_arguments.file + QStringLiteral(": ") + fault;
    }
    if (!fault.isEmpty()) {
        finish(Outcome::failure(Exit::refused, fault));
        return;
    }
    const auto points = static_cast<int>(program.contents->points.size());
    Outcome outcome;
    outcome.lines << QStringLiteral("Saved %1 points in %2").arg(points).arg(m_arguments.file);
    outcome.result = deviceJson();
    outcome.result[QStringLiteral("file")] = m_arguments.file;
    outcome.result[QStringLiteral("points")] = points;
    if (points == 0)
        outcome.notes << QStringLiteral("The controller's light program has no points.");
    if (const auto comparison = ProgramCopy::givenBack(program); !comparison.isEqual())
        outcome.notes << QStringLiteral("Not all levels can be given back exactly. Sent to the "
                                        "controller again: %1.")
                             .arg(comparison.change());
    finish(outcome);
}

void Session::compare(const StoredProgram& program) {
    const ProgramComparison comparison(m_data.contentsToday(), program);
    Outcome outcome;
    outcome.status = static_cast<int>(comparison.isEqual() ? Exit::done : Exit::different);
    outcome.lines = comparison.isEqual()
                        ? QStringList{QStringLiteral("The lamp holds this program.")}
                        : comparison.differences();
    outcome.result = deviceJson();
    outcome.result[QStringLiteral("isEqual")] = comparison.isEqual();
    outcome.result[QStringLiteral("differences")] =
        QJsonArray::fromStringList(comparison.differences());
    outcome.result[QStringLiteral("acclimation")] = ProgramFile::acclimationJson(m_data);
    if (const QString text = ProgramFile::acclimationText(m_data); !text.isEmpty())
        outcome.notes << QStringLiteral("Compared in today's light: %1.").arg(text);
    if (m_contents.state() == LampContents::State::analogInput)
        outcome.notes << QStringLiteral("At present the lamp follows its analog input.");
    finish(outcome);
}

void Session::send() {
    connect(&m_transfers, &Transfers::sent, this,
            [this](const TransferResult& result, const QString& difference) {
                onSent(result, difference);
            });
    m_transfers.send();
}

void Session::onSent(const TransferResult& result, const QString& difference) {
    if (!result.isOk()) {
        finish(Outcome::failure(Exit::refused, result.description()));
        return;
    }
    const auto points = m_data.sequence().count();
    QStringList shares;
    if (m_arguments.scale < 100)
        shares << QStringLiteral("scaled to %1 %").arg(m_arguments.scale);
    if (const QString text = ProgramFile::acclimationText(m_data); !text.isEmpty())
        shares << text;
    Outcome outcome;
    outcome.lines << QStringLiteral("Sent %1 points").arg(points) +
                         (shares.isEmpty()
                              ? QString()
                              : QStringLiteral(", ") + shares.join(QStringLiteral(", ")));
    outcome.result = deviceJson();
    outcome.result[QStringLiteral("points")] = points;
    outcome.result[QStringLiteral("scale")] = m_arguments.scale;
    outcome.result[QStringLiteral("acclimation")] = ProgramFile::acclimationJson(m_data);
    if (m_contents.state() == LampContents::State::unknown)
        outcome.notes << m_contents.explanation();
    if (!difference.isEmpty()) {
        outcome.status = static_cast<int>(Exit::different);
        outcome.error = QStringLiteral("the controller stored something else: ") + difference;
    }
    finish(outcome);
}

void Session::clock() {
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const auto answered = [this, now](const YAnswer& answer) { onClock(answer, now); };
    if (!m_arguments.setsClock) {
        m_controller.send(CmdGetRTC(), answered);
        return;
    }
    const QTimeZone zone = ComputerClock::system().zone();
    const QDateTime here = WallTime::at(now, zone);
    const QTime time = here.time();
    const QDate date = here.date();
    const int hours = TimeZones::hoursAt(TimeZones::indexOfOffset(zone.offsetFromUtc(now)));
    m_controller.send(CmdSetRTC(time.hour(), time.minute(), time.second(), date.day(), date.month(),
                                date.year()));
    m_controller.send(CmdSetDaylightInfo(TimeZones::observesDaylightSaving(zone, now),
                                         static_cast<std::int8_t>(hours)));
    m_controller.send(CmdGetRTC(), answered);
}

void Session::onClock(const YAnswer& answer, const QDateTime& askedAt) {
    const auto* rtc = dynamic_cast<const AnswerRTC*>(&answer);
    const auto controllers = rtc ? WallTime::fromAnswer(*rtc) : std::nullopt;
    if (!controllers) {
        finish(
            Outcome::failure(Exit::refused, QStringLiteral("the controller's clock tells no date "
                                                           "that exists; --set sets it")));
        return;
    }
    const QDateTime computers = WallTime::at(askedAt, ComputerClock::system().zone());
    const double difference = static_cast<double>(computers.msecsTo(*controllers)) / msecsPerSecond;
    Outcome outcome;
    outcome.lines = {QStringLiteral("Controller: ") + isoText(*controllers),
                     QStringLiteral("Computer:   ") + isoText(computers),
                     WallTime::differenceText(difference)};
    outcome.result = deviceJson();
    outcome.result[QStringLiteral("controller")] = isoText(*controllers);
    outcome.result[QStringLiteral("computer")] = isoText(computers);
    outcome.result[QStringLiteral("secondsAhead")] = std::round(difference);
    outcome.result[QStringLiteral("wasSet")] = m_arguments.setsClock;
    finish(outcome);
}

void Session::demo() {
    // Also when it ended by itself it has ended when the lamp is given back.
    connect(&m_lamp, &LampPreview::signChanged, this, [this](const QString& sign) {
        if (!sign.isEmpty())
            return;
        Outcome outcome;
        outcome.lines << QStringLiteral("The whole day was played.");
        outcome.result = deviceJson();
        finish(outcome);
    });
    if (!m_arguments.isJson)
        std::fprintf(stderr, "The lamp plays the day of %s. Ctrl+C gives it back.\n",
                     qPrintable(m_arguments.file));
    m_demo.start();
}

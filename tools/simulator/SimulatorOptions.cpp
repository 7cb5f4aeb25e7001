#include "simulator/SimulatorOptions.h"

#include <QCommandLineParser>

#include <cstdio>
#include <cstdlib>

namespace {

const auto description = QStringLiteral(
    "Shows PROGRAM a simulated lamp controller on a USB serial port of its own.\n"
    "PROGRAM runs unmodified; nobody else sees the port. Ends with PROGRAM, with its exit status.\n"
    "\n"
    "A FAULT is kind[=value][#command][@first[..last]]: what goes wrong, only with the answers to\n"
    "this command number, only with the first-th to last-th of them. Kinds and their usual "
    "values:\n"
    "\n"
    "%1\n"
    "Commands for --control, one a line, each answered by one line:\n"
    "  status                    everything the controllers store and do, as JSON\n"
    "  plug [NAME]               plug a device in, as /dev/NAME\n"
    "  unplug [NAME]             pull the cable\n"
    "  hangup [NAME]             the tty ends, without a word from the USB bus\n"
    "  vanish [NAME]             the USB bus reports a removal, the tty stays\n"
    "  fault FAULT | fault off   add a fault, counting from now | end all faults\n"
    "  clock SEC MIN HOUR DAY MONTH YEAR-2000     set its clock, possible or not\n"
    "  forget                    lose the stored program\n"
    "Without a NAME they hold for the first device.");

[[noreturn]] void refuse(const QString& text) {
    std::fprintf(stderr, "aquelon-simulator: %s\nTry --help.\n", qPrintable(text));
    std::exit(2);
}

QCommandLineOption option(const char* name, const QString& text, const char* value = "",
                          const QString& usual = {}) {
    const QString suffix = usual.isEmpty() ? usual : QStringLiteral(" Usual: %1.").arg(usual);
    return {QLatin1String(name), text + suffix, QLatin1String(value), usual};
}

void addOptions(QCommandLineParser& parser) {
    const auto s = [](const char* text) { return QString::fromLatin1(text); };
    parser.addOptions({
        option("channels", s("Output channels."), "N", s("2")),
        option("points", s("Most entries per channel."), "N", s("20")),
        option("firmware", s("Version."), "1.4[.17]", s("1.4.17")),
        option("entry-size", s("Size of an entry that it reports."), "N", s("3")),
        option("empty-program", s("Start with nothing stored.")),
        option("devices", s("Number of controllers."), "N", s("1")),
        option("no-device", s("The controllers are not plugged in at the start.")),
        option("foreign", s("Plug in another USB serial device as well.")),
        option("builtin", s("Add a serial port with no USB device behind it.")),
        option("name", s("Port of the first controller. Usual: the first free ttyUSB."), "NAME"),
        option("pace", s("Bytes take their time as at 115200 baud.")),
        option("fault", s("A fault of the line; can be repeated."), "FAULT"),
        option("log", s("Write all traffic to FILE, - for the standard output."), "FILE"),
        option("control", s("Take commands from a socket at PATH."), "PATH"),
        option("tell",
               s("Hand the command in the arguments to the simulator whose socket is at "
                 "PATH and print its reply."),
               "PATH"),
    });
    parser.addHelpOption();
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    parser.addPositionalArgument(s("PROGRAM"), s("What to run, with its arguments."),
                                 s("-- PROGRAM [ARGUMENT...]"));
}

int number(const QCommandLineParser& parser, const char* name, int most) {
    const QString text = parser.value(QLatin1String(name));
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok || value < 0 || value > most)
        refuse(QStringLiteral("--%1 takes a number from 0 to %2, not '%3'")
                   .arg(QLatin1String(name), QString::number(most), text));
    return value;
}

void readFirmware(const QString& text, ControllerConfig& config) {
    const QStringList parts = text.split(QLatin1Char('.'));
    std::uint8_t* const fields[] = {&config.versionMajor, &config.versionMinor, &config.build};
    bool ok = parts.size() == 2 || parts.size() == 3;
    for (qsizetype i = 0; ok && i < parts.size(); ++i) {
        const int value = parts[i].toInt(&ok);
        ok = ok && value >= 0 && value <= 255;
        *fields[i] = static_cast<std::uint8_t>(value);
    }
    if (!ok)
        refuse(QStringLiteral("--firmware takes MAJOR.MINOR or MAJOR.MINOR.BUILD, not '%1'")
                   .arg(text));
}

void readFaults(const QCommandLineParser& parser, SimulatorOptions& options) {
    for (const QString& text : parser.values(QLatin1String("fault"))) {
        std::string error;
        const auto fault = Fault::parse(text.toStdString(), &error);
        if (!fault)
            refuse(QString::fromStdString(error));
        options.faults.push_back(*fault);
    }
}

} // namespace

SimulatorOptions SimulatorOptions::parse(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(description.arg(QString::fromStdString(Fault::help())));
    addOptions(parser);
    parser.process(arguments);

    SimulatorOptions options;
    ControllerConfig& controller = options.controller;
    controller.channels = number(parser, "channels", 255);
    controller.maxPoints = number(parser, "points", 255);
    controller.entrySize = number(parser, "entry-size", 255);
    controller.factoryProgram = !parser.isSet(QLatin1String("empty-program"));
    readFirmware(parser.value(QLatin1String("firmware")), controller);

    options.devices = number(parser, "devices", 16);
    options.pluggedAtStart = !parser.isSet(QLatin1String("no-device"));
    options.foreign = parser.isSet(QLatin1String("foreign"));
    options.builtin = parser.isSet(QLatin1String("builtin"));
    options.name = parser.value(QLatin1String("name")).toStdString();
    options.paced = parser.isSet(QLatin1String("pace"));
    options.logFile = parser.value(QLatin1String("log")).toStdString();
    options.controlPath = parser.value(QLatin1String("control")).toStdString();
    readFaults(parser, options);

    options.program = parser.positionalArguments();
    if (parser.isSet(QLatin1String("tell"))) {
        options.controlPath = parser.value(QLatin1String("tell")).toStdString();
        options.tell = std::exchange(options.program, {});
    }
    if (options.program.isEmpty() && options.tell.isEmpty())
        refuse(QStringLiteral("there is no program to run"));
    return options;
}

#include "ctl/Arguments.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

using Command = Arguments::Command;

struct CommandInfo {
    Command command;
    const char* name;
    bool takesFile;
    const char* option; ///< its own; null for none
    const char* help;
};

constexpr std::array commands{
    CommandInfo{Command::list, "list", false, nullptr, "The controllers that are plugged in"},
    CommandInfo{Command::info, "info", false, nullptr, "What the controller is and does"},
    CommandInfo{Command::load, "load", true, "force", "Save the controller's program as FILE"},
    CommandInfo{Command::send, "send", true, "scale", "Store the program of FILE in it"},
    CommandInfo{Command::compare, "compare", true, nullptr,
                "Tell how FILE differs from its program"},
    CommandInfo{Command::clock, "clock", false, "set", "Tell the time of its clock, or set it"},
    CommandInfo{Command::check, "check", true, nullptr, "Tell whether FILE is a light program"},
    CommandInfo{Command::demo, "demo", true, nullptr, "Play the day of FILE on the lamp"},
};

QString description() {
    QString text = QStringLiteral("Transfers light programs to and from the controller of an "
                                  "Aquelon aquarium lamp.\n\nCommands:\n");
    for (const CommandInfo& command : commands) {
        QString usage = QLatin1String(command.name);
        if (command.takesFile)
            usage += QStringLiteral(" FILE");
        text += QStringLiteral("  %1%2\n").arg(usage, -14).arg(QLatin1String(command.help));
    }
    return text + QStringLiteral(
                      "\nExit status: 0 done, 1 refused, 2 wrong usage, 3 no controller or several "
                      "to choose from,\n4 the link failed or the port cannot be had, 5 different. "
                      "See aquelonctl(1).");
}

void addOptions(QCommandLineParser& parser) {
    const auto add = [&parser](const QStringList& names, const char* help, const char* value = "") {
        parser.addOption({names, QLatin1String(help), QLatin1String(value)});
    };
    add({QStringLiteral("device")}, "The controller at PATH, for where there are several.", "PATH");
    add({QStringLiteral("timeout")},
        "Wait so long for a controller. Without it, one look is taken.", "SECONDS");
    add({QStringLiteral("json")}, "Tell the result, or the error, as one JSON object.");
    add({QStringLiteral("force")}, "load: replace a file that exists.");
    add({QStringLiteral("scale")}, "send: this share of the intensity, 1 to 100 %.", "PERCENT");
    add({QStringLiteral("set")}, "clock: set it to the computer's time.");
    add({QStringLiteral("h"), QStringLiteral("help")}, "Show this help.");
    add({QStringLiteral("v"), QStringLiteral("version")}, "Show the version.");
    parser.addPositionalArgument(QStringLiteral("COMMAND"), QStringLiteral("One of those above."),
                                 QStringLiteral("COMMAND"));
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("A light program, .sq."),
                                 QStringLiteral("[FILE]"));
}

/// Whole numbers with or without a percent sign.
std::optional<int> percent(QString text) {
    if (text.endsWith(u'%'))
        text.chop(1);
    bool ok = false;
    const int value = text.trimmed().toInt(&ok);
    return ok && value >= 1 && value <= 100 ? std::optional(value) : std::nullopt;
}

std::optional<std::chrono::milliseconds> seconds(const QString& text) {
    constexpr double longest = 86400.0;
    constexpr double msecs = 1000.0;
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || !(value >= 0.0 && value <= longest))
        return {};
    return std::chrono::milliseconds(static_cast<qint64>(value * msecs));
}

QString readOptions(const QCommandLineParser& parser, Arguments& arguments) {
    arguments.device = parser.value(QStringLiteral("device"));
    arguments.isForced = parser.isSet(QStringLiteral("force"));
    arguments.setsClock = parser.isSet(QStringLiteral("set"));
    if (parser.isSet(QStringLiteral("scale"))) {
        const auto scale = percent(parser.value(QStringLiteral("scale")));
        if (!scale)
            return QStringLiteral("--scale takes 1 % to 100 %.");
        arguments.scale = *scale;
    }
    if (parser.isSet(QStringLiteral("timeout"))) {
        const auto timeout = seconds(parser.value(QStringLiteral("timeout")));
        if (!timeout)
            return QStringLiteral("--timeout takes 0 to 86400 seconds.");
        arguments.timeout = *timeout;
    }
    if (parser.isSet(QStringLiteral("device")) && arguments.device.isEmpty())
        return QStringLiteral("--device takes the path of a port.");
    return {};
}

QString readCommand(const QCommandLineParser& parser, Arguments& arguments) {
    const QStringList words = parser.positionalArguments();
    arguments.name = words.value(0);
    const auto found = std::ranges::find(commands, arguments.name,
                                         [](const auto& info) { return QLatin1String(info.name); });
    if (arguments.name.isEmpty())
        return QStringLiteral("A command is needed.");
    if (found == commands.end())
        return QStringLiteral("There is no command %1.").arg(arguments.name);
    arguments.command = found->command;
    arguments.file = words.value(1);
    if (found->takesFile != !arguments.file.isEmpty() || words.size() > 2)
        return arguments.name + (found->takesFile ? QStringLiteral(" takes one file.")
                                                  : QStringLiteral(" takes no file."));
    for (const char* option : {"force", "scale", "set"})
        if (parser.isSet(QLatin1String(option)) &&
            QLatin1String(option) != QLatin1String(found->option))
            return QStringLiteral("%1 does not take --%2.")
                .arg(arguments.name, QLatin1String(option));
    return {};
}

} // namespace

Arguments Arguments::read(const QStringList& list) {
    QCommandLineParser parser;
    parser.setApplicationDescription(description());
    addOptions(parser);
    Arguments arguments;
    // Also when there is a mistake.
    arguments.isJson = list.contains(QStringLiteral("--json"));
    if (!parser.parse(list)) {
        arguments.mistake = parser.errorText();
    } else if (parser.isSet(QStringLiteral("help"))) {
        arguments.help = parser.helpText();
    } else if (parser.isSet(QStringLiteral("version"))) {
        arguments.help =
            QStringLiteral("aquelonctl %1\n").arg(QCoreApplication::applicationVersion());
    } else {
        arguments.isJson = parser.isSet(QStringLiteral("json"));
        arguments.mistake = readCommand(parser, arguments);
        if (arguments.mistake.isEmpty())
            arguments.mistake = readOptions(parser, arguments);
    }
    return arguments;
}

#include "CommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace {

constexpr int usageError = 2;

/// Qt's own options, with one dash or two: the application object takes them later.
void addQtOptions(QCommandLineParser& parser) {
    const auto add = [&parser](const char* name, const QString& value) {
        QCommandLineOption option(QLatin1String(name), QString(), value);
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    };
    for (const char* name :
         {"display", "geometry", "icon", "name", "platform", "platformpluginpath", "platformtheme",
          "plugin", "qmljsdebugger", "qwindowgeometry", "qwindowicon", "qwindowtitle", "session",
          "style", "stylesheet", "title"})
        add(name, QStringLiteral("value"));
    for (const char* name : {"dograb", "nograb", "reverse", "widgetcount"})
        add(name, QString());
}

CommandLine mistake(const QString& text) {
    return {.file = {},
            .answer = QStringLiteral("aquelon: %1\nTry aquelon --help.\n").arg(text),
            .status = usageError};
}

} // namespace

CommandLine CommandLine::read(int count, const char* const* arguments) {
    QStringList list;
    for (int i = 0; i < count; ++i)
        list.append(QString::fromLocal8Bit(arguments[i]));
    return read(list);
}

CommandLine CommandLine::read(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Edits the daily light program of an aquarium lamp and transfers it to the lamp's "
        "controller.\n\nQt's own options, such as -platform and -style, are understood too."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Show the version."));
    parser.addOptions({help, version});
    addQtOptions(parser);
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 QStringLiteral("The light program to open, a .sq file."),
                                 QStringLiteral("[FILE]"));
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);

    if (!parser.parse(arguments))
        return mistake(parser.errorText());
    if (parser.isSet(help)) {
        const auto unnamed = QStringLiteral("<executable_name>"); // without an application object
        return {.file = {},
                .answer = parser.helpText().replace(unnamed, QStringLiteral("aquelon"))};
    }
    if (parser.isSet(version))
        return {.file = {},
                .answer = QCoreApplication::applicationName() + QLatin1Char(' ') +
                          QCoreApplication::applicationVersion() + QLatin1Char('\n')};
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1)
        return mistake(QStringLiteral("One file can be opened, not %1.").arg(files.size()));
    return {.file = files.value(0), .answer = {}};
}

bool CommandLine::print() const {
    if (answer.isEmpty())
        return false;
    std::fputs(qPrintable(answer), status == 0 ? stdout : stderr);
    return true;
}

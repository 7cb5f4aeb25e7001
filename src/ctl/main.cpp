#include "TerminationSignals.h"
#include "ctl/Session.h"

#include <spdlog/sinks/syslog_sink.h>
#include <spdlog/spdlog.h>

#include <QCoreApplication>
#include <QLocale>

#include <csignal>
#include <cstdio>
#include <syslog.h>

namespace {

/// The output belongs to the results.
void logToSystem() {
    const auto sink =
        std::make_shared<spdlog::sinks::syslog_sink_st>("aquelonctl", LOG_PID, LOG_USER, false);
    spdlog::set_default_logger(std::make_shared<spdlog::logger>("aquelonctl", sink));
}

int end(const Arguments& arguments, const Outcome& outcome) {
    if (outcome.print(arguments.name, arguments.isJson))
        return outcome.status;
    std::perror("aquelonctl");
    return outcome.status == 0 ? static_cast<int>(Exit::refused) : outcome.status;
}

} // namespace

int main(int argc, char* argv[]) {
    TerminationSignals signals;
    // Who closes the output must not keep the lamp from being given back.
    std::signal(SIGPIPE, SIG_IGN);
    logToSystem();
    QCoreApplication application(argc, argv);
    // For scripts, numbers and words are the same everywhere.
    QLocale::setDefault(QLocale::c());
    QCoreApplication::setApplicationName(QStringLiteral("aquelonctl"));
    QCoreApplication::setApplicationVersion(QStringLiteral(AQUELON_VERSION));

    const Arguments arguments = Arguments::read(QCoreApplication::arguments());
    if (!arguments.help.isEmpty()) {
        std::fputs(qPrintable(arguments.help), stdout);
        if (Outcome::isOutputWritten())
            return 0;
        std::perror("aquelonctl");
        return static_cast<int>(Exit::refused);
    }
    if (!arguments.mistake.isEmpty())
        return end(arguments, Outcome::failure(Exit::usage, arguments.mistake,
                                               {QStringLiteral("Try aquelonctl --help.")}));

    Session session(arguments);
    QObject::connect(&session, &Session::ended, &application, [&arguments](const Outcome& outcome) {
        QCoreApplication::exit(end(arguments, outcome));
    });
    QObject::connect(&signals, &TerminationSignals::received, &session, &Session::interrupt);
    signals.watch();
    QMetaObject::invokeMethod(&session, &Session::start, Qt::QueuedConnection);
    return QCoreApplication::exec();
}

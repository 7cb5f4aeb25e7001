#include "AppDelegate.h"
#include "CommandLine.h"
#include "Language.h"
#include "Logging.h"
#include "MainWindow.h"
#include "MenuBarStyle.h"
#include "TerminationSignals.h"
#include "data/AQDataSource.h"
#include "data/RecentFiles.h"
#include "workflows/DialogPrompts.h"
#include "workflows/Recovery.h"
#include "yprotocoll/link/UdevSerialPortManager.h"
#include "yprotocoll/link/YMessageController.h"

#include <QApplication>
#include <QIcon>

namespace {

/// As installed, and as built.
QStringList paperModule() {
    const QString folder = QApplication::applicationDirPath() + u'/';
    return {folder + QLatin1String(AQUELON_PAPER), folder + QStringLiteral("aquelon-paper.so")};
}

/// That of the desktop's theme, where the package puts one of all sizes, else the one inside the
/// program. Reading any picture takes part of a start: not before there is something to see.
QIcon windowIcon() {
    QIcon builtIn;
    for (const int size : {16, 32, 64})
        builtIn.addFile(QStringLiteral(":/icon-%1.png").arg(size), {size, size});
    return QIcon::fromTheme(QApplication::desktopFileName(), builtIn);
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication::setApplicationName(QStringLiteral("Aquelon"));
    QApplication::setApplicationVersion(QStringLiteral(AQUELON_VERSION));
    QApplication::setDesktopFileName(QStringLiteral(AQUELON_ID));
    const auto commandLine = CommandLine::read(argc, argv);
    if (commandLine.print())
        return commandLine.status;

    // This stands before the log, whose thread would receive the signals otherwise.
    TerminationSignals signals;
    const Logging logging;

    QApplication::setQuitOnLastWindowClosed(false);
    QApplication application(argc, argv);
    Language::install(application);
    QApplication::setStyle(new MenuBarStyle);

    UdevSerialPortManager ports;
    ModalPause pause;
    YMessageController controller(ports, pause);
    NotificationCenter notifications;
    AQDataSource data(notifications, [&controller] { return controller.device(); });
    YMessageController::share(controller);
    AQDataSource::share(data);

    DialogPrompts prompts;
    AppDelegate delegate({AQDataSource::sharedInstance(), YMessageController::sharedInstance(),
                          prompts, RecoveryCopy::standardFolder(), RecentFiles::standardList(),
                          paperModule()});
    prompts.setParent(&delegate.window());

    QObject::connect(&delegate, &AppDelegate::started, &application,
                     [] { QApplication::setWindowIcon(windowIcon()); });
    QObject::connect(&delegate, &AppDelegate::terminated, &application,
                     [] { QApplication::exit(0); });
    QObject::connect(&delegate, &AppDelegate::recoversElsewhere, &delegate,
                     [&prompts](const QString& copy) { Recovery::startProcessFor(copy, prompts); });
    QObject::connect(&signals, &TerminationSignals::received, &delegate, [&delegate] {
        delegate.applicationShouldTerminate(AppDelegate::Ask::Nothing);
    });
    signals.watch();

    delegate.applicationDidFinishLaunching(commandLine.file);
    return QApplication::exec();
}

#include "workflows/UserGuide.h"

#include "workflows/Prompts.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

QString UserGuide::page() {
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char* place : {"../share/aquelon/guide/index.html", "../docs/guide/index.html"}) {
        const QFileInfo page(program.filePath(QLatin1String(place)));
        if (page.isFile())
            return page.canonicalFilePath();
    }
    return {};
}

void UserGuide::show(Prompts& prompts) {
    const QString file = page();
    if (file.isEmpty())
        prompts.alert(tr("There is no user guide here."),
                      tr("It comes with the program's package; the sources have it in docs."),
                      Prompts::Severity::Critical);
    else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file)))
        prompts.alert(tr("No program could be started to show the user guide."),
                      tr("It can be opened by hand: %1").arg(QDir::toNativeSeparators(file)),
                      Prompts::Severity::Critical);
}

#include "workflows/Diagnostics.h"

#include "data/AQDataSource.h"
#include "workflows/DocumentCommands.h"
#include "workflows/SessionTrace.h"
#include "yprotocoll/link/YMessageController.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScreen>
#include <QStyle>
#include <QSysInfo>

namespace {

QString yesOrNo(bool yes) {
    return yes ? QStringLiteral("yes") : QStringLiteral("no");
}

QStringList computerLines() {
    QStringList lines{
        QStringLiteral("Aquelon %1, Qt %2, %3")
            .arg(QApplication::applicationVersion(), QLatin1String(qVersion()),
                 QDateTime::currentDateTime().toString(Qt::ISODate)),
        QStringLiteral("System: %1, %2 %3, %4")
            .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
                 QSysInfo::currentCpuArchitecture()),
        QStringLiteral("Desktop: %1, session %2, platform %3, style %4")
            .arg(qEnvironmentVariable("XDG_CURRENT_DESKTOP", QStringLiteral("unknown")),
                 qEnvironmentVariable("XDG_SESSION_TYPE", QStringLiteral("unknown")),
                 QApplication::platformName(), QApplication::style()->objectName())};
    for (const QScreen* screen : QApplication::screens())
        lines += QStringLiteral("Screen: %1 x %2, scale %3, %4 dpi")
                     .arg(screen->size().width())
                     .arg(screen->size().height())
                     .arg(screen->devicePixelRatio())
                     .arg(qRound(screen->logicalDotsPerInch()));
    return lines;
}

QString portLine(const SerialPortInfo& port) {
    const QFileInfo device(QString::fromStdString(port.path));
    QString line = QStringLiteral("Port: ") + device.filePath();
    if (port.usb)
        line += QStringLiteral(", USB %1:%2")
                    .arg(port.usb->vendor, 4, 16, QLatin1Char('0'))
                    .arg(port.usb->product, 4, 16, QLatin1Char('0'));
    if (port.isAquelonDevice())
        line += QStringLiteral(" (controller)");
    // Qt's digits are those of chmod, but to the base of 16.
    return line + QStringLiteral(", owner %1, group %2, mode %3, readable %4, writable %5")
                      .arg(device.owner(), device.group())
                      .arg(static_cast<int>(device.permissions()) & 0x0fff, 3, 16, QLatin1Char('0'))
                      .arg(yesOrNo(device.isReadable()), yesOrNo(device.isWritable()));
}

QStringList linkLines(const YMessageController& controller) {
    QStringList lines;
    for (const SerialPortInfo& port : controller.allPorts())
        lines += portLine(port);
    if (lines.isEmpty())
        lines += QStringLiteral("Port: none");
    const auto& device = controller.device();
    if (!device)
        return lines << QStringLiteral("Controller: none");
    const auto number = [](std::optional<int> value) {
        return value ? QString::number(*value) : QStringLiteral("not told");
    };
    return lines << QStringLiteral("Controller: at %1, connected %2, version %3.%4.%5, type %6, "
                                   "channels %7, points at most %8")
                        .arg(QString::fromStdString(controller.portPath()),
                             yesOrNo(controller.isConnected()))
                        .arg(device->version.major)
                        .arg(device->version.minor)
                        .arg(device->build)
                        .arg(device->deviceType)
                        .arg(number(device->channelCount), number(device->maxPointsInSeq));
}

QString stateLine(const Diagnostics::Sources& sources) {
    const QString file = sources.documents.openFilePath();
    return QStringLiteral("State: file %1, unsaved changes %2, points %3, %4, live %5, demo %6")
        .arg(file.isEmpty() ? QStringLiteral("none") : file, yesOrNo(sources.data.isDirty()))
        .arg(sources.data.sequence().count())
        .arg(sources.state.isProgramMode ? QStringLiteral("programmed") : QStringLiteral("analog"),
             yesOrNo(sources.isLive), yesOrNo(sources.state.isDemo));
}

QString withoutHome(QString text) {
    const QString home = QDir::homePath();
    if (home.size() > 1)
        text.replace(QRegularExpression(QRegularExpression::escape(home) +
                                        QStringLiteral("(?![^/\\s:,.'\"])")),
                     QStringLiteral("~"));
    return text;
}

} // namespace

QString Diagnostics::text(const Sources& sources) {
    const QStringList lines = computerLines() + linkLines(sources.controller)
                              << stateLine(sources) << QString() << sources.trace.lines();
    return withoutHome(lines.join(u'\n') + u'\n');
}

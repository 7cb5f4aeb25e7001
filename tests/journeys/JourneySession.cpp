#include "journeys/JourneySession.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

namespace {

constexpr int startLimit = 20'000; // milliseconds

/// The line that arrives at a pipe's end within the limit, without its line feed.
QString readLine(int fd) {
    QByteArray line;
    pollfd poller{fd, POLLIN, 0};
    while (!line.endsWith('\n') && ::poll(&poller, 1, startLimit) > 0) {
        std::array<char, 256> buffer{};
        const auto count = ::read(fd, buffer.data(), buffer.size());
        if (count <= 0)
            break;
        line.append(buffer.data(), count);
    }
    return QString::fromUtf8(line).trimmed();
}

} // namespace

JourneySession::JourneySession() {
    const QString runtime = m_folder.filePath(QStringLiteral("runtime"));
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("HOME", QFile::encodeName(m_folder.path()));
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder.filePath(QStringLiteral("config"))));
    for (const char* name : {"QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE", "WAYLAND_DISPLAY",
                             "XDG_CURRENT_DESKTOP", "SESSION_MANAGER", "AT_SPI_BUS_ADDRESS"})
        qunsetenv(name);
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");

    const QString display = startService(
        QStringLiteral("Xvfb"),
        {QStringLiteral("-screen"), QStringLiteral("0"), QStringLiteral("1600x1000x24"),
         QStringLiteral("-nolisten"), QStringLiteral("tcp"), QStringLiteral("-noreset"),
         // No auto-repeat: on a busy computer a key may be down for long.
         QStringLiteral("-r")},
        QStringLiteral("-displayfd"));
    qputenv("DISPLAY", ":" + display.toUtf8());
    const QString bus = startService(QStringLiteral("dbus-daemon"),
                                     {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                      QStringLiteral("--nopidfile"), QStringLiteral("--nosyslog")},
                                     QStringLiteral("--print-address="));
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.toUtf8());
    startWindowManager();
}

JourneySession::~JourneySession() {
    while (!m_services.empty()) {
        m_services.back()->terminate();
        if (!m_services.back()->waitForFinished(startLimit))
            m_services.back()->kill();
        m_services.pop_back();
    }
}

void JourneySession::add(std::unique_ptr<QProcess> service) {
    if (!service->waitForStarted(startLimit))
        throw std::runtime_error("cannot start " + service->program().toStdString() +
                                 ": is its package installed?");
    m_services.push_back(std::move(service));
}

QString JourneySession::startService(const QString& program, const QStringList& arguments,
                                     const QString& descriptorOption) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    const QString number = QString::number(ends[1]);
    QStringList line = arguments;
    if (descriptorOption.endsWith(QLatin1Char('=')))
        line.append(descriptorOption + number);
    else
        line.append({descriptorOption, number});

    auto service = std::make_unique<QProcess>();
    service->setStandardErrorFile(QProcess::nullDevice());
    service->setStandardOutputFile(QProcess::nullDevice());
    service->setChildProcessModifier([fd = ends[1]] {
        fcntl(fd, F_SETFD, 0);
        prctl(PR_SET_PDEATHSIG, SIGTERM);
    });
    service->start(program, line);
    ::close(ends[1]);
    add(std::move(service));
    const QString ready = readLine(ends[0]);
    ::close(ends[0]);
    if (ready.isEmpty())
        throw std::runtime_error(program.toStdString() + " did not get ready");
    return ready;
}

void JourneySession::startWindowManager() {
    auto manager = std::make_unique<QProcess>();
    manager->setStandardErrorFile(QProcess::nullDevice());
    manager->setStandardOutputFile(QProcess::nullDevice());
    manager->setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    manager->start(QStringLiteral("openbox"), {});
    add(std::move(manager));
}

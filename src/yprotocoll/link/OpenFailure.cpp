#include "yprotocoll/link/OpenFailure.h"

#include "yprotocoll/link/SerialPort.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include <pwd.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

namespace {

struct Holder {
    qint64 processId;
    QString name; ///< may be empty
    QString lockFile;

    bool isAlive() const { return ::kill(static_cast<pid_t>(processId), 0) == 0 || errno != ESRCH; }
};

/// Programs that use serial ports lay a file named after the device into one of these folders, with
/// the number of their process in it. Some add its name.
std::optional<Holder> holderOf(const QString& device) {
    QString name = device.startsWith(QLatin1String("/dev/")) ? device.mid(5) : device;
    name.replace(u'/', u'_');
    for (const char* folder : {"/var/lock", "/run/lock", "/var/lock/lockdev", "/var/spool/lock",
                               "/var/spool/uucp", "/tmp", "/var/tmp"}) {
        const QString path = QLatin1String(folder) + QStringLiteral("/LCK..") + name;
        Holder holder{};
        QString host;
        if (!QFile::exists(path) ||
            !QLockFile(path).getLockInfo(&holder.processId, &host, &holder.name))
            continue;
        QFile process(QStringLiteral("/proc/%1/comm").arg(holder.processId));
        if (holder.name.isEmpty() && process.open(QIODevice::ReadOnly))
            holder.name = QString::fromLocal8Bit(process.readAll()).trimmed();
        holder.lockFile = path;
        return holder;
    }
    return {};
}

QString userName() {
    const passwd* const user = ::getpwuid(::geteuid());
    return user ? QString::fromLocal8Bit(user->pw_name) : QString::number(::geteuid());
}

/// Lets whoever sits at the computer use the controller. Of the name of the package's rule, it
/// would take its place for good.
std::string ruleCommand() {
    return QStringLiteral(
               "echo 'SUBSYSTEM==\"tty\", ATTRS{idVendor}==\"%1\", "
               "ATTRS{idProduct}==\"%2\", TAG+=\"uaccess\"' | sudo tee "
               "/etc/udev/rules.d/70-aquelon-local.rules && sudo udevadm control --reload")
        .arg(aquelonUsbIdentity.vendor, 4, 16, QLatin1Char('0'))
        .arg(aquelonUsbIdentity.product, 4, 16, QLatin1Char('0'))
        .toStdString();
}

/// The lock of a program that ended without removing it. One of ours would have gone by itself.
YMessageError::PortError leftOver(const std::string& device, const Holder& holder) {
    const std::string lock = holder.lockFile.toStdString();
    return {
        {QT_TRANSLATE_NOOP("YMessageError", "a lock was left over by a program that has ended")},
        {QT_TRANSLATE_NOOP("YMessageError",
                           "%1 says that process %2 uses %3, but that process has ended"),
         {lock, std::to_string(holder.processId), device}},
        {{{QT_TRANSLATE_NOOP("YMessageError",
                             "Remove the lock; the controller is then found by itself:")},
          "sudo rm " + lock}}};
}

} // namespace

YMessageError::PortError OpenFailure::taken(const QString& device) {
    const std::string path = device.toStdString();
    const auto holder = holderOf(device);
    if (!holder)
        return {{QT_TRANSLATE_NOOP("YMessageError", "another program holds the controller")},
                {QT_TRANSLATE_NOOP("YMessageError", "%1 is in use by another program"), {path}}};
    if (!holder->isAlive())
        return leftOver(path, *holder);
    const std::string process = QString::number(holder->processId).toStdString();
    if (holder->name.isEmpty())
        return {{QT_TRANSLATE_NOOP("YMessageError",
                                   "another program holds the controller (process %1)"),
                 {process}},
                {QT_TRANSLATE_NOOP("YMessageError",
                                   "%1 is in use by another program: unnamed, process %2"),
                 {path, process}}};
    const std::string name = holder->name.toStdString();
    return {
        {QT_TRANSLATE_NOOP("YMessageError", "another program holds the controller (%1)"), {name}},
        {QT_TRANSLATE_NOOP("YMessageError", "%1 is in use by another program: %2, process %3"),
         {path, name, process}}};
}

YMessageError::PortError OpenFailure::forbidden(const QString& device, const QString& text) {
    const QFileInfo file(device);
    const QString user = userName();
    YMessageError::PortError error{
        text.toStdString(),
        {QT_TRANSLATE_NOOP("YMessageError",
                           "The user \"%1\" may not read and write %2, which belongs to the group "
                           "\"%3\""),
         {user.toStdString(), device.toStdString(), file.group().toStdString()}}};
    // Else joining helps nothing, or does harm.
    if (file.permission(QFile::ReadGroup | QFile::WriteGroup) && file.groupId() != 0)
        error.remedies.push_back(
            {{QT_TRANSLATE_NOOP("YMessageError", "Join the group, then log out and in again:")},
             QStringLiteral("sudo usermod -aG %1 %2").arg(file.group(), user).toStdString()});
    error.remedies.push_back(
        {{QT_TRANSLATE_NOOP("YMessageError",
                            "Add a rule for the controller, then plug it in again:")},
         ruleCommand()});
    return error;
}

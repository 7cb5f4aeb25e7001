#include "yprotocoll/link/OpenFailure.h"

#include "yprotocoll/link/SerialPort.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include <pwd.h>
#include <unistd.h>

#include <optional>

namespace {

struct Holder {
    qint64 processId;
    QString name; ///< may be empty
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
        return holder;
    }
    return {};
}

QString userName() {
    const passwd* const user = ::getpwuid(::geteuid());
    return user ? QString::fromLocal8Bit(user->pw_name) : QString::number(::geteuid());
}

/// Lets whoever sits at the computer use the controller.
std::string ruleCommand() {
    return QStringLiteral("echo 'SUBSYSTEM==\"tty\", ATTRS{idVendor}==\"%1\", "
                          "ATTRS{idProduct}==\"%2\", TAG+=\"uaccess\"' | sudo tee "
                          "/etc/udev/rules.d/70-aquelon.rules && sudo udevadm control --reload")
        .arg(aquelonUsbIdentity.vendor, 4, 16, QLatin1Char('0'))
        .arg(aquelonUsbIdentity.product, 4, 16, QLatin1Char('0'))
        .toStdString();
}

} // namespace

YMessageError::PortError OpenFailure::taken(const QString& device) {
    const auto holder = holderOf(device);
    QString text = QStringLiteral("another program holds the controller");
    QString help = device + QStringLiteral(" is in use by another program");
    if (holder) {
        text += holder->name.isEmpty() ? QStringLiteral(" (process %1)").arg(holder->processId)
                                       : QStringLiteral(" (%1)").arg(holder->name);
        help += QStringLiteral(": %1, process %2")
                    .arg(holder->name.isEmpty() ? QStringLiteral("unnamed") : holder->name)
                    .arg(holder->processId);
    }
    return {text.toStdString(), help.toStdString(), {}};
}

YMessageError::PortError OpenFailure::forbidden(const QString& device, const QString& text) {
    const QFileInfo file(device);
    const QString user = userName();
    const QString help = QStringLiteral("The user \"%1\" may not read and write %2, which belongs "
                                        "to the group \"%3\"")
                             .arg(user, device, file.group());
    YMessageError::PortError error{text.toStdString(), help.toStdString(), {}};
    // Else joining helps nothing, or does harm.
    if (file.permission(QFile::ReadGroup | QFile::WriteGroup) && file.groupId() != 0)
        error.remedies.push_back(
            {"Join the group, then log out and in again:",
             QStringLiteral("sudo usermod -aG %1 %2").arg(file.group(), user).toStdString()});
    error.remedies.push_back(
        {"Add a rule for the controller, then plug it in again:", ruleCommand()});
    return error;
}

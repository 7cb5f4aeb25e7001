#include "data/AtomicFile.h"

#include <QByteArrayView>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

constexpr int maxLinks = 40; // as many as the kernel follows

QString systemReason() {
    return qt_error_string(errno);
}

struct Target {
    QString path;
    std::optional<struct stat> old; ///< none when nothing is there yet
    QString fault;
};

/// The file at the end of a chain of links. It need not exist, but only the system's "no such file"
/// is taken for that: any other reason why it cannot be looked at might hide a device or a FIFO.
Target followLinks(const QString& path) {
    std::filesystem::path target = QFile::encodeName(path).toStdString();
    for (int links = 0; links <= maxLinks; ++links) {
        struct stat status {};
        const bool exists = ::lstat(target.c_str(), &status) == 0;
        if (!exists && errno != ENOENT)
            return {{}, {}, systemReason()};
        if (!exists || !S_ISLNK(status.st_mode))
            return {QFile::decodeName(target.c_str()),
                    exists ? std::optional(status) : std::nullopt,
                    {}};
        std::error_code error;
        const std::filesystem::path link = std::filesystem::read_symlink(target, error);
        if (error)
            return {{}, {}, qt_error_string(error.value())};
        target = target.parent_path() / link;
    }
    return {{}, {}, qt_error_string(ELOOP)};
}

/// Makes the new name last through a power cut. The file has been replaced by now, so a file system
/// that cannot do this is no failure.
void syncFolderOf(const QString& path) {
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

/// Puts the contents where `commit()` needs only rename them. `commit()` itself reports success
/// when the last of its buffer could not be written or synchronised, and QSaveFile has no reason to
/// tell when a disk takes only a part, so the system is asked directly.
QString writeThrough(int descriptor, const QByteArray& contents) {
    QByteArrayView rest = contents;
    while (!rest.isEmpty()) {
        const ssize_t written =
            ::write(descriptor, rest.data(), static_cast<std::size_t>(rest.size()));
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return systemReason();
        rest = rest.sliced(written);
    }
    return ::fsync(descriptor) == 0 ? QString() : systemReason();
}

} // namespace

QString AtomicFile::replace(const QString& path, const QByteArray& contents) {
    const auto [target, old, lookFault] = followLinks(path);
    if (!lookFault.isEmpty())
        return lookFault;
    if (old && S_ISDIR(old->st_mode))
        return qt_error_string(EISDIR);
    // QSaveFile would put a plain file in the place of a device node or a FIFO.
    if (old && !S_ISREG(old->st_mode))
        return QStringLiteral(QT_TRANSLATE_NOOP("File", "Not a regular file"));

    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    // Only root may give files away. When anybody else saves another's file, it becomes their own.
    if (old && ::fchown(file.handle(), old->st_uid, old->st_gid) == 0)
        ::fchmod(file.handle(), old->st_mode & 07777);

    QString fault = writeThrough(file.handle(), contents);
    if (!fault.isEmpty()) {
        file.cancelWriting();
        return fault;
    }
    if (!file.commit())
        return file.errorString();
    syncFolderOf(target);
    return {};
}

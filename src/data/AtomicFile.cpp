#include "data/AtomicFile.h"

#include <QByteArrayView>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int maxLinks = 40; // as many as the kernel follows

QString systemReason() {
    return qt_error_string(errno);
}

/// The file at the end of a chain of links, which need not exist. QSaveFile follows only one link
/// and would replace the second.
std::optional<QString> followLinks(QString path) {
    for (int links = 0; links <= maxLinks; ++links) {
        const QFileInfo info(path);
        if (!info.isSymLink())
            return path;
        path = info.symLinkTarget();
    }
    errno = ELOOP;
    return {};
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
    const auto target = followLinks(path);
    if (!target)
        return systemReason();

    struct stat old {};
    const bool exists = ::stat(QFile::encodeName(*target).constData(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode))
        return qt_error_string(EISDIR);
    // QSaveFile would put a plain file in the place of a device node or a FIFO.
    if (exists && !S_ISREG(old.st_mode))
        return QStringLiteral("Not a regular file");

    QSaveFile file(*target);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    // Fails for people who may not give files away; then the file is theirs.
    if (exists && ::fchown(file.handle(), old.st_uid, old.st_gid) == 0)
        ::fchmod(file.handle(), old.st_mode & 07777);

    QString fault = writeThrough(file.handle(), contents);
    if (!fault.isEmpty()) {
        file.cancelWriting();
        return fault;
    }
    if (!file.commit())
        return file.errorString();
    syncFolderOf(*target);
    return {};
}

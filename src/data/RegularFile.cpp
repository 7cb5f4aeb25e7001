#include "data/RegularFile.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

RegularFile::Contents systemFault() {
    return {{}, qt_error_string(errno)};
}

/// Reads no further than `maxSize`, so that a file which grows meanwhile comes to an end, too.
RegularFile::Contents readAll(int descriptor, qint64 maxSize) {
    RegularFile::Contents contents;
    std::array<char, 16384> piece;
    while (contents.bytes.size() <= maxSize) {
        const ssize_t count = ::read(descriptor, piece.data(), piece.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return systemFault();
        if (count == 0)
            return contents;
        contents.bytes.append(piece.data(), count);
    }
    return {{}, QStringLiteral(QT_TRANSLATE_NOOP("File", "File too large"))};
}

} // namespace

RegularFile::Contents RegularFile::read(const QString& path, qint64 maxSize) {
    const QByteArray name = QFile::encodeName(path);
    // Opening a device can set it going, and a FIFO would wait for a writer.
    struct stat info {};
    if (::stat(name.constData(), &info) != 0)
        return systemFault();
    if (S_ISDIR(info.st_mode))
        return {{}, qt_error_string(EISDIR)};
    if (!S_ISREG(info.st_mode))
        return {{}, QStringLiteral(QT_TRANSLATE_NOOP("File", "Not a regular file"))};
    // A FIFO may have taken the file's place since; O_NONBLOCK keeps its opening from waiting.
    const int descriptor = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return systemFault();
    Contents contents =
        info.st_size > maxSize
            ? Contents{{}, QStringLiteral(QT_TRANSLATE_NOOP("File", "File too large"))}
            : readAll(descriptor, maxSize);
    ::close(descriptor);
    return contents;
}

bool RegularFile::isSame(const QString& one, const QString& other) {
    const QFileInfo first(one);
    const QFileInfo second(other);
    // Of a file that is not there, no canonical path is known.
    return first.absoluteFilePath() == second.absoluteFilePath() ||
           (first.exists() && first == second);
}

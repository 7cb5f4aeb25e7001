#pragma once

#include <QByteArray>
#include <QString>

/// Small files that may be anything.
namespace RegularFile {

struct Contents {
    QByteArray bytes;
    QString fault; ///< the reason in the system's words when they could not be read, else empty
};

/// The whole file at `path`, links followed. It is a fault when the file is no regular one, without
/// opening it, and when it has more than `maxSize` bytes.
Contents read(const QString& path, qint64 maxSize);
/// Whether both paths lead to one file, links followed; it need not be there.
bool isSame(const QString& one, const QString& other);

} // namespace RegularFile

#pragma once

#include <QByteArray>
#include <QString>

/// Reads small files that may be anything.
namespace RegularFile {

struct Contents {
    QByteArray bytes;
    QString fault; ///< the reason in the system's words when they could not be read, else empty
};

/// The whole file at `path`, links followed. It is a fault when the file is no regular one, without
/// opening it, and when it has more than `maxSize` bytes.
Contents read(const QString& path, qint64 maxSize);

} // namespace RegularFile

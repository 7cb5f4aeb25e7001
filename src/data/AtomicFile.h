#pragma once

#include <QByteArray>
#include <QString>

/// Replaces whole files so that either the old or the new contents are on disk, at every moment.
namespace AtomicFile {

/// Writes `contents` to `path`, following symbolic links, and keeps the permissions of a file that
/// is there already (its owner too, as far as the system allows). What exists and is not a regular
/// file is refused.
///
/// Returns an empty text on success, else the system's reason; the old file is untouched then.
QString replace(const QString& path, const QByteArray& contents);

} // namespace AtomicFile

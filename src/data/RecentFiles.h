#pragma once

#include <QString>

#include <utility>
#include <vector>

/// The desktop's list of recently used files, of which this program shows the light programs.
///
/// All programs of the desktop share it, so it is read anew each time, and a list that cannot be
/// read is never written.
class RecentFiles {
public:
    struct Entry {
        QString path;
        bool isOurs; ///< this program has used it
    };

    /// recently-used.xbel in $XDG_DATA_HOME.
    static QString standardList();

    /// With an empty path there are none, and none are added.
    explicit RecentFiles(QString list) : m_list(std::move(list)) {}

    /// The light programs, the one used last first; empty when the list cannot be read.
    std::vector<Entry> entries() const;
    /// This program uses this file (an absolute path) now. What goes wrong is logged only.
    void add(const QString& path) const;
    /// This program has used none. What others have used stays in the list.
    void clear() const;

private:
    QString m_list;
};

#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QLockFile>
#include <QString>

#include <memory>
#include <vector>

/// Unsaved work in a file of its own, for the case that the program or the computer dies.
///
/// A lock stands beside the file for as long as the object lives: it tells other runs of the
/// program that the work is not abandoned. The system frees the lock of a program that died.
///
///     RecoveryCopy copy(folder);
///     copy.write({program, file, sum, now});   // takes the lock, replaces what was written before
///     copy.remove();                           // the work is saved
///
///     for (auto& found : RecoveryCopy::abandoned(folder)) // of programs that died, locked now
///         ask(found->contents());
class RecoveryCopy {
public:
    struct Contents {
        QByteArray program;    ///< as in a settings file
        QString file;          ///< that it belongs to; empty when it has never been in one
        QByteArray fileSum;    ///< DocumentCommands' sum of that file
        QDateTime time;        ///< when it was written
        bool wasEnded = false; ///< the program was told to end, and has not died
    };

    /// $XDG_STATE_HOME/aquelon, by default ~/.local/state/aquelon. It need not exist.
    static QString standardFolder();
    /// The copies that belong to no running program, the newest first. What cannot be read is left
    /// as it is.
    static std::vector<std::unique_ptr<RecoveryCopy>> abandoned(const QString& folder);
    /// The copy of this name; null when it is locked, gone or cannot be read.
    static std::unique_ptr<RecoveryCopy> take(const QString& folder, const QString& name);

    /// A new one. Nothing is written yet.
    explicit RecoveryCopy(const QString& folder);
    RecoveryCopy(const RecoveryCopy&) = delete;
    RecoveryCopy& operator=(const RecoveryCopy&) = delete;

    /// Replaces the file at once or not at all, and makes the folder when it is missing. Returns
    /// the system's reason for a failure, else nothing.
    QString write(const Contents& contents);
    /// Removes the file and frees the lock; a later `write()` begins anew. Nothing happens when
    /// there is no file.
    void remove();

    const Contents& contents() const { return m_contents; } ///< last written or read
    const QString& name() const { return m_name; }

private:
    RecoveryCopy(const QString& folder, const QString& name);

    QString path() const;
    QString lock();
    bool read();
    void removeFiles() const;

    QString m_folder;
    QString m_name;
    QLockFile m_lock;
    Contents m_contents;
};

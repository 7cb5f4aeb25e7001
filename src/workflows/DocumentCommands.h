#pragma once

#include "data/AQDataSourceReader.h"
#include "data/AQDataSourceWriter.h"

#include <QDateTime>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

class AQDataSource;
class Prompts;

/// The commands on the document: new, open, save, save as, and the question about unsaved changes
/// that stands before everything which would replace or drop the document.
class DocumentCommands : public QObject {
    Q_OBJECT

public:
    using Continuation = std::function<void()>;

    /// Both must outlive this.
    DocumentCommands(AQDataSource& data, Prompts& prompts, QObject* parent = nullptr);

    /// A new document: the defaults, untitled and clean.
    void loadDefaults();
    void open();
    /// As `open()`, for a file named on the command line or dropped on the window.
    void openPath(const QString& path);
    void saveDocument();
    void saveDocumentAs();

    /// Goes on at once when the document is clean; else asks, and goes on after a successful save
    /// or after "No". On "Cancel", a cancelled panel or a failed save nothing more happens.
    /// `cancelled` (may be empty) is called then.
    void askAboutChanges(const QString& message, Continuation goOn, Continuation cancelled = {});

    /// "Aquelon - Untitled", or the file's name instead; " *" is appended while dirty.
    QString windowTitle() const;
    /// The current file; empty for an untitled document.
    const QString& openFilePath() const { return m_openFilePath; }

Q_SIGNALS:
    /// `windowTitle()` may have changed.
    void titleChanged();

private:
    struct FileStamp {
        QDateTime modified;
        qint64 size = -1;
        bool operator==(const FileStamp&) const = default;
    };
    static FileStamp stampOf(const QString& path);

    void read(const QString& path);
    void saveOrAskWhere(Continuation saved, Continuation cancelled);
    void askWhereThenSave(Continuation saved, Continuation cancelled);
    void saveOverOwnFile(Continuation saved, Continuation cancelled);
    bool write(const QString& path);

    AQDataSource& m_data;
    Prompts& m_prompts;
    AQDataSourceReader m_reader;
    AQDataSourceWriter m_writer;
    QString m_openFilePath;
    FileStamp m_openFileStamp;
    /// A failed open left parts of another file in the document, which are not this file's program.
    bool m_holdsPartsOfAnotherFile = false;
};

#pragma once

#include "data/AQDataSourceReader.h"
#include "data/AQDataSourceWriter.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>

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
    /// A new document of these points: untitled, and dirty, since it is nowhere else. `made` is
    /// called once it is there, and not when the person keeps the present one.
    void newDay(const std::vector<AQTimePoint>& points, const Continuation& made);
    void open();
    /// As `open()`, for a file named on the command line or dropped on the window.
    void openPath(const QString& path);
    void saveDocument();
    void saveDocumentAs();

    /// Goes on at once when the document is clean; else asks, and goes on after a successful save
    /// or after "No". On "Cancel", a cancelled panel or a failed save nothing more happens.
    void askAboutChanges(const QString& message, Continuation goOn);

    /// For files that are not the document's: asks where to save, with the ending and the question
    /// of Save As, and hands on what was chosen.
    void askWhereToWrite(const QString& suggested,
                         const std::function<void(const QString&)>& write);
    /// The alert of a failed save, and its reason for the log.
    void tellNotSaved(const QString& path, const QString& reason);

    /// The document's contents no longer come from the current file: saving over it asks first.
    void noteOtherContents() { m_holdsPartsOfAnotherFile = true; }

    /// The document is this program, which was being edited when the program died: unsaved, with
    /// `file` (empty: untitled) as its current file, whose `openFileSum()` was `fileSum` then.
    /// Saving over that file asks first. Nothing leads back to what the document held before.
    void becomeRecovered(const QByteArray& program, const QString& file, const QByteArray& fileSum);

    /// "Aquelon - Untitled", or the file's name instead; " *" is appended while dirty.
    QString windowTitle() const;
    /// The current file; empty for an untitled document.
    const QString& openFilePath() const { return m_openFilePath; }
    /// By which it is known whether the current file has changed; empty for an untitled document.
    const QByteArray& openFileSum() const { return m_openFileSum; }

Q_SIGNALS:
    /// `windowTitle()` may have changed.
    void titleChanged();
    /// The document comes from this file now.
    void opened(const QString& path);
    /// The document is in this file now.
    void savedTo(const QString& path);

private:
    void becomeUntitled();
    void read(const QString& path);
    // `saved` (may be empty) is called after a successful save.
    void saveOrAskWhere(const Continuation& saved);
    void askWhereThenSave(const Continuation& saved);
    void saveOverOwnFile(const Continuation& saved);
    void confirmThen(const QString& reason, const Continuation& write);
    void write(const QString& path, const Continuation& saved);
    /// What the person should know before the current file is overwritten; empty for nothing.
    QString reasonNotToOverwrite() const;

    AQDataSource& m_data;
    Prompts& m_prompts;
    AQDataSourceReader m_reader;
    AQDataSourceWriter m_writer;
    QString m_openFilePath;
    /// Of what this program last read from it or wrote to it. Times and sizes tell less: a clock is
    /// coarse, and copying programs set it back.
    QByteArray m_openFileSum;
    /// A load, a failed open of another file or a recovery left in the document what is not this
    /// file's program.
    bool m_holdsPartsOfAnotherFile = false;
};

#include "workflows/DocumentCommands.h"

#include "data/AQDataSource.h"
#include "data/RegularFile.h"
#include "workflows/Prompts.h"

#include <spdlog/spdlog.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

namespace {

QByteArray sumOf(const QByteArray& fileContents) {
    return QCryptographicHash::hash(fileContents, QCryptographicHash::Sha256);
}

} // namespace

DocumentCommands::DocumentCommands(AQDataSource& data, Prompts& prompts, QObject* parent)
    : QObject(parent), m_data(data), m_prompts(prompts), m_reader(data), m_writer(data) {
    connect(&data.notifications(), &NotificationCenter::dataDirty, this,
            &DocumentCommands::titleChanged);
}

QString DocumentCommands::windowTitle() const {
    QString name = m_openFilePath.isEmpty() ? tr("Untitled") : QFileInfo(m_openFilePath).fileName();
    // Window titles give "[*]" a meaning of their own; doubled it is shown as it stands.
    name.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    return QStringLiteral("Aquelon - ") + name +
           (m_data.isDirty() ? QStringLiteral(" *") : QString());
}

void DocumentCommands::askAboutChanges(const QString& message, Continuation goOn) {
    if (!m_data.isDirty()) {
        goOn();
        return;
    }
    m_prompts.askToSave(message, tr("There are unsaved changes. Do you want to save them first?"),
                        [this, goOn = std::move(goOn)](Prompts::SaveAnswer answer) {
                            if (answer == Prompts::SaveAnswer::Save)
                                saveOrAskWhere(goOn);
                            else if (answer == Prompts::SaveAnswer::Discard)
                                goOn();
                        });
}

void DocumentCommands::loadDefaults() {
    askAboutChanges(tr("Save changes before loading defaults?"), [this] {
        m_data.loadDefaults();
        m_data.markSaved();
        becomeUntitled();
    });
}

void DocumentCommands::newDay(const std::vector<AQTimePoint>& points, const Continuation& made) {
    askAboutChanges(tr("Save changes before making a new day?"), [this, points, made] {
        m_data.loadDefaultsWith(points);
        m_data.markUnsaved();
        becomeUntitled();
        made();
    });
}

void DocumentCommands::becomeUntitled() {
    m_data.history().restart();
    // A new document has no file yet: saving it must not replace the one that was open.
    m_openFilePath.clear();
    m_openFileSum.clear();
    m_holdsPartsOfAnotherFile = false;
    Q_EMIT titleChanged();
}

void DocumentCommands::open() {
    askAboutChanges(tr("Save changes before opening new file?"), [this] {
        m_prompts.askForFileToOpen([this](const std::optional<QString>& path) {
            if (path)
                read(*path);
        });
    });
}

void DocumentCommands::openPath(const QString& path) {
    const QString absolute = QDir::current().absoluteFilePath(path);
    askAboutChanges(tr("Save changes before opening new file?"),
                    [this, absolute] { read(absolute); });
}

void DocumentCommands::read(const QString& path) {
    const auto before = m_data.contents();
    const AQPointId selected = m_data.selection().id();
    if (m_reader.loadFromFile(path)) {
        m_openFilePath = path;
        m_openFileSum = sumOf(m_reader.fileContents());
        // Without a timeline the program in the window is still the one from before.
        m_holdsPartsOfAnotherFile = !m_reader.foundTimeline();
        m_data.markSaved();
        m_data.history().restart();
        Q_EMIT titleChanged();
        Q_EMIT opened(path);
        return;
    }
    if (m_data.contents() != before) {
        m_holdsPartsOfAnotherFile = true;
        m_data.noteStep(tr("Open %1").arg(QFileInfo(path).fileName()), selected);
    }
    SPDLOG_ERROR(fmt::format("{}: {}", path.toStdString(), m_reader.errorString().toStdString()));
    m_prompts.alert(
        tr("Could not open file!"),
        tr("%1 could not be opened. Maybe the file is corrupt or contains invalid data.").arg(path),
        Prompts::Severity::Critical);
}

void DocumentCommands::becomeRecovered(const QByteArray& program, const QString& file,
                                       const QByteArray& fileSum) {
    m_reader.read(program);
    m_openFilePath = file;
    m_openFileSum = fileSum;
    m_holdsPartsOfAnotherFile = true;
    // At no moment is it clean, which would mean that it is in a file.
    m_data.markUnsaved();
    m_data.history().restart();
    Q_EMIT titleChanged();
}

void DocumentCommands::saveDocument() {
    saveOrAskWhere({});
}

void DocumentCommands::saveDocumentAs() {
    askWhereThenSave({});
}

void DocumentCommands::saveOrAskWhere(const Continuation& saved) {
    if (m_openFilePath.isEmpty())
        askWhereThenSave(saved);
    else
        saveOverOwnFile(saved);
}

void DocumentCommands::saveOverOwnFile(const Continuation& saved) {
    const QString reason = reasonNotToOverwrite();
    if (reason.isEmpty())
        write(m_openFilePath, saved);
    else
        confirmThen(reason, [this, saved] { write(m_openFilePath, saved); });
}

void DocumentCommands::askWhereThenSave(const Continuation& saved) {
    const QString suggested =
        m_openFilePath.isEmpty() ? tr("Untitled") + QStringLiteral(".sq") : m_openFilePath;
    askWhereToWrite(suggested, [this, saved](const QString& path) { write(path, saved); });
}

void DocumentCommands::askWhereToWrite(const QString& suggested,
                                       const std::function<void(const QString&)>& write) {
    m_prompts.askWhereToSave(suggested, [this, write](const std::optional<QString>& path) {
        if (!path)
            return;
        if (QFileInfo(*path).suffix().compare(QLatin1String("sq"), Qt::CaseInsensitive) == 0) {
            write(*path);
            return;
        }
        // The panels show files that end in .sq only, so a name without the ending gets it. The
        // save panel asked about replacing a file of the typed name, not of this longer one.
        const QString file = *path + QStringLiteral(".sq");
        if (QFileInfo::exists(file))
            confirmThen(tr("%1 exists already.").arg(QFileInfo(file).fileName()),
                        [write, file] { write(file); });
        else
            write(file);
    });
}

void DocumentCommands::confirmThen(const QString& reason, const Continuation& write) {
    m_prompts.confirm(tr("The file will be overwritten!"),
                      reason + u' ' + tr("Are you sure you want to continue?"), Prompts::Answer::No,
                      [write](bool yes) {
                          if (yes)
                              write();
                      });
}

void DocumentCommands::write(const QString& path, const Continuation& saved) {
    if (!m_writer.saveToFile(path)) {
        tellNotSaved(path, m_writer.errorString());
        return;
    }
    m_openFilePath = path;
    m_openFileSum = sumOf(m_writer.text());
    m_holdsPartsOfAnotherFile = false;
    Q_EMIT titleChanged();
    Q_EMIT savedTo(path);
    if (saved)
        saved();
}

void DocumentCommands::tellNotSaved(const QString& path, const QString& reason) {
    SPDLOG_ERROR(fmt::format("{}: {}", path.toStdString(), reason.toStdString()));
    m_prompts.alert(tr("Could not save file!"),
                    tr("There was an error while saving to %1").arg(path),
                    Prompts::Severity::Critical);
}

QString DocumentCommands::reasonNotToOverwrite() const {
    const QString name = QFileInfo(m_openFilePath).fileName();
    if (QFileInfo::exists(m_openFilePath)) {
        const auto [bytes, fault] =
            RegularFile::read(m_openFilePath, AQDataSourceReader::maxFileSize);
        if (!fault.isEmpty())
            return tr("%1 cannot be read any more (%2).")
                .arg(name, QCoreApplication::translate("File", fault.toUtf8()));
        if (sumOf(bytes) != m_openFileSum)
            return tr("%1 was changed by another program since it was opened.").arg(name);
    }
    if (m_holdsPartsOfAnotherFile)
        return tr("The program in the window is not the one that was opened from %1.").arg(name);
    return {};
}

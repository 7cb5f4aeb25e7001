#include "data/RecoveryCopy.h"

#include "data/AQDataSource.h"
#include "data/AQDataSourceReader.h"
#include "data/AtomicFile.h"
#include "data/RegularFile.h"

#include <spdlog/spdlog.h>

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace {

namespace fs = std::filesystem;

constexpr qint64 maxFileSize = 4 * AQDataSourceReader::maxFileSize; // JSON escapes quotes and tabs

const auto programKey = QStringLiteral("program");
const auto fileKey = QStringLiteral("file");
const auto fileSumKey = QStringLiteral("fileSum");
const auto timeKey = QStringLiteral("time");
const auto wasEndedKey = QStringLiteral("wasEnded");

QByteArray toBytes(const RecoveryCopy::Contents& contents) {
    return QJsonDocument({{programKey, QString::fromUtf8(contents.program)},
                          {fileKey, contents.file},
                          {fileSumKey, QString::fromLatin1(contents.fileSum.toHex())},
                          {timeKey, contents.time.toUTC().toString(Qt::ISODateWithMs)},
                          {wasEndedKey, contents.wasEnded}})
        .toJson();
}

RecoveryCopy::Contents fromBytes(const QByteArray& bytes) {
    const QJsonDocument json = QJsonDocument::fromJson(bytes);
    return {json[programKey].toString().toUtf8(), json[fileKey].toString(),
            QByteArray::fromHex(json[fileSumKey].toString().toLatin1()),
            QDateTime::fromString(json[timeKey].toString(), Qt::ISODateWithMs),
            json[wasEndedKey].toBool()};
}

bool isProgram(const QByteArray& text) {
    NotificationCenter notifications;
    AQDataSource document(notifications);
    return AQDataSourceReader(document).read(text);
}

} // namespace

QString RecoveryCopy::standardFolder() {
    const QString state = qEnvironmentVariable("XDG_STATE_HOME");
    // Relative paths are to be ignored there.
    return (QDir::isAbsolutePath(state) ? state
                                        : QDir::homePath() + QStringLiteral("/.local/state")) +
           QStringLiteral("/aquelon");
}

std::vector<std::unique_ptr<RecoveryCopy>> RecoveryCopy::abandoned(const QString& folder) {
    // Locks without a file, and files that were never finished, are swept away by the way.
    QStringList names = QDir(folder).entryList(
        {QStringLiteral("*.recovery*"), QStringLiteral("*.lock")}, QDir::Files);
    for (QString& name : names)
        name = name.section(u'.', 0, 0);
    names.removeDuplicates();
    std::vector<std::unique_ptr<RecoveryCopy>> copies;
    for (const QString& name : std::as_const(names))
        if (auto copy = take(folder, name))
            copies.push_back(std::move(copy));
    std::ranges::sort(copies, std::ranges::greater(),
                      [](const auto& copy) { return copy->contents().time; });
    return copies;
}

std::unique_ptr<RecoveryCopy> RecoveryCopy::take(const QString& folder, const QString& name) {
    std::unique_ptr<RecoveryCopy> copy(new RecoveryCopy(folder, name));
    if (!copy->m_lock.tryLock() || !copy->read())
        return nullptr;
    return copy;
}

RecoveryCopy::RecoveryCopy(const QString& folder)
    : RecoveryCopy(folder, QUuid::createUuid().toString(QUuid::WithoutBraces)) {}

RecoveryCopy::RecoveryCopy(const QString& folder, const QString& name)
    : m_folder(folder), m_name(name), m_lock(folder + u'/' + name + QStringLiteral(".lock")) {
    // However long the program runs.
    m_lock.setStaleLockTime(0);
}

QString RecoveryCopy::path() const {
    return m_folder + u'/' + m_name + QStringLiteral(".recovery");
}

QString RecoveryCopy::write(const Contents& contents) {
    QString fault = lock();
    if (fault.isEmpty())
        fault = AtomicFile::replace(path(), toBytes(contents));
    if (fault.isEmpty())
        m_contents = contents;
    return fault;
}

QString RecoveryCopy::lock() {
    std::error_code error;
    const fs::path folder = QFile::encodeName(m_folder).toStdString();
    if (fs::create_directories(folder, error)) {
        // What is being edited is nobody else's business. If it had been locked, the lock has gone
        // with the folder.
        fs::permissions(folder, fs::perms::owner_all, error);
        m_lock.unlock();
    }
    if (error)
        return qt_error_string(error.value());
    if (m_lock.isLocked() || m_lock.tryLock())
        return {};
    // The lock's own reasons are few.
    if (m_lock.error() == QLockFile::PermissionError)
        return qt_error_string(EACCES);
    return fs::space(folder, error).available == 0
               ? qt_error_string(ENOSPC)
               : QStringLiteral(QT_TRANSLATE_NOOP("File", "A file cannot be locked there"));
}

bool RecoveryCopy::read() {
    if (!QFile::exists(path())) {
        removeFiles();
        return false;
    }
    const auto [bytes, fault] = RegularFile::read(path(), maxFileSize);
    m_contents = fromBytes(bytes);
    const bool isGood =
        fault.isEmpty() && m_contents.time.isValid() && isProgram(m_contents.program);
    if (!isGood)
        SPDLOG_ERROR(
            fmt::format("{}: cannot be recovered {}", path().toStdString(), fault.toStdString()));
    return isGood;
}

void RecoveryCopy::remove() {
    if (!m_lock.isLocked())
        return;
    removeFiles();
    m_contents = {};
    m_lock.unlock();
}

void RecoveryCopy::removeFiles() const {
    // The program may have died while it wrote one, which has a longer name then.
    const QDir folder(m_folder);
    for (const QString& file :
         folder.entryList({m_name + QStringLiteral(".recovery*")}, QDir::Files))
        if (!QFile::remove(folder.filePath(file)))
            SPDLOG_ERROR(fmt::format("{}: cannot be removed", folder.filePath(file).toStdString()));
}

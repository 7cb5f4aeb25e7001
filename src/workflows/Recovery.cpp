#include "workflows/Recovery.h"

#include "data/AQDataSource.h"
#include "data/AQDataSourceWriter.h"
#include "data/RegularFile.h"
#include "workflows/DocumentCommands.h"
#include "workflows/Prompts.h"

#include <spdlog/spdlog.h>

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QProcess>

#include <utility>

namespace {

/// Names the copy that a new process is to open, without a question.
constexpr const char* copyVariable = "AQUELON_RECOVER";

QString timeText(const QDateTime& time) {
    const QDateTime here = time.toLocalTime();
    const bool isToday = here.date() == QDate::currentDate();
    return QLocale::c().toString(here, isToday ? QStringLiteral("HH:mm")
                                               : Recovery::tr("HH:mm, d MMMM yyyy"));
}

QString question(const RecoveryCopy::Contents& copy) {
    return (copy.wasEnded ? Recovery::tr("Aquelon was ended with unsaved work.")
                          : Recovery::tr("Aquelon ended unexpectedly.")) +
           u' ' + Recovery::tr("Recover the program as of %1?").arg(timeText(copy.time));
}

QString description(const RecoveryCopy::Contents& copy) {
    return copy.file.isEmpty()
               ? Recovery::tr("It has not been saved in a file.")
               : Recovery::tr("It holds changes that are not in the file %1.").arg(copy.file);
}

} // namespace

Recovery::Recovery(AQDataSource& data, DocumentCommands& documents, Prompts& prompts,
                   const QString& folder, QObject* parent)
    : QObject(parent), m_data(data), m_documents(documents), m_prompts(prompts), m_folder(folder) {
    if (folder.isEmpty())
        return;
    m_timer.setSingleShot(true);
    m_timer.setInterval(delay);
    connect(&m_timer, &QTimer::timeout, this, [this] { write(false); });
    connect(&data.history(), &History::changed, this, &Recovery::onChanged);
    connect(&data.notifications(), &NotificationCenter::dataDirty, this, &Recovery::onChanged);
}

void Recovery::onChanged() {
    if (!m_data.isDirty())
        giveUp();
    // Running already, it is not put off by further changes.
    else if (!m_timer.isActive())
        m_timer.start();
}

void Recovery::giveUp() {
    m_timer.stop();
    if (m_copy)
        m_copy->remove();
}

void Recovery::keepForNextStart() {
    m_timer.stop();
    if (m_data.isDirty() && !m_folder.isEmpty())
        write(true);
}

void Recovery::write(bool isEnding) {
    const RecoveryCopy::Contents present{AQDataSourceWriter(m_data).text(),
                                         m_documents.openFilePath(), m_documents.openFileSum(),
                                         QDateTime::currentDateTimeUtc(), isEnding};
    if (!m_copy)
        m_copy = std::make_unique<RecoveryCopy>(m_folder);
    const RecoveryCopy::Contents& held = m_copy->contents();
    if (present.program == held.program && present.wasEnded == held.wasEnded)
        return;
    const QString fault = m_copy->write(present);
    if (fault.isEmpty())
        return;
    SPDLOG_ERROR(
        fmt::format("recovery copy in {}: {}", m_folder.toStdString(), fault.toStdString()));
    if (isEnding || std::exchange(m_wasFaultTold, true))
        return;
    m_prompts.alert(tr("Could not write a recovery copy!"),
                    tr("Until they are saved, changes would be lost if Aquelon or the computer "
                       "ended unexpectedly. No copy can be kept in %1: %2.")
                        .arg(m_folder, QCoreApplication::translate("File", fault.toUtf8())),
                    Prompts::Severity::Information);
}

void Recovery::offerCopies(const QString& file) {
    if (m_folder.isEmpty())
        return;
    const QString named = qEnvironmentVariable(copyVariable);
    qunsetenv(copyVariable);
    if (!named.isEmpty()) {
        if (auto copy = RecoveryCopy::take(m_folder, named))
            recover(std::move(copy));
        return;
    }
    m_offered = RecoveryCopy::abandoned(m_folder);
    if (!file.isEmpty())
        std::erase_if(m_offered, [&](const auto& copy) {
            return !RegularFile::isSame(copy->contents().file, file);
        });
    askAboutNext();
}

void Recovery::askAboutNext() {
    if (m_offered.empty())
        return;
    const RecoveryCopy::Contents& copy = m_offered.front()->contents();
    m_prompts.askToRecover(question(copy), description(copy), [this](bool yes) {
        auto asked = std::move(m_offered.front());
        m_offered.erase(m_offered.begin());
        if (yes)
            recover(std::move(asked));
        else
            asked->remove();
        askAboutNext();
    });
}

void Recovery::recover(std::unique_ptr<RecoveryCopy> copy) {
    const RecoveryCopy::Contents found = copy->contents();
    const QString& open = m_documents.openFilePath();
    const bool isFree =
        !m_data.isDirty() && (open.isEmpty() || RegularFile::isSame(open, found.file));
    if (!isFree) {
        const QString name = copy->name();
        copy.reset(); // not locked any more
        Q_EMIT recoversElsewhere(name);
        return;
    }
    m_documents.becomeRecovered(found.program, found.file, found.fileSum);
    // It is this document's own copy from now on, so that there is always one; not sooner, since a
    // clean document gives its own up.
    m_copy = std::move(copy);
}

void Recovery::startProcessFor(const QString& copy, Prompts& prompts) {
    QProcess process;
    process.setProgram(QCoreApplication::applicationFilePath());
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(copyVariable), copy);
    process.setProcessEnvironment(environment);
    // A copy that no process opens is offered by the next start.
    if (process.startDetached())
        return;
    SPDLOG_ERROR(
        fmt::format("cannot start another process: {}", process.errorString().toStdString()));
    prompts.alert(tr("Could not open a second window!"),
                  tr("Aquelon offers this unsaved work again at its next start."),
                  Prompts::Severity::Information);
}

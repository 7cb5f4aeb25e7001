#include "data/AQDataSourceReader.h"

#include "data/AQDataSource.h"
#include "data/GuardedXml.h"

#include <spdlog/spdlog.h>

#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>

namespace {

constexpr qint64 maxSeconds = std::numeric_limits<int>::max();

/// Opens a regular file for reading, and nothing else: a FIFO would wait for a writer, and opening
/// a device can set it going. Returns the system's reason, empty on success.
QString openRegular(QFile& file, const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    struct stat info {};
    if (::stat(name.constData(), &info) != 0)
        return qt_error_string(errno);
    if (S_ISDIR(info.st_mode))
        return qt_error_string(EISDIR);
    if (!S_ISREG(info.st_mode))
        return QStringLiteral("Not a regular file");
    // Not to wait for a FIFO that took the file's place just now.
    const int descriptor = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return qt_error_string(errno);
    if (!file.open(descriptor, QIODevice::ReadOnly, QFile::AutoCloseHandle))
        return file.errorString();
    return {};
}

QString tooLarge() {
    return QStringLiteral("File too large");
}

/// Everything left in the device; nothing when it fails on the way. More than `maxFileSize` bytes
/// tell that there is too much.
std::optional<QByteArray> readAll(QIODevice& device) {
    QByteArray bytes;
    std::array<char, 16 * 1024> piece;
    while (bytes.size() <= AQDataSourceReader::maxFileSize) {
        const qint64 count = device.read(piece.data(), piece.size());
        if (count < 0)
            return {};
        if (count == 0)
            break;
        bytes.append(piece.data(), count);
    }
    return bytes;
}

std::optional<qint64> integer(QStringView text) {
    bool ok = false;
    const qint64 value = text.trimmed().toLongLong(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

double fraction(qint64 value) {
    return fractionFromByte(static_cast<std::uint8_t>(std::clamp<qint64>(value, 0, 255)));
}

int minuteOfDay(qint64 value) {
    return static_cast<int>(value % AQTime::minutesPerDay);
}

} // namespace

AQDataSourceReader::AQDataSourceReader(AQDataSource& document, QObject* parent)
    : QObject(parent), m_document(document) {}

bool AQDataSourceReader::fail(const QString& reason) {
    m_errorString = reason;
    return false;
}

bool AQDataSourceReader::loadFromFile(const QString& path) {
    QFile file;
    if (const QString fault = openRegular(file, path); !fault.isEmpty())
        return fail(fault);
    if (file.size() > maxFileSize)
        return fail(tooLarge());
    return read(file);
}

bool AQDataSourceReader::read(QIODevice& device) {
    const auto bytes = readAll(device);
    if (!bytes)
        return fail(device.errorString());
    if (bytes->size() > maxFileSize)
        return fail(tooLarge());

    m_sequenceChanged = false;

    m_errorString = parse(GuardedXml::fromBytes(*bytes));
    postChanges();
    return m_errorString.isEmpty();
}

QString AQDataSourceReader::parse(const GuardedXml& guarded) {
    QXmlStreamReader xml(guarded.text);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartDocument:
            if (!guarded.allowsEncoding(xml.documentEncoding()))
                xml.raiseError(QStringLiteral("Unsupported encoding."));
            break;
        case QXmlStreamReader::StartElement:
            if (m_contextStack.size() == maxDepth)
                xml.raiseError(QStringLiteral("Elements are nested too deeply."));
            else
                startElement(xml.qualifiedName().toString());
            break;
        case QXmlStreamReader::EndElement:
            endElement();
            break;
        case QXmlStreamReader::Characters:
            // One text comes in several pieces around comments and references.
            m_text += xml.text();
            break;
        default:
            break;
        }
    }
    // What was read before a fault counts.
    applyText();
    m_contextStack.clear();
    // The cut is the fault when the parser found no other before it.
    const bool reachedCut =
        !xml.hasError() || xml.error() == QXmlStreamReader::PrematureEndOfDocumentError;
    return reachedCut && !guarded.fault.isEmpty() ? guarded.fault : xml.errorString();
}

void AQDataSourceReader::startElement(const QString& name) {
    applyText();
    m_contextStack.append(name);
    if (name == u"timeline") {
        m_sequenceChanged = true;
        m_document.sequence().replacePoints({});
    } else if (name == u"point") {
        m_ptTime.reset();
        m_ptColorTemp.reset();
        m_ptBrightness.reset();
    }
}

void AQDataSourceReader::endElement() {
    applyText();
    const QString name = m_contextStack.takeLast();
    if (name == u"timeline")
        SPDLOG_DEBUG("{} elements loaded from file", m_document.sequence().count());
    else if (name == u"point" && m_ptTime && m_ptColorTemp && m_ptBrightness)
        m_document.sequence().appendPoint({*m_ptTime, *m_ptColorTemp, *m_ptBrightness});
}

void AQDataSourceReader::applyText() {
    if (m_text.isEmpty())
        return;
    const auto value = integer(m_text);
    m_text.clear();
    if (!value || m_contextStack.isEmpty())
        return;
    const qsizetype depth = m_contextStack.size();
    const QString parent = depth > 1 ? m_contextStack[depth - 2] : QString();
    if (parent == u"point")
        applyPointValue(*value);
    else if (parent == u"task_light_mode")
        applyTaskLightValue(*value);
    if (m_contextStack.last() == u"mode1_10v")
        m_document.setIsProgramMode(*value == 1);
}

void AQDataSourceReader::applyPointValue(qint64 value) {
    const QString& element = m_contextStack.last();
    if (element == u"time" && value >= 0)
        m_ptTime = AQTime::fromMinuteOfDay(minuteOfDay(value));
    else if (element == u"color")
        m_ptColorTemp = fraction(value);
    else if (element == u"intensity")
        m_ptBrightness = fraction(value);
}

void AQDataSourceReader::applyTaskLightValue(qint64 value) {
    const QString& element = m_contextStack.last();
    AQTimePoint taskLight = m_document.taskLight();
    if (element == u"nMinutes" && value >= 0) {
        const int second = taskLight.time.second;
        taskLight.time = AQTime::fromMinuteOfDay(minuteOfDay(value));
        taskLight.time.second = second;
    } else if (element == u"nSeconds" && value >= 0) {
        taskLight.time.second = static_cast<int>(std::min<qint64>(value, maxSeconds));
    } else if (element == u"color") {
        taskLight.colorTemp = fraction(value);
    } else if (element == u"intensity") {
        taskLight.brightness = fraction(value);
    }
    m_document.setTaskLight(taskLight);
}

void AQDataSourceReader::postChanges() {
    if (m_sequenceChanged) {
        m_document.sequence().notifySelectionChange(-1, this);
        m_document.sequence().notifyDataChange(this, false);
    }
    Q_EMIT m_document.notifications().dataLoaded(this);
}

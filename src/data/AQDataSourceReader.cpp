#include "data/AQDataSourceReader.h"

#include "data/GuardedXml.h"
#include "data/RegularFile.h"

#include <spdlog/spdlog.h>

#include <QXmlStreamReader>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr qint64 maxSeconds = std::numeric_limits<int>::max();

std::optional<qint64> integer(QStringView text) {
    bool ok = false;
    const qint64 value = text.trimmed().toLongLong(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

double fraction(qint64 value) {
    return fractionFromByte(static_cast<std::uint8_t>(std::clamp<qint64>(value, 0, 255)));
}

/// From the digits of year, month and day; invalid for what is no date.
QDate dateOf(qint64 digits) {
    // Qt knows years before the first one.
    return digits < 0 ? QDate()
                      : QDate::fromString(QString::number(digits), QStringLiteral("yyyyMMdd"));
}

int minuteOfDay(qint64 value) {
    return static_cast<int>(value % AQTime::minutesPerDay);
}

} // namespace

AQDataSourceReader::AQDataSourceReader(AQDataSource& document, QObject* parent)
    : QObject(parent), m_document(document) {}

bool AQDataSourceReader::loadFromFile(const QString& path) {
    auto [bytes, fault] = RegularFile::read(path, maxFileSize);
    m_fileContents = std::move(bytes);
    if (!fault.isEmpty()) {
        m_errorString = fault;
        return false;
    }
    return read(m_fileContents);
}

bool AQDataSourceReader::read(const QByteArray& bytes) {
    m_foundTimeline = m_sequenceChanged = false;
    m_contents = m_document.contents();
    m_acclimation = {0, 0, {}};
    m_errorString = parse(GuardedXml::fromBytes(bytes));
    if (hasTooManyPoints())
        return false;
    applyContents();
    return m_errorString.isEmpty();
}

QString AQDataSourceReader::parse(const GuardedXml& guarded) {
    QXmlStreamReader xml(guarded.text);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            if (m_contextStack.size() == maxDepth)
                xml.raiseError(QStringLiteral("Elements are nested too deeply."));
            else
                startElement(xml.qualifiedName().toString());
            break;
        case QXmlStreamReader::EndElement:
            endElement();
            if (hasTooManyPoints())
                xml.raiseError(QStringLiteral("More points than minutes in a day."));
            break;
        case QXmlStreamReader::Characters:
            // Comments and references in a text break it into several pieces.
            m_text += xml.text();
            break;
        default:
            break;
        }
    }
    // The text before a fault counts as if its element had ended there.
    applyText();
    m_contextStack.clear();
    // A text that was cut ends too early for the parser, but the reason of the cut says more.
    const bool reachedCut =
        !xml.hasError() || xml.error() == QXmlStreamReader::PrematureEndOfDocumentError;
    return reachedCut && !guarded.fault.isEmpty() ? guarded.fault : xml.errorString();
}

void AQDataSourceReader::startElement(const QString& name) {
    applyText();
    m_contextStack.append(name);
    if (name == u"timeline") {
        m_foundTimeline = m_sequenceChanged = true;
        m_contents.points.clear();
    } else if (name == u"point") {
        m_ptTime.reset();
        m_ptColorTemp.reset();
        m_ptBrightness.reset();
    }
}

void AQDataSourceReader::endElement() {
    applyText();
    const QString name = m_contextStack.takeLast();
    if (name == u"timeline") {
        SPDLOG_DEBUG(fmt::format("{} elements loaded from file", m_contents.points.size()));
    } else if (name == u"point" && m_ptTime && m_ptColorTemp && m_ptBrightness) {
        m_contents.points.push_back({*m_ptTime, *m_ptColorTemp, *m_ptBrightness});
        m_sequenceChanged = true;
    }
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
    else if (parent == u"acclimation")
        applyAcclimationValue(*value);
    if (m_contextStack.last() == u"mode1_10v")
        m_contents.isProgramMode = *value == 1;
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
    AQTimePoint& taskLight = m_contents.taskLight;
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
}

void AQDataSourceReader::applyAcclimationValue(qint64 value) {
    const QString& element = m_contextStack.last();
    const auto number = static_cast<int>(std::clamp<qint64>(value, 0, maxSeconds));
    if (element == u"start")
        m_acclimation.start = number;
    else if (element == u"days")
        m_acclimation.days = number;
    else if (element == u"first_day")
        m_acclimation.firstDay = dateOf(value);
}

void AQDataSourceReader::applyContents() {
    // It belongs to the program: another one without it has none.
    if (m_acclimation.isValid())
        m_contents.acclimation = m_acclimation;
    else if (m_sequenceChanged)
        m_contents.acclimation.reset();
    const bool isOtherLight = m_document.acclimation() != m_contents.acclimation;
    m_document.setAcclimation(m_contents.acclimation);
    m_document.setTaskLight(m_contents.taskLight);
    m_document.setIsProgramMode(m_contents.isProgramMode);
    if (m_sequenceChanged)
        m_document.sequence().replacePoints(std::move(m_contents.points));
    m_document.announceReplacement(this, m_sequenceChanged);
    if (isOtherLight && !m_sequenceChanged)
        Q_EMIT m_document.notifications().acclimationChanged(this);
}

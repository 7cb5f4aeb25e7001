#include "data/AQDataSourceWriter.h"

#include "data/AQDataSource.h"
#include "data/AtomicFile.h"

namespace {

/// Lines of nested elements.
class Lines {
public:
    void open(const char* element) {
        indent().append('<').append(element).append(">\n");
        ++m_depth;
    }
    void close(const char* element) {
        --m_depth;
        indent().append("</").append(element).append(">\n");
    }
    void value(const char* element, const QByteArray& text) {
        indent().append('<').append(element).append('>').append(text);
        m_text.append("</").append(element).append(">\n");
    }
    void value(const char* element, int number) { value(element, QByteArray::number(number)); }
    void fraction(const char* element, double fraction) {
        value(element, byteFromFraction(fraction));
    }

    const QByteArray& text() const { return m_text; }

private:
    QByteArray& indent() { return m_text.append(m_depth, '\t'); }

    QByteArray m_text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
    int m_depth = 0;
};

QByteArray firmwareText(const DeviceInfo& device) {
    return QByteArray::number(device.version.major) + '.' +
           QByteArray::number(device.version.minor) + '.' + QByteArray::number(device.build);
}

} // namespace

AQDataSourceWriter::AQDataSourceWriter(AQDataSource& document, QObject* parent)
    : QObject(parent), m_document(document) {}

QByteArray AQDataSourceWriter::text() const {
    const AQTimePoint& taskLight = m_document.taskLight();
    const DeviceInfo device = m_document.device().value_or(DeviceInfo{});

    Lines lines;
    lines.open("settings");
    lines.open("task_light_mode");
    lines.value("nMinutes", taskLight.time.minuteOfDay());
    lines.value("nSeconds", taskLight.time.second);
    lines.fraction("color", taskLight.colorTemp);
    lines.fraction("intensity", taskLight.brightness);
    lines.close("task_light_mode");
    lines.value("mode1_10v", m_document.isProgramMode() ? 1 : 0);
    lines.value("firmware", firmwareText(device));
    lines.value("dev_type", device.deviceType);
    lines.open("timeline");
    for (const AQTimePoint& point : m_document.sequence().points()) {
        lines.open("point");
        lines.value("time", point.time.minuteOfDay());
        lines.fraction("intensity", point.brightness);
        lines.fraction("color", point.colorTemp);
        lines.close("point");
    }
    lines.close("timeline");
    if (const auto& acclimation = m_document.acclimation()) {
        lines.open("acclimation");
        lines.value("start", acclimation->start);
        lines.value("days", acclimation->days);
        lines.value("first_day",
                    acclimation->firstDay.toString(QStringLiteral("yyyyMMdd")).toLatin1());
        lines.close("acclimation");
    }
    lines.close("settings");
    return lines.text();
}

bool AQDataSourceWriter::saveToFile(const QString& path) {
    m_errorString = AtomicFile::replace(path, text());
    if (!m_errorString.isEmpty())
        return false;
    m_document.markSaved();
    return true;
}

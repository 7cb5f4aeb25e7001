#include "data/AQDataSource.h"
#include "data/AQDataSourceReader.h"
#include "data/AQDataSourceWriter.h"
#include "data/NotificationLog.h"

#include "fuzz/Require.h"

#include <spdlog/spdlog.h>

// Input: a settings file.

namespace {

struct Outcome {
    bool ok = false;
    QString error;
    QByteArray document; ///< as it would be written
    std::vector<std::string> posted;
    bool operator==(const Outcome&) const = default;
};

/// A document with its reader.
class Desk {
public:
    Desk() { m_log.name(m_reader, "reader"); }

    Outcome read(const QByteArray& file) {
        const bool ok = m_reader.read(file);
        return {ok, m_reader.errorString(), AQDataSourceWriter(document).text(), m_log.take()};
    }
    void startAnew() {
        document.loadDefaults();
        m_log.take();
    }

private:
    NotificationCenter m_notifications;

public:
    AQDataSource document{m_notifications};

private:
    AQDataSourceReader m_reader{document};
    NotificationLog m_log{m_notifications};
};

bool isFraction(double value) {
    return value >= 0.0 && value <= 1.0;
}

void requireValid(const AQDataSource& document) {
    for (const AQTimePoint& point : document.sequence().points()) {
        require(point.time.isValid() && point.time.second == 0, "a point has a minute of the day");
        require(isFraction(point.colorTemp) && isFraction(point.brightness),
                "a point's values are fractions");
    }
    AQTimePoint taskLight = document.taskLight();
    require(taskLight.time.second >= 0, "the task light's seconds may be many, never negative");
    taskLight.time.second = 0;
    require(taskLight.time.isValid(), "the task light's minutes are those of a day");
    require(isFraction(taskLight.colorTemp) && isFraction(taskLight.brightness),
            "the task light's values are fractions");
    require(!document.isDirty(), "reading leaves the dirty flag alone");
}

void requireNotifications(const Outcome& outcome) {
    using Lines = std::vector<std::string>;
    const Lines timeline{"sectionChanged -1 from reader", "dataChanged from reader",
                         "dataLoaded from reader"};
    require(outcome.posted == timeline || outcome.posted == Lines{"dataLoaded from reader"},
            "reading is announced once");
}

/// A document type outside of all that may hold any text.
bool hasDocumentType(const QByteArray& file) {
    return file.contains("<!DOCTYPE") && !file.contains("<!--") && !file.contains("<![CDATA[") &&
           file.lastIndexOf("<?") <= 0;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    spdlog::set_level(spdlog::level::off);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray file(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    Desk desk;
    const Outcome outcome = desk.read(file);
    require(outcome.ok == outcome.error.isEmpty(), "a failure has a reason, a success none");
    require(!outcome.ok || !hasDocumentType(file), "a document type is refused");
    requireValid(desk.document);
    requireNotifications(outcome);

    desk.startAnew();
    require(desk.read(file) == outcome, "nothing of a file is left in the reader");

    desk.startAnew();
    const Outcome again = desk.read(outcome.document);
    require(again.ok, "what was written can be read");
    require(again.document == outcome.document, "writing and reading changes nothing");
    return 0;
}

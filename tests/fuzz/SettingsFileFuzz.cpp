#include "data/AQDataSourceReader.h"
#include "data/AQDataSourceWriter.h"
#include "data/NotificationLog.h"

#include "fuzz/DocumentFuzz.h"

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
struct Desk {
    Desk() { log.name(reader, "reader"); }

    /// Reads into a fresh document.
    Outcome read(const QByteArray& file) {
        document.loadDefaults();
        log.take();
        const bool ok = reader.read(file);
        return {ok, reader.errorString(), AQDataSourceWriter(document).text(), log.take()};
    }

    NotificationCenter notifications;
    AQDataSource document{notifications};
    AQDataSourceReader reader{document};
    NotificationLog log{notifications};
};

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
    AQTime duration = desk.document.taskLight().time;
    require(duration.second >= 0, "the task light's seconds may be many, never negative");
    duration.second = 0;
    require(duration.isValid(), "the task light's minutes are those of a day");
    requireNotifications(outcome);

    require(desk.read(file) == outcome, "nothing of a file is left in the reader");
    const Outcome again = desk.read(outcome.document);
    require(again.ok, "what was written can be read");
    require(again.document == outcome.document, "writing and reading changes nothing");
    return 0;
}

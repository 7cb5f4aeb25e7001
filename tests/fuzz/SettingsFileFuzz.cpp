#include "data/AQDataSourceReader.h"
#include "data/AQDataSourceWriter.h"

#include "fuzz/DocumentFuzz.h"

#include <spdlog/spdlog.h>

// Input: a settings file.

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    spdlog::set_level(spdlog::level::off);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    NotificationCenter notifications;
    AQDataSource document(notifications);
    AQDataSourceReader reader(document);
    const bool ok =
        reader.read(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    require(ok == reader.errorString().isEmpty(), "a failure has a reason, a success none");
    requireValid(document);
    AQTime duration = document.taskLight().time;
    require(duration.second >= 0, "the task light's seconds may be many, never negative");
    duration.second = 0;
    require(duration.isValid(), "the task light's minutes are those of a day");

    const QByteArray written = AQDataSourceWriter(document).text();
    document.loadDefaults();
    require(reader.read(written), "what was written can be read");
    require(AQDataSourceWriter(document).text() == written, "writing and reading changes nothing");
    return 0;
}

#include "ctl/ProgramFile.h"

#include "data/AQDataSource.h"
#include "data/AQDataSourceReader.h"
#include "data/ProgramStatistics.h"
#include "data/TimeText.h"

namespace {

QStringList oddities(const std::vector<AQTimePoint>& points) {
    QStringList notes;
    for (std::size_t row = 1; row < points.size(); ++row) {
        const int before = points[row - 1].time.minuteOfDay();
        const int minute = points[row].time.minuteOfDay();
        const QString time = timeText(points[row].time.hour, points[row].time.minute);
        if (minute == before)
            notes << QStringLiteral("Two points at %1.").arg(time);
        else if (minute < before)
            notes << QStringLiteral("The point at %1 stands behind a later one.").arg(time);
    }
    return notes;
}

} // namespace

QString ProgramFile::read(const QString& path, AQDataSource& document) {
    AQDataSourceReader reader(document);
    if (!reader.loadFromFile(path))
        return path + QStringLiteral(": ") + reader.errorString();
    return reader.foundTimeline() ? QString() : path + QStringLiteral(": Not a light program");
}

Outcome ProgramFile::describe(const QString& path, const AQDataSource& document) {
    const auto& points = document.sequence().points();
    const ProgramStatistics statistics = statisticsOf(points);
    QStringList parts{QStringLiteral("%1 points").arg(points.size()), statistics.text()};
    if (const QString acclimation = acclimationText(document); !acclimation.isEmpty())
        parts << acclimation;
    return {.lines = {path + QStringLiteral(": ") + parts.join(QStringLiteral("; "))},
            .notes = oddities(points),
            .result = {{QStringLiteral("file"), path},
                       {QStringLiteral("points"), static_cast<int>(points.size())},
                       {QStringLiteral("litMinutes"), statistics.litMinutes},
                       {QStringLiteral("fullLightHours"), statistics.fullLightHours},
                       {QStringLiteral("acclimation"), acclimationJson(document)}}};
}

QString ProgramFile::acclimationText(const AQDataSource& document) {
    const auto& acclimation = document.acclimation();
    return acclimation && !acclimation->isOverOn(document.today())
               ? QStringLiteral("acclimation ") + acclimation->textOn(document.today())
               : QString();
}

QJsonValue ProgramFile::acclimationJson(const AQDataSource& document) {
    const auto& acclimation = document.acclimation();
    if (!acclimation)
        return {};
    const QDate today = document.today();
    return QJsonObject{{QStringLiteral("day"), acclimation->dayOn(today)},
                       {QStringLiteral("days"), acclimation->days},
                       {QStringLiteral("percent"), acclimation->percentOn(today)},
                       {QStringLiteral("isOver"), acclimation->isOverOn(today)}};
}

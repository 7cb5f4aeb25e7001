#include "simulator/ControllerReport.h"

#include "simulator/SimulatedController.h"

#include <QJsonArray>

namespace {

QString twoDigits(int value) {
    return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0'));
}

QJsonArray array(const auto& values) {
    QJsonArray result;
    for (const auto value : values)
        result.append(static_cast<int>(value));
    return result;
}

QJsonArray channels(const ControllerState& state) {
    QJsonArray result;
    for (const auto& entries : state.sequence) {
        QJsonArray channel;
        for (const SequenceEntry& entry : entries)
            channel.append(QStringLiteral("%1:%2=%3")
                               .arg(twoDigits(entry.hour), twoDigits(entry.minute),
                                    QString::number(entry.level)));
        result.append(channel);
    }
    return result;
}

QString clockText(const ClockFields& f) {
    return QStringLiteral("%1-%2-%3 %4:%5:%6")
        .arg(2000 + f.year)
        .arg(twoDigits(f.month), twoDigits(f.day), twoDigits(f.hour), twoDigits(f.minute),
             twoDigits(f.second));
}

} // namespace

QJsonObject reportOf(SimulatedController& controller) {
    const ControllerState& state = controller.state();
    return {
        {QStringLiteral("channels"), channels(state)},
        {QStringLiteral("taskLight"),
         QJsonObject{{QStringLiteral("minutes"), state.taskLight.minutes},
                     {QStringLiteral("seconds"), state.taskLight.seconds},
                     {QStringLiteral("levels"), array(state.taskLight.levels)}}},
        {QStringLiteral("programMode"), state.programMode},
        {QStringLiteral("demoActive"), state.demoActive},
        {QStringLiteral("demoLevels"), array(state.demoLevels)},
        {QStringLiteral("lamp"), array(controller.lampLevels())},
        {QStringLiteral("clock"), clockText(controller.clockNow())},
        {QStringLiteral("daylight"),
         QJsonObject{{QStringLiteral("flags"), state.daylight.flags},
                     {QStringLiteral("utcOffset"), state.daylight.utcOffset}}},
    };
}

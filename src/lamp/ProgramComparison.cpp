#include "lamp/ProgramComparison.h"

#include "data/ColorMapping.h"
#include "data/DeviceProgramImage.h"
#include "data/TimeText.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t fourChannels = 4;

/// One that the item has no part in is none.
using Levels = std::vector<std::optional<std::uint8_t>>;

QString durationOf(int minutes, int seconds) {
    if (minutes == 0 && seconds > 0)
        return ProgramComparison::tr("%1 s").arg(seconds);
    return seconds > 0 ? ProgramComparison::tr("%1 min %2 s").arg(minutes).arg(seconds)
                       : ProgramComparison::tr("%1 min").arg(minutes);
}

QString durationOf(const AQTime& time) {
    return durationOf(time.minuteOfDay(), time.second);
}

/// The two fractions in percent, as short as shows the difference, in `text` for a place, the one
/// here and the lamp's; empty when nothing shows it.
QString percentsDiffer(const QString& text, const QString& place, double here, double lamp) {
    for (const int decimals : {0, 1}) {
        const QString first = QLocale().toString(here * 100.0, 'f', decimals);
        const QString second = QLocale().toString(lamp * 100.0, 'f', decimals);
        if (first != second)
            return text.arg(place, first + QStringLiteral(" %"), second + QStringLiteral(" %"));
    }
    return {};
}

QString textOf(const Levels& levels) {
    QStringList texts;
    for (const auto& level : levels)
        if (level)
            texts << QString::number(*level);
    return texts.join(u'/');
}

bool areEqual(const Levels& first, const Levels& second) {
    for (std::size_t i = 0; i < std::min(first.size(), second.size()); ++i)
        if (first[i] && second[i] && first[i] != second[i])
            return false;
    return true;
}

bool areAtOneTime(const SequenceEntry& first, const SequenceEntry& second) {
    return first.hour == second.hour && first.minute == second.minute;
}

/// As it is stored, which may be no time of day.
QString clockOf(const SequenceEntry& entry) {
    return QStringLiteral("%1:%2")
        .arg(entry.hour, 2, 10, QLatin1Char('0'))
        .arg(entry.minute, 2, 10, QLatin1Char('0'));
}

} // namespace

/// A point or the task light.
struct ProgramComparison::Item {
    AQTimePoint shown; ///< the light as people see it
    AQTimePoint read;  ///< as a load gives it, at the time that is stored
    Levels levels;
    bool isOfTwoChannels;

    int minute() const { return read.time.minuteOfDay(); }
    QString clock() const { return timeText(read.time.hour, read.time.minute); }
    /// Of the same colour, as far as two outputs can tell: their levels are rounded.
    bool hasColorOf(const Item& other) const {
        if (read.colorTemp == other.read.colorTemp)
            return true;
        if (!isOfTwoChannels || !levels[0] || !levels[1])
            return false;
        const auto expected = levelsFromLight(other.shown.colorTemp, read.brightness);
        return std::abs(expected.cold - *levels[0]) <= 1 &&
               std::abs(expected.warm - *levels[1]) <= 1;
    }
};

struct ProgramComparison::Side {
    /// `shown` none: what is read of the image.
    Side(const std::optional<DocumentContents>& shown, const DeviceImage& deviceImage)
        : image(deviceImage), read(DeviceProgramImage::contentsOf(deviceImage)),
          contents(shown ? shown : read) {}

    /// In the order of the day.
    std::vector<Item> points() const {
        std::vector<Item> items;
        // A single point is stored as two.
        const bool isDoubled = contents->points.size() == 1 && read->points.size() == 2;
        for (std::size_t i = 0; i < read->points.size(); ++i) {
            const std::size_t shown = isDoubled ? 0 : i;
            if (shown < contents->points.size())
                items.push_back(
                    {contents->points[shown], read->points[i], levelsAt(i), isOfTwoChannels()});
        }
        std::ranges::stable_sort(items, {}, &Item::minute);
        return items;
    }
    Levels levelsAt(std::size_t index) const {
        Levels levels(image.channels.size());
        for (std::size_t channel = 0; channel < levels.size(); ++channel) {
            // The first entries of these hold the task light.
            const bool isTaskLight = !isOfTwoChannels() && channel < 2 && index == 0;
            if (!isTaskLight && index < image.channels[channel].size())
                levels[channel] = image.channels[channel][index].level;
        }
        return levels;
    }
    Item taskLight() const {
        Levels levels{image.taskMode.cold, image.taskMode.warm};
        const std::size_t first = image.channels[0].empty() ? 2 : 0;
        for (std::size_t channel = first; !isOfTwoChannels() && channel < first + 2; ++channel)
            if (!image.channels[channel].empty())
                levels.push_back(image.channels[channel].front().level);
        return {contents->taskLight, read->taskLight, levels, isOfTwoChannels()};
    }
    bool isOfTwoChannels() const { return image.channels.size() < fourChannels; }

    const DeviceImage& image;
    std::optional<DocumentContents> read;
    std::optional<DocumentContents> contents;
};

ProgramComparison::ProgramComparison(const DocumentContents& here, const StoredProgram& lamp)
    : m_countsAsRead(lamp.contents.has_value()) {
    if (lamp.contents && lamp.contents->points == here.points &&
        lamp.contents->taskLight == here.taskLight)
        return;
    const auto channels = static_cast<int>(lamp.image.channels.size());
    const DeviceImage image = DeviceProgramImage::imageOf(here, channels);
    compare(Side(here, image), Side(lamp.contents, lamp.image));
}

ProgramComparison::ProgramComparison(const DocumentContents& sent, const DeviceImage& image,
                                     const DeviceImage& stored) {
    compare(Side(sent, image), Side(std::nullopt, stored));
}

void ProgramComparison::compare(const Side& here, const Side& lamp) {
    if (here.image == lamp.image)
        return;
    if (!here.read || !lamp.read) {
        compareChannels(here.image, lamp.image, Rest::All);
        compareTaskModes(here.image.taskMode, lamp.image.taskMode);
        m_isWhole = lamp.read.has_value();
        return;
    }
    // Also a program that cannot be given back, such as one of a single entry.
    if (!m_countsAsRead || here.contents->points != lamp.contents->points) {
        comparePoints(here, lamp);
        if (isEqual())
            compareChannels(here.image, lamp.image, Rest::ExceptPoints);
    }
    compareTaskLights(here.taskLight(), lamp.taskLight());
}

void ProgramComparison::comparePoints(const Side& here, const Side& lamp) {
    const auto points = here.points();
    const auto others = lamp.points();
    auto point = points.begin();
    auto other = others.begin();
    const auto only = [this](const QString& text, const Item& item) {
        ++m_points;
        m_lines << text.arg(item.clock());
    };
    while (point != points.end() || other != others.end()) {
        if (other == others.end() || (point != points.end() && point->minute() < other->minute()))
            only(tr("%1 only here"), *point++);
        else if (point == points.end() || other->minute() < point->minute())
            only(tr("%1 only in the lamp"), *other++);
        else
            comparePoint(*point++, *other++);
    }
}

void ProgramComparison::comparePoint(const Item& here, const Item& lamp) {
    if (areEqual(here.levels, lamp.levels) || (m_countsAsRead && here.shown == lamp.shown))
        return;
    ++m_points;
    addLight(here.clock(), here, lamp);
}

void ProgramComparison::compareTaskLights(const Item& here, const Item& lamp) {
    if (m_countsAsRead && here.shown == lamp.shown)
        return;
    const QString place = tr("Task light");
    const auto count = m_lines.size();
    if (here.read.time != lamp.read.time)
        m_lines << tr("%1: %2 here, %3 in the lamp")
                       .arg(place, durationOf(here.read.time), durationOf(lamp.read.time));
    if (!areEqual(here.levels, lamp.levels))
        addLight(place, here, lamp);
    m_isTaskLightEqual = m_lines.size() == count;
}

void ProgramComparison::compareTaskModes(const DeviceImage::TaskMode& here,
                                         const DeviceImage::TaskMode& lamp) {
    const QString place = tr("Task light");
    if (here.minutes != lamp.minutes || here.seconds != lamp.seconds)
        m_lines << tr("%1: %2 here, %3 in the lamp")
                       .arg(place, durationOf(here.minutes, here.seconds),
                            durationOf(lamp.minutes, lamp.seconds));
    if (here.cold != lamp.cold || here.warm != lamp.warm)
        m_lines << tr("%1: levels %2 here, %3 in the lamp")
                       .arg(place, textOf({here.cold, here.warm}), textOf({lamp.cold, lamp.warm}));
}

void ProgramComparison::addLight(const QString& place, const Item& here, const Item& lamp) {
    QStringList lines;
    const bool isOtherIntensity = here.read.brightness != lamp.read.brightness;
    const bool isOneDark = here.read.brightness == 0.0 || lamp.read.brightness == 0.0;
    if (isOtherIntensity)
        lines << percentsDiffer(tr("%1: %2 here, %3 in the lamp"), place, here.shown.brightness,
                                lamp.shown.brightness);
    // Where one is dark its colour says nothing.
    if (!(isOtherIntensity && isOneDark) && !lamp.hasColorOf(here))
        lines << percentsDiffer(tr("%1: colour temperature %2 here, %3 in the lamp"), place,
                                here.shown.colorTemp, lamp.shown.colorTemp);
    lines.removeAll(QString());
    if (lines.isEmpty())
        lines << tr("%1: levels %2 here, %3 in the lamp")
                     .arg(place, textOf(here.levels), textOf(lamp.levels));
    m_lines += lines;
}

void ProgramComparison::compareChannels(const DeviceImage& here, const DeviceImage& lamp,
                                        Rest rest) {
    const auto before = m_lines.size();
    for (std::size_t channel = 0; channel < here.channels.size(); ++channel) {
        const auto& ours = here.channels[channel];
        const auto& theirs = lamp.channels[channel];
        if (ours.size() != theirs.size()) {
            m_lines << tr("Channel %1: %2 entries here, %3 in the lamp")
                           .arg(channel + 1)
                           .arg(ours.size())
                           .arg(theirs.size());
            continue;
        }
        const auto [our, their] =
            std::ranges::mismatch(ours, theirs, [rest](const auto& first, const auto& second) {
                return areAtOneTime(first, second) &&
                       (rest == Rest::ExceptPoints || first.level == second.level);
            });
        if (our == ours.end())
            continue;
        const auto entry = our - ours.begin() + 1;
        if (!areAtOneTime(*our, *their))
            m_lines << tr("Channel %1, entry %2: %3 here, %4 in the lamp")
                           .arg(channel + 1)
                           .arg(entry)
                           .arg(clockOf(*our), clockOf(*their));
        else
            m_lines << tr("Channel %1, entry %2: level %3 here, %4 in the lamp")
                           .arg(channel + 1)
                           .arg(entry)
                           .arg(our->level)
                           .arg(their->level);
    }
    m_others += static_cast<int>(m_lines.size() - before);
}

QString ProgramComparison::change() const {
    if (!m_isWhole)
        return tr("The incomplete or damaged program in the lamp is replaced");
    if (m_points == 0)
        return !m_isTaskLightEqual ? tr("The task light changes")
               : m_others > 0      ? tr("The stored levels change")
                                   : tr("Nothing changes");
    if (m_points == 1)
        return m_isTaskLightEqual ? tr("1 point changes") : tr("1 point and the task light change");
    return m_isTaskLightEqual ? tr("%n points change", nullptr, m_points)
                              : tr("%n points and the task light change", nullptr, m_points);
}

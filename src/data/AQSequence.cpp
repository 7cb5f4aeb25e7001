#include "data/AQSequence.h"

#include "data/AQDataSource.h"
#include "data/PointColumn.h"

#include <algorithm>

AQSequence::AQSequence(AQDataSource& document) : m_document(document) {}

const AQTimePoint& AQSequence::at(int row) const {
    Q_ASSERT(isRow(row));
    return m_data[static_cast<std::size_t>(row)];
}

int AQSequence::rowOf(AQPointId id) const {
    const auto found = std::ranges::find(m_data, id, &AQTimePoint::id);
    return id == AQPointId::none || found == m_data.end()
               ? -1
               : static_cast<int>(found - m_data.begin());
}

NotificationCenter& AQSequence::notifications() const {
    return m_document.notifications();
}

History& AQSequence::history() const {
    return m_document.history();
}

const ProgramPreview& AQSequence::preview() const {
    return m_document.preview();
}

int AQSequence::pointLimit() const {
    const auto device = m_document.device();
    return device ? device->pointLimit(defaultPointLimit) : defaultPointLimit;
}

void AQSequence::updateWithRow(int row, ColorTemp value, const QObject* sender) {
    if (!isRow(row))
        return;
    m_data[static_cast<std::size_t>(row)].colorTemp = value.fraction;
    m_document.noteEdit({idAt(row), PointColumn::colorTemp});
    notifyCellChange(row, PointColumn::colorTemp, sender);
}

void AQSequence::updateWithRow(int row, Brightness value, const QObject* sender) {
    if (!isRow(row))
        return;
    m_data[static_cast<std::size_t>(row)].brightness = value.fraction;
    m_document.noteEdit({idAt(row), PointColumn::brightness});
    notifyCellChange(row, PointColumn::colorTemp, sender);
    notifyCellChange(row, PointColumn::brightness, sender);
}

int AQSequence::setTime(int row, AQTime time, const QObject* sender) {
    if (!isRow(row) || !time.isValid())
        return -1;
    m_data[static_cast<std::size_t>(row)].time = time;
    const History::Value edited{idAt(row), PointColumn::time};

    const int minute = time.minuteOfDay();
    const int previous = row > 0 ? minuteAt(row - 1) : -1;
    const int next = row + 1 < count() ? minuteAt(row + 1) : AQTime::minutesPerDay;
    if (previous < minute && minute < next) {
        m_document.noteEdit(edited);
        notifyCellChange(row, PointColumn::time, sender);
        return -1;
    }
    // Stable, so that points of the same minute (a file may hold some) do not swap at random.
    std::ranges::stable_sort(m_data, {},
                             [](const AQTimePoint& point) { return point.time.minuteOfDay(); });
    const auto moved = std::ranges::find_if(
        m_data, [minute](const AQTimePoint& point) { return point.time.minuteOfDay() == minute; });
    const int newRow = static_cast<int>(moved - m_data.begin());
    m_document.noteEdit(edited);
    notifyDataChange(sender, true);
    return newRow;
}

int AQSequence::addNewAfter(int row, const QObject* sender) {
    int newRow = 0;
    int minute = 0;
    bool found = m_data.empty();
    if (row >= 0 && row < count() - 1) {
        const int before = minuteAt(row);
        const int after = minuteAt(row + 1);
        minute = (before + after + 1) / 2;
        newRow = row + 1;
        found = minute != before && minute != after;
    }
    if (!found) {
        minute = AQTime::minutesPerDay - 1;
        newRow = count();
        while (newRow > 0 && minute <= minuteAt(newRow - 1))
            minute = minuteAt(--newRow) - 1;
    }
    insert(newRow, minute);
    m_document.noteStep();
    notifyDataChange(sender, true);
    return newRow;
}

void AQSequence::insert(int row, int minuteOfDay) {
    // With every minute of the day taken the search ends at -1, which stands for 23:59.
    const int minute = (minuteOfDay + AQTime::minutesPerDay) % AQTime::minutesPerDay;
    const auto point =
        m_data.insert(m_data.begin() + row, {.time = AQTime::fromMinuteOfDay(minute)});
    giveId(*point);
}

int AQSequence::add(const AQTimePoint& point, const QObject* sender) {
    const auto behind =
        std::ranges::upper_bound(m_data, point.time.minuteOfDay(), {},
                                 [](const AQTimePoint& other) { return other.time.minuteOfDay(); });
    const auto added = m_data.insert(behind, {point.time, point.colorTemp, point.brightness});
    giveId(*added);
    const int row = static_cast<int>(added - m_data.begin());
    m_document.noteStep();
    notifyDataChange(sender, true);
    return row;
}

void AQSequence::deleteWithRow(int row, const QObject* sender) {
    if (!isRow(row))
        return;
    m_data.erase(m_data.begin() + row);
    m_document.noteStep();
    notifyDataChange(sender, true);
}

void AQSequence::replaceAll(std::vector<AQTimePoint> points, const QString& stepName,
                            const QObject* sender) {
    replacePoints(std::move(points));
    m_document.noteStep(stepName);
    notifyDataChange(sender, true);
}

bool AQSequence::hasPointAt(AQTime time, int exceptRow) const {
    for (int row = 0; row < count(); ++row)
        if (row != exceptRow && minuteAt(row) == time.minuteOfDay())
            return true;
    return false;
}

void AQSequence::notifyDataChange(const QObject* sender, bool dirty) {
    if (dirty)
        m_document.markDirtyOrClean();
    // Who hears of the change finds the selection as it is afterwards.
    m_document.selection().follow();
    Q_EMIT notifications().dataChanged(sender);
    m_document.selection().announceChange(sender);
}

void AQSequence::notifySelectionChange(int row, const QObject* sender) {
    if (row < count())
        m_document.selection().select(idAt(row), sender);
}

void AQSequence::notifyCellChange(int row, int column, const QObject* sender) {
    Q_EMIT notifications().cellChanged(row, column, sender);
}

void AQSequence::replacePoints(std::vector<AQTimePoint> points) {
    m_data = std::move(points);
    for (AQTimePoint& point : m_data)
        giveId(point);
}

void AQSequence::giveId(AQTimePoint& point) {
    if (point.id == AQPointId::none)
        point.id = AQPointId{++m_lastId};
}

#include "workflows/PointTableModel.h"

#include "controls/time/TimeText.h"
#include "data/AQDataSource.h"

#include <QLocale>

namespace {

constexpr int columns = 3;

QString percent(double fraction) {
    return QStringLiteral("%1 %").arg(qRound(fraction * 100));
}

} // namespace

PointTableModel::PointTableModel(AQDataSource& data, QObject* parent)
    : QAbstractTableModel(parent), m_document(data), m_rows(data.sequence().count()) {
    auto& notifications = data.notifications();
    connect(&notifications, &NotificationCenter::dataChanged, this,
            &PointTableModel::onDataChanged);
    connect(&notifications, &NotificationCenter::dataLoaded, this, &PointTableModel::onDataChanged);
    connect(&notifications, &NotificationCenter::cellChanged, this,
            &PointTableModel::onCellChanged);
}

int PointTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int PointTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

QVariant PointTableModel::data(const QModelIndex& index, int role) const {
    const AQSequence& sequence = m_document.sequence();
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || index.row() >= sequence.count())
        return {};
    const AQTimePoint& point = sequence.at(index.row());
    const bool isText = role == Qt::DisplayRole;
    if (!isText && role != Qt::EditRole)
        return {};
    switch (index.column()) {
    case NotificationCenter::columnTime:
        if (isText)
            return timeText(point.time.hour, point.time.minute);
        return QVariant::fromValue(point.time);
    case NotificationCenter::columnColorTemp:
        return isText ? QVariant(percent(point.colorTemp))
                      : QVariant(QVariantList{point.colorTemp, point.brightness});
    default:
        return isText ? QVariant(percent(point.brightness)) : QVariant(point.brightness);
    }
}

QVariant PointTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case NotificationCenter::columnTime:
        return QStringLiteral("Time");
    case NotificationCenter::columnColorTemp:
        return QStringLiteral("Colour temperature");
    case NotificationCenter::columnBrightness:
        return QStringLiteral("Intensity");
    default:
        return {};
    }
}

void PointTableModel::onDataChanged() {
    const int count = m_document.sequence().count();
    if (count > m_rows) {
        beginInsertRows({}, m_rows, count - 1);
        m_rows = count;
        endInsertRows();
    } else if (count < m_rows) {
        beginRemoveRows({}, count, m_rows - 1);
        m_rows = count;
        endRemoveRows();
    }
    if (count > 0)
        Q_EMIT dataChanged(index(0, 0), index(count - 1, columns - 1));
}

void PointTableModel::onCellChanged(int row, int column) {
    if (row >= 0 && row < m_rows)
        Q_EMIT dataChanged(index(row, column), index(row, column));
}

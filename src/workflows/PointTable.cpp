#include "workflows/PointTable.h"

#include "controls/sliders/AQSliderBrightness.h"
#include "controls/sliders/AQSliderColorTemp.h"
#include "controls/time/AQTimeEdit.h"
#include "data/AQDataSource.h"
#include "workflows/ControlStates.h"
#include "workflows/PointTableModel.h"

#include <QAbstractButton>
#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTimer>

namespace {

constexpr int smallestRowHeight = 48;
constexpr int cellMargin = 4;
constexpr int smallestTimeColumnWidth = 112;

/// Leaves a margin around each cell's control, in which the selection shows, and draws no text of
/// its own: the controls do, and a disabled one would let it shine through.
class CellDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& /*index*/) const override {
        editor->setGeometry(option.rect.adjusted(cellMargin, cellMargin, -cellMargin, -cellMargin));
    }
    QString displayText(const QVariant& /*value*/, const QLocale& /*locale*/) const override {
        return {};
    }
};

QString analogInputReason() {
    return QStringLiteral("Not while the lamp follows its analog 1-10 V input");
}

} // namespace

PointTable::PointTable(AQDataSource& data, Outlets outlets, QObject* parent)
    : QObject(parent), m_data(data), m_outlets(outlets), m_model(new PointTableModel(data, this)) {
    QTableView& table = m_outlets.tableView;
    table.setModel(m_model);
    table.setItemDelegate(new CellDelegate(&table));
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(smallestRowHeight);
    table.horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table.horizontalHeader()->setSectionResizeMode(NotificationCenter::columnTime,
                                                   QHeaderView::Fixed);
    table.setColumnWidth(NotificationCenter::columnTime, smallestTimeColumnWidth);
    table.installEventFilter(this);
    syncRows();

    connect(m_model, &QAbstractItemModel::rowsInserted, this, &PointTable::syncRows);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, &PointTable::syncRows);
    connect(m_model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last) {
                for (int row = first.row(); row <= last.row(); ++row)
                    for (int column = first.column(); column <= last.column(); ++column)
                        refresh(row, column);
            });
    connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &PointTable::onSelectionDidChange);
    connect(&data.notifications(), &NotificationCenter::sectionChanged, this,
            &PointTable::onSectionChanged);
    connect(&data.notifications(), &NotificationCenter::dataChanged, this,
            &PointTable::updateButtons);
    connect(&m_outlets.bttnTableItemAdd, &QAbstractButton::clicked, this,
            &PointTable::onTableItemAdd);
    connect(&m_outlets.bttnTableItemDelete, &QAbstractButton::clicked, this,
            &PointTable::onTableItemDelete);
    connect(&m_outlets.menuitemAddPoint, &QAction::triggered, this, &PointTable::onTableItemAdd);
    connect(&m_outlets.menuitemDeletePoint, &QAction::triggered, this,
            &PointTable::onTableItemDelete);
    updateButtons();
}

PointTable::~PointTable() {
    for (const CellControls& row : m_rows)
        for (AQValueView* view : row)
            view->setDelegate(nullptr);
}

int PointTable::selectedRow() const {
    const auto rows = m_outlets.tableView.selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void PointTable::setEditingEnabled(bool enabled) {
    m_editingEnabled = enabled;
    for (const CellControls& row : m_rows)
        for (AQValueView* view : row)
            view->setEnabled(enabled);
    m_outlets.tableView.setEnabled(enabled);
    updateButtons();
}

void PointTable::syncRows() {
    const int count = m_model->rowCount();
    // The view deletes the controls of a row that goes; only our own record is left to shorten.
    if (static_cast<int>(m_rows.size()) > count)
        m_rows.resize(static_cast<std::size_t>(count));
    while (static_cast<int>(m_rows.size()) < count) {
        const int row = static_cast<int>(m_rows.size());
        m_rows.push_back(makeRow(row));
        insertIntoTabOrder(row);
        if (row == 0)
            fitToFont();
    }
    updateButtons();
}

PointTable::CellControls PointTable::makeRow(int row) {
    QTableView& table = m_outlets.tableView;
    auto* time = new AQTimeEdit(table.viewport());
    auto* colorTemp = new AQSliderColorTemp(table.viewport());
    auto* brightness = new AQSliderBrightness(table.viewport());
    // Also where a limit keeps the value and nobody else hears of it.
    const auto markDirty = [this] { m_data.setIsDirty(true); };
    connect(colorTemp, &AQSlider::edited, this, markDirty);
    connect(brightness, &AQSlider::edited, this, markDirty);
    const CellControls controls{time, colorTemp, brightness};
    for (int column = 0; column < static_cast<int>(controls.size()); ++column) {
        AQValueView* view = controls[static_cast<std::size_t>(column)];
        view->setAccessibleName(
            QStringLiteral("Point %1, %2")
                .arg(row + 1)
                .arg(m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString()));
        view->setObjectName(QStringLiteral("cell_%1_%2").arg(row).arg(column));
        view->setEnabled(m_editingEnabled);
        view->setDelegate(this);
        table.setIndexWidget(m_model->index(row, column), view);
    }
    const QScopedValueRollback guard(m_refreshing, true);
    for (int column = 0; column < static_cast<int>(controls.size()); ++column)
        controls[static_cast<std::size_t>(column)]->setObjectValue(
            m_model->data(m_model->index(row, column), Qt::EditRole));
    return controls;
}

// Qt appends new controls to the window's order; they are read after what stands before the table.
void PointTable::insertIntoTabOrder(int row) {
    const QTableView& table = m_outlets.tableView;
    QWidget* before = nullptr;
    if (row > 0) {
        before = m_rows[static_cast<std::size_t>(row) - 1].back();
    } else {
        before = table.previousInFocusChain();
        while (before != &table &&
               (!(before->focusPolicy() & Qt::TabFocus) || table.isAncestorOf(before)))
            before = before->previousInFocusChain();
    }
    for (AQValueView* view : m_rows[static_cast<std::size_t>(row)]) {
        QWidget::setTabOrder(before, view);
        before = view;
    }
}

void PointTable::refresh(int row, int column) {
    if (row >= static_cast<int>(m_rows.size()))
        return;
    const QScopedValueRollback guard(m_refreshing, true);
    m_rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]->setObjectValue(
        m_model->data(m_model->index(row, column), Qt::EditRole));
}

// The cells grow with the person's font, and the window leaves them room.
void PointTable::fitToFont() {
    if (m_rows.empty())
        return;
    QTableView& table = m_outlets.tableView;
    std::array<QSize, 3> cells;
    int rowHeight = smallestRowHeight;
    for (std::size_t column = 0; column < cells.size(); ++column) {
        cells[column] =
            m_rows.front()[column]->minimumSizeHint() + 2 * QSize(cellMargin, cellMargin);
        rowHeight = std::max(rowHeight, cells[column].height());
    }
    const int timeWidth = std::max(smallestTimeColumnWidth, cells.front().width());
    // The sliders' columns are equally wide.
    const int sliderWidth = std::max(cells[1].width(), cells[2].width());
    table.verticalHeader()->setDefaultSectionSize(rowHeight);
    table.setColumnWidth(NotificationCenter::columnTime, timeWidth);
    table.setMinimumWidth(timeWidth + 2 * sliderWidth + 2 * table.frameWidth() +
                          table.verticalScrollBar()->sizeHint().width());
}

bool PointTable::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_outlets.tableView && event->type() == QEvent::FontChange)
        fitToFont();
    return QObject::eventFilter(watched, event);
}

PointTable::Cell PointTable::cellOf(const AQValueView& view) const {
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        for (std::size_t column = 0; column < m_rows[row].size(); ++column)
            if (m_rows[row][column] == &view)
                return {static_cast<int>(row), static_cast<int>(column)};
    return {};
}

bool PointTable::aqValueShouldChange(AQValueView& view, const QVariant& value) {
    const Cell cell = cellOf(view);
    if (cell.row < 0 || cell.column != NotificationCenter::columnTime)
        return true;
    return !m_data.sequence().hasPointAt(value.value<AQTime>(), cell.row);
}

void PointTable::aqValueDidChange(AQValueView& view, const QVariant& value) {
    if (m_refreshing)
        return;
    const Cell cell = cellOf(view);
    if (cell.row < 0)
        return;
    if (cell.column == NotificationCenter::columnTime)
        setTime(cell.row, value);
    else if (cell.column == NotificationCenter::columnColorTemp)
        m_data.sequence().updateWithRow(cell.row, AQSequence::ColorTemp{value.toDouble()}, this);
    else
        m_data.sequence().updateWithRow(cell.row, AQSequence::Brightness{value.toDouble()}, this);
}

void PointTable::setTime(int row, const QVariant& value) {
    const int newRow = m_data.sequence().setTime(row, value.value<AQTime>(), this);
    if (newRow < 0)
        return;
    selectOnNextTurn(newRow);
    QTimer::singleShot(0, this, [this, row, newRow] { moveFocus(row, newRow); });
}

void PointTable::aqGotFocus(AQValueView& view) {
    const Cell cell = cellOf(view);
    if (cell.row >= 0)
        select(cell.row);
}

void PointTable::onTableItemAdd() {
    if (!m_editingEnabled || !m_data.sequence().hasSpace())
        return;
    selectOnNextTurn(m_data.sequence().addNewAfter(selectedRow(), this));
}

void PointTable::onTableItemDelete() {
    const int row = selectedRow();
    if (!m_editingEnabled || row < 0)
        return;
    AQSequence& sequence = m_data.sequence();
    // There is a selection all the time: without one the delete button would be disabled for a
    // moment and lose the keyboard focus.
    const bool isLast = row == sequence.count() - 1;
    if (isLast)
        select(row - 1);
    sequence.deleteWithRow(row, this);
    if (!isLast) // the same row, another point
        sequence.notifySelectionChange(row, this);
}

void PointTable::select(int row) {
    QTableView& table = m_outlets.tableView;
    if (row < 0 || row >= m_model->rowCount()) {
        table.clearSelection();
        return;
    }
    // Selects without making the cell current: that would take the keyboard focus to its control,
    // away from the curve when the person works there.
    const QModelIndex index = m_model->index(row, 0);
    table.selectionModel()->select(index,
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    table.scrollTo(index);
}

void PointTable::selectOnNextTurn(int row) {
    QTimer::singleShot(0, this, [this, row] {
        const bool isSelected = row == selectedRow();
        select(row);
        if (isSelected) // the same row, another point
            m_data.sequence().notifySelectionChange(row, this);
    });
}

// A point that moved takes the keyboard focus along, so that stepping its time, or tabbing to its
// light, goes on. A focus that the person has moved to another point stays.
void PointTable::moveFocus(int fromRow, int toRow) {
    if (std::max(fromRow, toRow) >= static_cast<int>(m_rows.size()))
        return;
    const CellControls& from = m_rows[static_cast<std::size_t>(fromRow)];
    const auto focused = std::ranges::find_if(from, &QWidget::hasFocus);
    if (focused == from.end())
        return;
    AQValueView* target = m_rows[static_cast<std::size_t>(toRow)].at(
        static_cast<std::size_t>(focused - from.begin()));
    const auto* time = qobject_cast<AQTimeEdit*>(*focused);
    if (auto* movedTime = qobject_cast<AQTimeEdit*>(target); time && movedTime)
        movedTime->takeFocusFrom(*time);
    else
        target->setFocus();
}

void PointTable::onSectionChanged(int row, const QObject* sender) {
    if (sender == this)
        return;
    const QScopedValueRollback guard(m_following, true);
    select(row);
    updateButtons();
}

void PointTable::onSelectionDidChange() {
    updateButtons();
    if (!m_following)
        m_data.sequence().notifySelectionChange(selectedRow(), this);
}

void PointTable::updateButtons() {
    ControlState add{true, QStringLiteral("Add a point after the selected one")};
    if (!m_data.sequence().hasSpace())
        add = {false, QStringLiteral("The controller holds no more than %1 points")
                          .arg(m_data.sequence().pointLimit())};
    ControlState remove{true, QStringLiteral("Delete the selected point")};
    if (selectedRow() < 0)
        remove = {false, QStringLiteral("Select a point first")};
    if (!m_editingEnabled)
        add = remove = {false, analogInputReason()};
    add.applyTo(m_outlets.bttnTableItemAdd);
    add.applyTo(m_outlets.menuitemAddPoint);
    remove.applyTo(m_outlets.bttnTableItemDelete);
    remove.applyTo(m_outlets.menuitemDeletePoint);
}

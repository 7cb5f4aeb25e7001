#include "controls/points/AQPointList.h"

#include "controls/AQValueView.h"
#include "controls/AccentColor.h"
#include "controls/AccessibleFactory.h"
#include "controls/LetGo.h"
#include "controls/Strokes.h"
#include "controls/points/AQPointListAccessible.h"
#include "controls/points/AQPointListHeader.h"
#include "controls/points/AQPointRow.h"
#include "controls/points/AQScrollBar.h"
#include "data/AQSelection.h"
#include "data/AQSequence.h"
#include "data/NotificationCenter.h"
#include "data/TimeText.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace {

/// One for the line, and one that keeps the contents, which begin on whole device pixels, off it.
constexpr int frameInset = 2;
constexpr int usualRowHeight = 48;
constexpr int smallestTimeWidth = 112;
constexpr int usualRows = 5;
constexpr int fewestRows = 2;
/// Beyond what is seen, so that scrolling by a wheel's notch finds the rows there.
constexpr int neighbours = 6;

} // namespace

AQPointList::AQPointList(AQSequence& sequence, AQSelection& selection, QWidget* parent)
    : QScrollArea(parent), m_sequence(sequence), m_selection(selection),
      m_header(new AQPointListHeader(this)), m_rowHeight(usualRowHeight) {
    AccessibleFactory::install<AQPointList, AQPointListAccessible>();
    m_unseenRows.setSingleShot(true);
    connect(&m_unseenRows, &QTimer::timeout, this, [this] { placeRows(Making::all); });
    setVerticalScrollBar(new AQScrollBar(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(frameInset);
    setFocusPolicy(Qt::NoFocus); // its rows take it
    setAccessibleName(tr("Light program points"));
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    setWidget(new QWidget);
    widget()->setAutoFillBackground(false);

    const NotificationCenter& notifications = sequence.notifications();
    connect(&notifications, &NotificationCenter::dataChanged, this, &AQPointList::onDataChanged);
    connect(&notifications, &NotificationCenter::cellChanged, this, [this](int row) {
        if (const PlacedRow* changed = placed(row))
            changed->widget->refresh(row);
        AQPointListAccessible::tellNames(*this);
    });
    connect(&notifications, &NotificationCenter::sectionChanged, this,
            &AQPointList::onSelectionChanged);
    connect(&notifications, &NotificationCenter::dataLoaded, this,
            [this] { verticalScrollBar()->setValue(0); });
    fitToFont();
    layOut();
}

int AQPointList::count() const {
    return m_sequence.count();
}

int AQPointList::selectedRow() const {
    return m_selection.row();
}

void AQPointList::setSelectedRow(int row) {
    m_selection.select(m_sequence.idAt(row), this);
}

AQPointRow* AQPointList::rowAt(int row) {
    if (row < 0 || row >= count())
        return nullptr;
    m_wantedRow = row;
    if (!placed(row))
        placeRows(Making::needed);
    return placed(row)->widget;
}

QString AQPointList::rowName(int row) const {
    const AQTime& time = m_sequence.at(row).time;
    return tr("Point %1 of %2, %3").arg(row + 1).arg(count()).arg(timeText(time.hour, time.minute));
}

QRect AQPointList::rowRect(int row) const {
    return {widget()->mapToGlobal(QPoint(0, row * m_rowHeight)),
            QSize(widget()->width(), m_rowHeight)};
}

void AQPointList::focusEditor(int row, int column, Qt::FocusReason reason) {
    if (AQPointRow* wanted = rowAt(row))
        wanted->editor(column).setFocus(reason);
}

const AQPointList::PlacedRow* AQPointList::placed(int row) const {
    const auto found = std::ranges::lower_bound(m_rows, row, {}, &PlacedRow::row);
    return found != m_rows.end() && found->row == row ? &*found : nullptr;
}

const AQPointList::PlacedRow* AQPointList::focusedRow() const {
    const auto found = std::ranges::find_if(
        m_rows, [](const PlacedRow& placed) { return placed.widget->focusedColumn() >= 0; });
    return found == m_rows.end() ? nullptr : &*found;
}

// Follows the program

void AQPointList::onDataChanged() {
    m_wantedRow = -1;
    // Before the focus goes to another row: it is read by its name.
    for (const auto& [row, widget] : m_rows) {
        widget->refresh(m_sequence.rowOf(widget->id()));
        widget->setIsSelected(widget->id() == m_selection.id());
    }
    AQPointListAccessible::tellNames(*this);
    layOut();
}

void AQPointList::onSelectionChanged() {
    const int selected = m_selection.row();
    for (const auto& [row, widget] : m_rows)
        widget->setIsSelected(row == selected);
    if (selected < 0)
        return;
    AQPointListAccessible::tellSelection(*this);
    // A point that only stands elsewhere now takes no focus: a press may be on its way to another
    // editor, which has it already.
    const bool isAnother = std::exchange(m_shownId, m_selection.id()) != m_selection.id();
    if (const PlacedRow* focused = focusedRow(); isAnother && focused && focused->row != selected)
        focusEditor(selected, focused->widget->focusedColumn(), Qt::OtherFocusReason);
    scrollTo(selected);
}

void AQPointList::scrollTo(int row) {
    QScrollBar* bar = verticalScrollBar();
    const int top = row * m_rowHeight;
    const int highest = top + m_rowHeight - viewport()->height();
    bar->setValue(std::clamp(bar->value(), std::min(highest, top), top));
}

// Rows are kept by their points. One whose point went hands its focus on before it goes, or the
// focus would land wherever the window's order leads, and select that.
void AQPointList::placeRows(Making making) {
    const PlacedRow* focused = focusedRow();
    AQPointRow* const focusedWidget = focused ? focused->widget : nullptr;
    const int focus = focused ? m_sequence.rowOf(focusedWidget->id()) : -1;
    std::unordered_map<AQPointId, AQPointRow*> former;
    for (const PlacedRow& placed : m_rows)
        former.emplace(placed.widget->id(), placed.widget);

    std::vector<PlacedRow> rows;
    bool isReordered = false;
    for (int row = 0; row < count(); ++row) {
        if (!isKept(row, focus))
            continue;
        const AQPointId id = m_sequence.idAt(row);
        const auto known = former.extract(id);
        if (!known && making == Making::needed && !isNeeded(row, focus)) {
            m_unseenRows.start();
            continue;
        }
        AQPointRow* widget = known ? known.mapped() : makeRow(id);
        isReordered =
            isReordered || m_rows.size() <= rows.size() || m_rows[rows.size()].widget != widget;
        rows.push_back({row, widget});
        widget->setGeometry(0, row * m_rowHeight, this->widget()->width(), m_rowHeight);
        widget->setTimeWidth(m_timeWidth);
        if (!known) {
            widget->refresh(row);
            widget->setIsSelected(id == m_selection.id());
            widget->show();
        }
    }
    m_rows = std::move(rows);
    if (isReordered)
        linkTabs();
    if (focusedWidget && focus < 0)
        focusEditor(m_selection.row(), focusedWidget->focusedColumn(), Qt::OtherFocusReason);
    for (const auto& [id, widget] : former)
        letGo(*widget, *this);
}

bool AQPointList::isKept(int row, int focusedRow) const {
    return count() <= mostRowsKept || isNeeded(row, focusedRow) || isNear(row, neighbours);
}

/// For the next thing that a person sees or does.
bool AQPointList::isNeeded(int row, int focusedRow) const {
    return row == 0 || row == count() - 1 || row == m_wantedRow || isNear(row, 0) ||
           (focusedRow >= 0 && std::abs(row - focusedRow) <= 1);
}

/// At most `distance` rows beside what is seen.
bool AQPointList::isNear(int row, int distance) const {
    const int first = verticalScrollBar()->value() / m_rowHeight;
    const int seen = viewport()->height() / m_rowHeight + 1;
    return row >= first - distance && row <= first + seen + distance;
}

AQPointRow* AQPointList::makeRow(AQPointId id) {
    auto* row = new AQPointRow(m_sequence, id, widget());
    connect(row, &AQPointRow::turnedTo, this,
            [this](AQPointId turnedTo) { m_selection.select(turnedTo, this); });
    connect(row, &AQPointRow::deleteRequested, this, &AQPointList::deleteRequested);
    return row;
}

void AQPointList::setTabAnchor(QWidget& previous) {
    m_tabAnchor = &previous;
    linkTabs();
}

// Qt appends new controls to the window's order; they are read where they stand.
void AQPointList::linkTabs() {
    QWidget* before = m_tabAnchor;
    if (!before)
        return;
    for (const PlacedRow& placed : m_rows)
        for (int column = 0; column < PointColumn::count; ++column) {
            QWidget* editor = &placed.widget->editor(column);
            QWidget::setTabOrder(before, editor);
            before = editor;
        }
}

// Layout

// The rows grow with the person's font, and the window leaves them room.
void AQPointList::fitToFont() {
    const AQPointRow sample(m_sequence, AQPointId::none, this);
    const auto cell = [&](int column) {
        return sample.editor(column).minimumSizeHint() +
               2 * QSize(AQPointRow::margin, AQPointRow::margin);
    };
    m_timeWidth = std::max(smallestTimeWidth, cell(PointColumn::time).width());
    m_leastSliderWidth =
        std::max(cell(PointColumn::colorTemp).width(), cell(PointColumn::brightness).width());
    m_leastRowHeight = 0;
    for (int column = 0; column < PointColumn::count; ++column)
        m_leastRowHeight = std::max(m_leastRowHeight, cell(column).height());
    updateGeometry();
}

void AQPointList::layOut() {
    const int header = m_header->sizeHint().height();
    const int room = height() - 2 * frameWidth() - header;
    // No row is cut in half: when they do not all fit, those that do share the room.
    const int firstSeen = verticalScrollBar()->value() / m_rowHeight;
    m_rowHeight = std::max(usualRowHeight, m_leastRowHeight);
    const bool isTight = count() * m_rowHeight > room && room >= m_leastRowHeight;
    if (isTight)
        m_rowHeight = room / (room / m_leastRowHeight);
    setViewportMargins(0, header, 0, isTight ? room % m_rowHeight : 0);
    verticalScrollBar()->setSingleStep(m_rowHeight);
    m_header->setGeometry(frameWidth(), frameWidth(), width() - 2 * frameWidth(), header);
    m_header->setColumns(m_timeWidth, viewport()->width() - m_timeWidth);
    widget()->resize(viewport()->width(), count() * m_rowHeight);
    verticalScrollBar()->setValue(firstSeen * m_rowHeight);
    placeRows(Making::needed);
}

QSize AQPointList::sizeHint() const {
    return minimumSizeHint() + QSize(0, (usualRows - fewestRows) * usualRowHeight);
}

QSize AQPointList::minimumSizeHint() const {
    return {m_timeWidth + 2 * m_leastSliderWidth + 2 * frameWidth() +
                verticalScrollBar()->sizeHint().width(),
            m_header->sizeHint().height() + fewestRows * m_leastRowHeight + 2 * frameWidth()};
}

void AQPointList::resizeEvent(QResizeEvent* event) {
    const int selected = m_selection.row();
    const int top = selected * m_rowHeight - verticalScrollBar()->value();
    const bool wasSeen = selected >= 0 && top >= 0 && top < event->oldSize().height();
    QScrollArea::resizeEvent(event);
    layOut();
    if (wasSeen)
        scrollTo(selected);
}

void AQPointList::scrollContentsBy(int dx, int dy) {
    QScrollArea::scrollContentsBy(dx, dy);
    if (count() > mostRowsKept)
        placeRows(Making::needed);
}

bool AQPointList::focusNextPrevChild(bool next) {
    // The base class would scroll to what gets the focus by pixels; the selection does by rows.
    return QWidget::focusNextPrevChild(next); // NOLINT: past QScrollArea
}

bool AQPointList::event(QEvent* event) {
    if (event->type() == QEvent::Paint) {
        // The style's frame loses edges at a scale of 1.5.
        QPainter painter(this);
        painter.fillRect(rect(), palette().base());
        Strokes::frame(painter, rect(), 1.0, AccentColor::tone(palette(), 0.3));
        return true;
    }
    if (event->type() == QEvent::FontChange) {
        fitToFont();
        layOut();
    }
    return QScrollArea::event(event);
}

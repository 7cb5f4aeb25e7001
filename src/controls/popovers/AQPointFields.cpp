#include "controls/popovers/AQPointFields.h"

#include "controls/AccessibleFactory.h"
#include "controls/DisplayColors.h"
#include "controls/Strokes.h"
#include "controls/TypedField.h"
#include "controls/popovers/Overlay.h"
#include "controls/popovers/PopoverShape.h"
#include "controls/popovers/RefusalTip.h"
#include "data/AQSequence.h"
#include "data/History.h"
#include "data/NotificationCenter.h"
#include "data/ProgramText.h"
#include "data/TimeText.h"
#include "data/TypedValue.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int border = 1;
constexpr int anchorSide = 30;
constexpr int space = 8;
constexpr QSize borders{2 * border, 2 * border};

/// From left to right.
constexpr std::array columns{PointColumn::time, PointColumn::brightness, PointColumn::colorTemp};
constexpr std::array names{"fieldTime", "fieldColorTemp", "fieldIntensity"}; ///< by PointColumn

class FieldsAccessible : public QAccessibleWidget {
public:
    explicit FieldsAccessible(AQPointFields& fields)
        : QAccessibleWidget(&fields, QAccessible::Grouping) {}
};

/// White as the curve that it lies on, whatever the desktop's theme.
QPalette paperPalette() {
    QPalette palette(DisplayColors::neutral);
    palette.setColor(QPalette::Highlight, DisplayColors::cold);
    palette.setColor(QPalette::HighlightedText, DisplayColors::neutral);
    return palette;
}

void setTextColor(QWidget& widget, const QColor& color) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, color);
    widget.setPalette(palette);
}

double fractionOf(const AQTimePoint& point, int column) {
    return column == PointColumn::brightness ? point.brightness : point.colorTemp;
}

} // namespace

AQPointFields::AQPointFields(AQSequence& sequence, QWidget& owner)
    : QWidget(&owner), m_sequence(sequence), m_owner(owner), m_body(new QWidget(this)),
      m_title(new QLabel(m_body)), m_message(new QLabel(m_body)), m_tip(new RefusalTip(owner)) {
    AccessibleFactory::install<AQPointFields, FieldsAccessible>();
    setObjectName(QStringLiteral("pointFields"));
    setPalette(paperPalette());
    hide();
    m_tip->hide();
    layOut();

    const auto closeWithPoint = [this] {
        if (m_sequence.rowOf(m_id) < 0)
            cancel();
    };
    const NotificationCenter& notifications = sequence.notifications();
    connect(&notifications, &NotificationCenter::dataChanged, this, closeWithPoint);
    connect(&notifications, &NotificationCenter::dataLoaded, this, &AQPointFields::cancel);
}

void AQPointFields::layOut() {
    auto* grid = new QGridLayout(m_body);
    grid->setContentsMargins(space, 0, space, space);
    grid->setHorizontalSpacing(space);
    grid->setVerticalSpacing(space / 2);
    const int count = static_cast<int>(columns.size());

    setTextColor(*m_title, DisplayColors::neutral);
    m_title->setAlignment(Qt::AlignCenter);
    m_title->setMargin(space / 2);
    grid->addWidget(m_title, 0, 0, 1, count);
    for (int place = 0; place < count; ++place) {
        const int column = columns[static_cast<std::size_t>(place)];
        auto* name = new QLabel(PointColumn::title(column), m_body);
        name->setAlignment(Qt::AlignCenter);
        grid->addWidget(name, 1, place);
        grid->addWidget(makeField(column), 2, place);
    }
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->setAlignment(Qt::AlignCenter);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    m_message->setSizePolicy(policy);
    grid->addWidget(m_message, 3, 0, 1, count);
}

TypedField* AQPointFields::makeField(int column) {
    auto* field = new TypedField(
        [this, column](const QString& text) { return faultIn(column, text); }, m_body);
    m_fields[static_cast<std::size_t>(column)] = field;
    field->setObjectName(QLatin1String(names[static_cast<std::size_t>(column)]));
    field->setAlignment(Qt::AlignHCenter);
    connect(field, &TypedField::faultChanged, this, &AQPointFields::showMessage);
    connect(field, &TypedField::entered, this, &AQPointFields::commit);
    connect(field, &TypedField::cancelled, this, &AQPointFields::cancel);
    connect(field, &TypedField::left, this, [this, column] { onLeft(column); });
    return field;
}

// Opens and closes

void AQPointFields::openFor(AQPointId id, QPointF anchor, int column) {
    if (id != m_id && isOpen())
        leave();
    if (m_sequence.rowOf(id) < 0 || !m_owner.isVisible() || !m_owner.isEnabled())
        return;
    if (id != m_id) {
        m_id = id;
        showPoint();
        m_tip->hide();
        layOver(*this, m_owner);
    }
    setAnchor(anchor);
    show();
    field(column).setFocus(Qt::OtherFocusReason);
    field(column).selectAll();
}

void AQPointFields::showPoint() {
    const int row = m_sequence.rowOf(m_id);
    const QString time = timeText(point().time.hour, point().time.minute);
    m_title->setText(tr("Point %1 of %2").arg(row + 1).arg(m_sequence.count()));
    setAccessibleName(tr("Edit point %1 of %2, %3").arg(row + 1).arg(m_sequence.count()).arg(time));
    for (const int column : columns) {
        field(column).showPresent(column == PointColumn::time
                                      ? time
                                      : ProgramText::percent(fractionOf(point(), column)) +
                                            QStringLiteral(" %"));
        field(column).setAccessibleName(
            tr("Point %1, %2, %3").arg(row + 1).arg(time, PointColumn::title(column)));
    }
    showMessage();
}

bool AQPointFields::commit() {
    if (!isOpen())
        return true;
    for (const int column : columns) {
        if (field(column).check())
            continue;
        field(column).setFocus(Qt::OtherFocusReason);
        field(column).selectAll();
        return false;
    }
    applyTyped();
    cancel();
    return true;
}

void AQPointFields::cancel() {
    if (!isOpen())
        return;
    const QWidget* focus = window()->focusWidget();
    m_id = AQPointId::none;
    if (focus && isAncestorOf(focus))
        m_owner.setFocus(Qt::OtherFocusReason);
    hide();
    Q_EMIT closed();
}

void AQPointFields::onLeft(int column) {
    if (!isOpen())
        return;
    if (const QWidget* focus = window()->focusWidget(); focus && isAncestorOf(focus))
        field(column).check();
    else
        leave();
}

void AQPointFields::leave() {
    QStringList dropped;
    for (const int column : columns)
        if (!field(column).check())
            dropped << field(column).fault();
    applyTyped();
    cancel();
    if (!dropped.isEmpty() && m_owner.isVisible())
        m_tip->tell(dropped.join(u' '), discAround(m_anchor));
}

// Reads and keeps what is typed

const AQTimePoint& AQPointFields::point() const {
    return m_sequence.at(m_sequence.rowOf(m_id));
}

QString AQPointFields::faultIn(int column, const QString& text) const {
    if (!isOpen())
        return {};
    if (column != PointColumn::time)
        return typedFraction(text, fractionOf(point(), column)).fault;
    const auto [time, fault] = typedTime(text, point().time);
    if (time && m_sequence.hasPointAt(*time, m_sequence.rowOf(m_id)))
        return tr("Another point already has the time %1").arg(timeText(time->hour, time->minute));
    return fault;
}

// What is not typed stays exactly what it is, which the texts may have rounded.
void AQPointFields::applyTyped() {
    const AQTimePoint old = point();
    const auto typed = [this](int column) {
        return field(column).hasTyped() && field(column).fault().isEmpty();
    };
    if (std::ranges::none_of(columns, typed))
        return;
    History& history = m_sequence.history();
    history.beginGesture();
    if (typed(PointColumn::brightness))
        if (const auto value =
                typedFraction(field(PointColumn::brightness).text(), old.brightness).value)
            m_sequence.updateWithRow(m_sequence.rowOf(m_id), AQSequence::Brightness{*value}, this);
    if (typed(PointColumn::colorTemp))
        if (const auto value =
                typedFraction(field(PointColumn::colorTemp).text(), old.colorTemp).value)
            m_sequence.updateWithRow(m_sequence.rowOf(m_id), AQSequence::ColorTemp{*value}, this);
    if (typed(PointColumn::time))
        if (const auto time = typedTime(field(PointColumn::time).text(), old.time).value;
            time && time->minuteOfDay() != old.time.minuteOfDay())
            m_sequence.setTime(m_sequence.rowOf(m_id), *time, this);
    history.endGesture();
}

void AQPointFields::showMessage() {
    QStringList faults;
    for (const int column : columns)
        if (const QString fault = field(column).fault(); !fault.isEmpty())
            faults << fault;
    m_message->setText(faults.isEmpty() ? tr("Enter keeps, Escape restores") : faults.join(u'\n'));
    setTextColor(*m_message, faults.isEmpty() ? DisplayColors::quietText : Strokes::refusalColor);
    if (isOpen())
        applyPlacement();
}

// Place and picture

void AQPointFields::setAnchor(QPointF anchor) {
    m_anchor = anchor;
    if (isOpen())
        applyPlacement();
}

QRect AQPointFields::discAround(QPointF anchor) {
    return {anchor.toPoint() - QPoint(anchorSide, anchorSide) / 2, QSize(anchorSide, anchorSide)};
}

void AQPointFields::applyPlacement() {
    const QRect bounds = parentWidget()->rect();
    QLayout* layout = m_body->layout();
    layout->activate();
    const int width = std::min(layout->sizeHint().width(), bounds.width() - borders.width());
    const QSize size(width, layout->heightForWidth(width));
    const QRect disc = discAround(m_anchor);
    m_placement = PopoverPlacement::place(
        QRect(m_owner.mapTo(parentWidget(), disc.topLeft()), disc.size()), size + borders, bounds);
    // A low window may have no room beside the point.
    QRect& frame = m_placement.frame;
    frame.moveTop(std::clamp(frame.top(), 0, std::max(0, bounds.height() - frame.height())));
    setGeometry(frame);
    m_body->setGeometry(
        QRect(PopoverShape::body(m_placement).topLeft() + QPoint(border, border), size));
    update();
}

bool AQPointFields::eventFilter(QObject* watched, QEvent* event) {
    if (!isOpen())
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
        applyPlacement();
        break;
    case QEvent::Hide:
    case QEvent::EnabledChange:
        // A window that is put away, and comes back, hides nothing.
        if (!m_owner.isVisible() || !m_owner.isEnabled())
            cancel();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void AQPointFields::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange && isOpen())
        applyPlacement();
}

bool AQPointFields::focusNextPrevChild(bool next) {
    const auto focused = std::ranges::find_if(
        columns, [this](int column) { return &field(column) == window()->focusWidget(); });
    if (!isOpen() || focused == columns.end())
        return QWidget::focusNextPrevChild(next);
    const auto place = static_cast<std::size_t>(focused - columns.begin());
    const std::size_t other = (place + (next ? 1 : columns.size() - 1)) % columns.size();
    field(columns[other]).setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

// A press beside the fields is for nothing below them.
void AQPointFields::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void AQPointFields::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PopoverShape::paintBanded(painter, m_placement, m_body->y() + m_title->geometry().bottom() + 1);
}

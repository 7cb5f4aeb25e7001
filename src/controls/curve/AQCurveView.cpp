#include "controls/curve/AQCurveView.h"

#include "controls/AccessibleFactory.h"
#include "controls/Announcement.h"
#include "controls/DisplayColors.h"
#include "controls/LetGo.h"
#include "controls/Strokes.h"
#include "controls/curve/AQCurvePoint.h"
#include "controls/curve/AQCurvePointAccessible.h"
#include "controls/curve/AQCurveTimeTag.h"
#include "controls/curve/AQCurveViewAccessible.h"
#include "controls/curve/CurvePainter.h"
#include "controls/popovers/AQCurvePointPopover.h"
#include "controls/popovers/AQPointFields.h"
#include "controls/popovers/RefusalTip.h"
#include "data/AQSelection.h"
#include "data/AQSequence.h"
#include "data/History.h"
#include "data/NotificationCenter.h"
#include "data/ProgramChanges.h"
#include "data/ProgramInterpolation.h"
#include "data/ProgramPreview.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace {

/// Around the time tag, for its grips and for hands that aim at it.
constexpr QMargins tagMargins{8, 4, 8, 4};

/// Of what is said at a place from that place.
constexpr QPoint tipDistance{12, 12};

QString duringDemo() {
    return AQCurveView::tr("The demo plays the day here. Stop it to edit the curve.");
}

void announce(QWidget* widget, QAccessible::Event type) {
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(widget, type);
    QAccessible::updateAccessibility(&event);
}

} // namespace

AQCurveView::AQCurveView(AQSequence& sequence, AQSelection& selection, QWidget* parent)
    : QWidget(parent), m_sequence(sequence), m_selection(selection),
      m_keyboard(*this, sequence, selection), m_timeTag(new AQCurveTimeTag(this)),
      m_pointPopover(new AQCurvePointPopover(this)) {
    AccessibleFactory::install<AQCurveView, AQCurveViewAccessible>();
    AccessibleFactory::install<AQCurvePoint, AQCurvePointAccessible>();
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(tr("Light program curve"));
    setAccessibleDescription(tr(
        "Left and Right select a time point, Up and Down change its intensity, Alt with Left and "
        "Right its time, Enter opens fields for its values, Insert adds a point, Delete removes "
        "it."));

    const NotificationCenter& center = sequence.notifications();
    connect(&center, &NotificationCenter::dataChanged, this, &AQCurveView::onDataChanged);
    connect(&center, &NotificationCenter::cellChanged, this,
            [this](int, int, const QObject* sender) { onDataChanged(sender); });
    connect(&center, &NotificationCenter::sectionChanged, this, &AQCurveView::onSelectionChanged);
    connect(&center, &NotificationCenter::previewChanged, this, &AQCurveView::refresh);
    connect(&sequence.history(), &History::gestureInterrupted, this, &AQCurveView::letGoOfPoint);
    makeTimeTag();
    refresh();
}

AQCurveView::~AQCurveView() = default;

std::span<const AQTimePoint> AQCurveView::points() const {
    return m_sequence.preview().points();
}

std::span<const AQTimePoint> AQCurveView::ghost() const {
    if (m_sequence.preview().isShown())
        return m_sequence.points();
    return m_ghost ? *m_ghost : std::span<const AQTimePoint>();
}

void AQCurveView::setGhost(std::optional<std::vector<AQTimePoint>> points) {
    m_ghost = std::move(points);
    update();
}

AQCurvePoint* AQCurveView::pointView(AQPointId id) const {
    const auto found = std::ranges::find(m_pointViews, id, &AQCurvePoint::id);
    return found == m_pointViews.end() ? nullptr : *found;
}

void AQCurveView::onDataChanged(const QObject* sender) {
    if (sender != this)
        refresh();
}

void AQCurveView::onSelectionChanged() {
    // What the keyboard showed goes with it; what the pointer shows stays.
    if (const AQCurvePoint* shown = pointView(m_popoverId);
        shown && hasFocus() && !shown->underMouse())
        m_popoverId = m_selection.id();
    refresh();
    if (AQCurvePoint* selected = selectedPoint()) {
        announce(selected, QAccessible::Selection);
        if (hasFocus())
            announce(selected, QAccessible::Focus);
    }
}

void AQCurveView::setPlayheadTime(std::optional<AQTime> time) {
    if (!time) {
        if (!m_playheadTime)
            return;
        m_pointPopover->dismiss();
        m_playheadTime.reset();
        m_isPlayheadPaused = false;
        refresh();
        return;
    }
    if (m_playheadTime && m_playheadTime->minuteOfDay() == time->minuteOfDay())
        return;
    if (!m_playheadTime && m_fields && m_fields->isOpen())
        setFocus(); // leaves them as a person does
    m_playheadTime = time;
    m_popoverId = AQPointId::none;
    refresh();
}

void AQCurveView::setPlayheadPaused(bool isPaused) {
    m_isPlayheadPaused = isPaused;
    refreshPopover();
}

// Laying out is not left to painting: moving the points there would ask for another painting.
void AQCurveView::refresh() {
    if (m_playheadTime)
        m_playhead = lightAt(points(), *m_playheadTime);
    layoutPoints();
    refreshPopover();
    update();
}

void AQCurveView::layoutPoints() {
    const auto points = showsPoints() ? this->points() : std::span<const AQTimePoint>();
    if (!std::ranges::equal(points, m_pointViews, {}, &AQTimePoint::id, &AQCurvePoint::id))
        matchPointViews(points);
    const CurveGeometry geometry = curveGeometry();
    for (std::size_t row = 0; row < points.size(); ++row) {
        AQCurvePoint* view = m_pointViews[row];
        view->setCentre(geometry.position(points[row]));
        view->setColor(DisplayColors::displayColor(points[row].colorTemp));
        view->setIsSelected(view->id() == m_selection.id());
        view->describe(points[row], static_cast<int>(row) + 1, static_cast<int>(points.size()));
    }
    const AQTimePoint* selected =
        showsPoints() ? m_sequence.preview().find(m_selection.id()) : nullptr;
    if (selected)
        m_timeTag->setGeometry(CurvePainter::tagRect(geometry, selected->time)
                                   .toAlignedRect()
                                   .marginsAdded(tagMargins));
    m_timeTag->setVisible(selected != nullptr);
}

void AQCurveView::matchPointViews(std::span<const AQTimePoint> points) {
    std::unordered_map<AQPointId, AQCurvePoint*> former;
    for (AQCurvePoint* view : m_pointViews)
        former.emplace(view->id(), view);
    m_pointViews.clear();
    for (const AQTimePoint& point : points) {
        const auto known = former.extract(point.id);
        m_pointViews.push_back(known ? known.mapped() : makePointView(point.id));
        // The children stand in the order of the day, the later points on top.
        m_pointViews.back()->raise();
    }
    for (const auto& [id, view] : former)
        letGo(*view, *this);
}

AQCurvePoint* AQCurveView::makePointView(AQPointId id) {
    auto* view = new AQCurvePoint(id, this);
    connect(view, &AQCurvePoint::pressed, this, [this](AQCurvePoint* pressed) {
        onPointClicked(pressed);
        m_sequence.history().beginGesture();
    });
    connect(view, &AQCurvePoint::doubleClicked, this,
            [this](AQCurvePoint* clicked) { openFields(clicked->id()); });
    connect(view, &AQCurvePoint::released, &m_sequence.history(), &History::endGesture);
    connect(view, &AQCurvePoint::dragged, this, &AQCurveView::onPointDragRequested);
    connect(view, &AQCurvePoint::hovered, this, &AQCurveView::onPointHover);
    connect(view, &AQCurvePoint::hoverEnded, this, &AQCurveView::onPointHoverOut);
    view->show();
    return view;
}

void AQCurveView::select(AQPointId id) {
    m_selection.select(id, this);
}

bool AQCurveView::deselect() {
    const bool isAnything = m_selection.id() != AQPointId::none || m_popoverId != AQPointId::none;
    closePointPopover();
    if (m_selection.id() != AQPointId::none)
        select(AQPointId::none);
    return isAnything;
}

void AQCurveView::turnTo(AQPointId id) {
    select(id);
    showPointPopover(id);
}

void AQCurveView::onPointClicked(AQCurvePoint* point) {
    showFocus(false);
    select(point->id());
}

void AQCurveView::onPointDragRequested(AQCurvePoint* point, double y) {
    editIntensity(point->id(), curveGeometry().intensityAt(y));
    showPointPopover(point->id());
}

void AQCurveView::makeTimeTag() {
    History& history = m_sequence.history();
    connect(m_timeTag, &AQCurveTimeTag::pressed, this, [this, &history] {
        showFocus(false);
        setFocus(Qt::MouseFocusReason);
        m_taggedId = m_selection.id();
        m_tagMinute = m_sequence.at(m_selection.row()).time.minuteOfDay();
        history.beginGesture();
    });
    connect(m_timeTag, &AQCurveTimeTag::dragged, this, &AQCurveView::onTimeTagDragged);
    connect(m_timeTag, &AQCurveTimeTag::released, this, [this, &history] {
        history.endGesture();
        closePointPopover();
    });
}

void AQCurveView::onTimeTagDragged(double way, bool isFine) {
    const AQPointId id = m_taggedId;
    const CurveGeometry geometry = curveGeometry();
    const double wanted = m_tagMinute + geometry.minuteAt(geometry.left() + way);
    const auto free = ProgramChanges::draggedMinute(
        points(), id, static_cast<int>(std::lround(wanted)), isFine ? 1 : usualMinutes);
    if (free)
        editTime(id, *free);
    showPointPopover(id);
}

void AQCurveView::letGoOfPoint() {
    m_timeTag->endPress();
    for (AQCurvePoint* view : m_pointViews)
        view->endPress();
}

void AQCurveView::onPointHover(AQCurvePoint* point) {
    showPointPopover(point->id());
}

void AQCurveView::onPointHoverOut() {
    closePointPopover();
}

void AQCurveView::editIntensity(AQPointId id, double intensity) {
    if (!pointView(id))
        return;
    m_sequence.updateWithRow(m_sequence.rowOf(id),
                             AQSequence::Brightness{std::clamp(intensity, 0.0, 1.0)}, this);
    refresh();
}

void AQCurveView::editTime(AQPointId id, int minuteOfDay) {
    const int row = m_sequence.rowOf(id);
    if (!pointView(id) || m_sequence.at(row).time.minuteOfDay() == minuteOfDay)
        return;
    m_sequence.setTime(row, AQTime::fromMinuteOfDay(minuteOfDay), this);
    refresh();
}

double AQCurveView::intensity(AQPointId id) const {
    const int row = m_sequence.rowOf(id);
    return row >= 0 ? m_sequence.at(row).brightness : 0.0;
}

void AQCurveView::showPointPopover(AQPointId id) {
    if (!pointView(id))
        return;
    m_popoverId = id;
    refreshPopover();
}

void AQCurveView::closePointPopover() {
    if (m_playheadTime)
        return;
    m_popoverId = AQPointId::none;
    refreshPopover();
}

void AQCurveView::refreshPopover() {
    const CurveGeometry geometry = curveGeometry();
    if (isEnabled() && m_playheadTime) {
        const QPointF place = geometry.position(m_playhead);
        if (m_isPlayheadPaused)
            m_pointPopover->showFor(m_playhead, place, rect());
        else
            m_pointPopover->showFor(m_playhead, QPointF(place.x(), geometry.top()));
        return;
    }
    const bool areFieldsOpen = m_fields && m_fields->isOpen();
    // The point may have gone, and the fields not heard of it yet.
    if (const int row = areFieldsOpen ? m_sequence.rowOf(m_fields->id()) : -1; row >= 0)
        m_fields->setAnchor(geometry.position(m_sequence.at(row)));
    const AQTimePoint* point =
        pointView(m_popoverId) ? m_sequence.preview().find(m_popoverId) : nullptr;
    if (areFieldsOpen || !point) {
        m_popoverId = AQPointId::none;
        m_pointPopover->dismiss();
        return;
    }
    m_pointPopover->showFor(*point, geometry.position(*point));
}

void AQCurveView::mousePressEvent(QMouseEvent* event) {
    showFocus(false);
    if (event->button() != Qt::LeftButton)
        event->ignore();
    else if (m_playheadTime)
        askForPlayheadAt(event->position());
    else
        deselect();
}

void AQCurveView::mouseMoveEvent(QMouseEvent* event) {
    if (m_playheadTime && event->buttons() == Qt::LeftButton)
        askForPlayheadAt(event->position());
}

void AQCurveView::askForPlayheadAt(QPointF place) {
    const int minute = static_cast<int>(std::lround(curveGeometry().minuteAt(place.x())));
    Q_EMIT playheadRequested(
        AQTime::fromMinuteOfDay(std::clamp(minute, 0, AQTime::minutesPerDay - 1)));
}

void AQCurveView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    if (m_playheadTime)
        return tell(duringDemo());
    if (const auto point = pointAt(event->position(), event->modifiers() & Qt::ControlModifier))
        Q_EMIT addAtRequested(*point);
}

std::optional<AQTimePoint> AQCurveView::pointAt(QPointF place, bool isFine) const {
    const CurveGeometry geometry = curveGeometry();
    const QRectF plot(QPointF(geometry.left(), geometry.top()),
                      QPointF(geometry.right(), geometry.bottom()));
    if (!plot.contains(place))
        return std::nullopt;
    const int step = isFine ? 1 : usualMinutes;
    const int minute = static_cast<int>(std::lround(geometry.minuteAt(place.x()) / step)) * step;
    const AQTime time = AQTime::fromMinuteOfDay(std::min(minute, AQTime::minutesPerDay - 1));
    if (points().empty())
        return AQTimePoint{.time = time, .brightness = geometry.intensityAt(place.y())};
    return lightAt(points(), time);
}

void AQCurveView::contextMenuEvent(QContextMenuEvent* event) {
    if (m_playheadTime)
        return tell(duringDemo());
    if (!showsPoints())
        return event->ignore();
    letGoOfPoint(); // the menu takes the release
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QWidget* child = childAt(event->pos());
    const auto* under =
        isByKey || child == m_timeTag ? selectedPoint() : qobject_cast<const AQCurvePoint*>(child);
    if (!isByKey && under)
        select(under->id());
    const QPoint place = !isByKey ? event->pos()
                         : under  ? under->geometry().center()
                                  : rect().center();
    closePointPopover();
    Q_EMIT menuRequested(mapToGlobal(place), under != nullptr,
                         isByKey ? std::nullopt : pointAt(place, false));
}

void AQCurveView::openFields(AQPointId id) {
    if (!pointView(id))
        return;
    select(id);
    if (!m_fields) {
        m_fields = new AQPointFields(m_sequence, *this);
        connect(m_fields, &AQPointFields::closed, this, &AQCurveView::refreshPopover);
    }
    m_popoverId = AQPointId::none;
    m_fields->openFor(id, curveGeometry().position(m_sequence.at(m_sequence.rowOf(id))));
    refreshPopover();
}

void AQCurveView::tell(const QString& reason) {
    if (!m_refusalTip)
        m_refusalTip = new RefusalTip(*this);
    // Where the person looks: at the pointer, or at the point that the keyboard is at.
    const AQCurvePoint* selected = selectedPoint();
    const QPoint place = underMouse() ? mapFromGlobal(QCursor::pos())
                         : selected   ? selected->geometry().center()
                                      : rect().center();
    m_refusalTip->tell(reason, QRect(place - tipDistance, place + tipDistance));
    Announcement::make(*this, reason);
}

bool AQCurveView::event(QEvent* event) {
    // A disabled view gets no gestures, but says why.
    if (!isEnabled() && event->type() == QEvent::MouseButtonDblClick && !toolTip().isEmpty())
        tell(toolTip());
    return QWidget::event(event);
}

void AQCurveView::keyPressEvent(QKeyEvent* event) {
    if (m_playheadTime && CurveKeyboard::isEdit(*event))
        return tell(duringDemo());
    if (showsPoints() ? m_keyboard.handle(*event)
                      : m_playheadTime && m_keyboard.handleAtPlayhead(*event))
        showFocus(true);
    else
        QWidget::keyPressEvent(event);
}

void AQCurveView::focusInEvent(QFocusEvent* event) {
    const Qt::FocusReason reason = event->reason();
    const bool isSame = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
    showFocus(isSame ? m_showsFocus
                     : reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                           reason == Qt::ShortcutFocusReason);
    if (AQCurvePoint* selected = selectedPoint())
        announce(selected, QAccessible::Focus);
}

void AQCurveView::showFocus(bool isShown) {
    m_showsFocus = isShown;
    update();
}

void AQCurveView::focusOutEvent(QFocusEvent* event) {
    update();
    letGoOfPoint(); // a menu takes the release
    // What the keyboard showed goes; what the pointer shows stays. With the window, the focus comes
    // back.
    const AQCurvePoint* shown = pointView(m_popoverId);
    if (shown && event->reason() != Qt::ActiveWindowFocusReason &&
        event->reason() != Qt::PopupFocusReason && !shown->underMouse())
        closePointPopover();
}

void AQCurveView::resizeEvent(QResizeEvent*) {
    layoutPoints();
    refreshPopover();
}

void AQCurveView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::FontChange) {
        m_background.forget();
        refresh();
    }
    QWidget::changeEvent(event);
}

void AQCurveView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    // The origin on a whole device pixel: at a scale of 1.5 a view may begin between two.
    painter.translate(Strokes::snapped(painter, QRectF(0.0, 0.0, 1.0, 1.0)).topLeft());
    m_background.draw(painter, curveGeometry(), font(), isEnabled());

    CurvePainter curve(painter, curveGeometry(), font());
    const auto points = this->points();
    if (!points.empty() && !isEnabled())
        curve.drawOutline(points);
    else if (!points.empty())
        curve.drawFill(points);
    else if (showsPoints())
        curve.drawHint(tr("Double-click to add a point"));
    if (const auto ghost = this->ghost();
        isEnabled() && !ghost.empty() && !std::ranges::equal(ghost, points))
        curve.drawGhost(ghost);
    if (!points.empty() && isEnabled()) {
        if (m_playheadTime) {
            curve.drawTimeMarker(*m_playheadTime, false);
            curve.drawPlayhead(m_playhead);
        } else if (const auto* selected = m_sequence.preview().find(m_selection.id())) {
            curve.drawTimeMarker(selected->time, true);
        }
    }
    if (hasFocus() && m_showsFocus)
        curve.drawFocusRing();
}

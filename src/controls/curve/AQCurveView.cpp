#include "controls/curve/AQCurveView.h"

#include "controls/AccessibleFactory.h"
#include "controls/DisplayColors.h"
#include "controls/LetGo.h"
#include "controls/Percent.h"
#include "controls/Strokes.h"
#include "controls/curve/AQCurvePoint.h"
#include "controls/curve/AQCurvePointAccessible.h"
#include "controls/curve/AQCurveViewAccessible.h"
#include "controls/curve/CurvePainter.h"
#include "controls/popovers/AQCurvePointPopover.h"
#include "controls/time/TimeText.h"
#include "data/AQSelection.h"
#include "data/AQSequence.h"
#include "data/History.h"
#include "data/NotificationCenter.h"
#include "data/ProgramInterpolation.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace {

void announce(QWidget* widget, QAccessible::Event type) {
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(widget, type);
    QAccessible::updateAccessibility(&event);
}

} // namespace

AQCurveView::AQCurveView(AQSequence& sequence, AQSelection& selection, QWidget* parent)
    : QWidget(parent), m_sequence(sequence), m_selection(selection),
      m_pointPopover(new AQCurvePointPopover(this)) {
    AccessibleFactory::install<AQCurveView, AQCurveViewAccessible>();
    AccessibleFactory::install<AQCurvePoint, AQCurvePointAccessible>();
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(QStringLiteral("Light program curve"));
    setAccessibleDescription(QStringLiteral(
        "Left and Right select a time point, Up and Down change its intensity, Insert adds a "
        "point, Delete removes it."));

    const NotificationCenter& center = sequence.notifications();
    connect(&center, &NotificationCenter::dataChanged, this, &AQCurveView::onDataChanged);
    connect(&center, &NotificationCenter::cellChanged, this,
            [this](int, int, const QObject* sender) { onDataChanged(sender); });
    connect(&center, &NotificationCenter::sectionChanged, this, &AQCurveView::onSelectionChanged);
    connect(&sequence.history(), &History::gestureInterrupted, this, &AQCurveView::letGoOfPoint);
    refresh();
}

AQCurveView::~AQCurveView() = default;

QSize AQCurveView::sizeHint() const {
    return {1040, 360};
}

QSize AQCurveView::minimumSizeHint() const {
    return {480, 200};
}

std::span<const AQTimePoint> AQCurveView::points() const {
    return m_sequence.points();
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
        refresh();
        return;
    }
    if (m_playheadTime && m_playheadTime->hour == time->hour &&
        m_playheadTime->minute == time->minute)
        return;
    m_playhead = lightAt(points(), *time);
    m_playheadTime = time;
    m_popoverId = AQPointId::none;
    refresh();
}

// Laying out is not left to painting: moving the points there would ask for another painting.
void AQCurveView::refresh() {
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
        describePoint(static_cast<int>(row));
    }
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
    connect(view, &AQCurvePoint::pressed, this, &AQCurveView::onPointClicked);
    connect(view, &AQCurvePoint::released, &m_sequence.history(), &History::endGesture);
    connect(view, &AQCurvePoint::dragged, this, &AQCurveView::onPointDragRequested);
    connect(view, &AQCurvePoint::hovered, this, &AQCurveView::onPointHover);
    connect(view, &AQCurvePoint::hoverEnded, this, &AQCurveView::onPointHoverOut);
    view->show();
    return view;
}

void AQCurveView::describePoint(int row) {
    const AQTimePoint& point = points()[static_cast<std::size_t>(row)];
    AQCurvePoint* view = m_pointViews[static_cast<std::size_t>(row)];
    const QString text =
        QStringLiteral("Point %1 of %2, %3, intensity %4 %, colour temperature %5 %")
            .arg(row + 1)
            .arg(m_pointViews.size())
            .arg(timeText(point.time.hour, point.time.minute))
            .arg(percent(point.brightness))
            .arg(percent(point.colorTemp));
    if (text == view->accessibleName())
        return;
    view->setAccessibleName(text);
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(view, percent(point.brightness));
        QAccessible::updateAccessibility(&event);
    }
}

void AQCurveView::select(AQPointId id) {
    m_selection.select(id, this);
}

void AQCurveView::deselect() {
    closePointPopover();
    if (m_selection.id() != AQPointId::none)
        select(AQPointId::none);
}

void AQCurveView::onPointClicked(AQCurvePoint* point) {
    showFocus(false);
    select(point->id());
    m_sequence.history().beginGesture();
}

void AQCurveView::onPointDragRequested(AQCurvePoint* point, double y) {
    editIntensity(point->id(), curveGeometry().intensityAt(y));
    showPointPopover(point->id());
}

void AQCurveView::letGoOfPoint() {
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
        const double x = geometry.x(m_playheadTime->minuteOfDay());
        m_pointPopover->showFor(m_playhead, QPointF(x, geometry.top()));
        return;
    }
    if (!pointView(m_popoverId)) {
        m_popoverId = AQPointId::none;
        m_pointPopover->dismiss();
        return;
    }
    const AQTimePoint& point = m_sequence.at(m_sequence.rowOf(m_popoverId));
    m_pointPopover->showFor(point, geometry.position(point));
}

void AQCurveView::mousePressEvent(QMouseEvent* event) {
    showFocus(false);
    if (event->button() == Qt::LeftButton && !m_playheadTime)
        deselect();
    else
        event->ignore();
}

void AQCurveView::keyPressEvent(QKeyEvent* event) {
    constexpr auto others = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (!showsPoints() || (event->modifiers() & others) || !handleKey(*event))
        QWidget::keyPressEvent(event);
    else
        showFocus(true);
}

bool AQCurveView::handleKey(const QKeyEvent& event) {
    const double step = event.modifiers() & Qt::ShiftModifier ? largeKeyStep : keyStep;
    const int last = static_cast<int>(m_pointViews.size()) - 1;
    const int selected = m_selection.row();
    switch (event.key()) {
    case Qt::Key_Left:
        return stepSelection(selected < 0 ? last : std::max(selected - 1, 0));
    case Qt::Key_Right:
        return stepSelection(std::min(selected + 1, last));
    case Qt::Key_Home:
        return stepSelection(0);
    case Qt::Key_End:
        return stepSelection(last);
    case Qt::Key_Up:
        return stepIntensity(step);
    case Qt::Key_Down:
        return stepIntensity(-step);
    case Qt::Key_Insert:
        Q_EMIT addRequested();
        return true;
    case Qt::Key_Delete:
        if (selected < 0)
            return false;
        Q_EMIT deleteRequested();
        return true;
    case Qt::Key_Escape:
        if (m_sequence.history().isInGesture()) {
            m_sequence.history().cancelGesture();
            return true;
        }
        if (selected < 0 && m_popoverId == AQPointId::none)
            return false;
        deselect();
        return true;
    default:
        return false;
    }
}

bool AQCurveView::stepSelection(int row) {
    if (m_pointViews.empty())
        return false;
    select(m_sequence.idAt(row));
    showPointPopover(m_selection.id());
    return true;
}

bool AQCurveView::stepIntensity(double step) {
    const AQPointId id = m_selection.id();
    if (id == AQPointId::none)
        return false;
    editIntensity(id, intensity(id) + step);
    showPointPopover(id);
    return true;
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
        m_background = QPixmap();
        refresh();
    }
    QWidget::changeEvent(event);
}

void AQCurveView::makeBackground() {
    m_background = QPixmap(m_backgroundSize);
    m_background.fill(DisplayColors::neutral);
    m_background.setDevicePixelRatio(m_backgroundScale);
    {
        QPainter painter(&m_background);
        CurvePainter(painter, curveGeometry(), font()).drawBackground(isEnabled());
    }
    // One pixel of the pixmap is one of the device from here on, whatever the scale.
    m_background.setDevicePixelRatio(1.0);
}

void AQCurveView::drawBackground(QPainter& painter, double scale) {
    const QSize wanted(static_cast<int>(std::ceil(width() * scale)),
                       static_cast<int>(std::ceil(height() * scale)));
    if (m_backgroundSize != wanted || m_backgroundScale != scale) {
        // The first picture of a size, at the start and in a resize, is mostly the last one too.
        m_background = QPixmap();
        m_backgroundSize = wanted;
        m_backgroundScale = scale;
        CurvePainter(painter, curveGeometry(), font()).drawBackground(isEnabled());
        return;
    }
    if (m_background.isNull())
        makeBackground();
    const CurveGeometry geometry = curveGeometry();
    // Within the axes there is the grid alone, and drawing that is faster than copying.
    const QRectF plot(QPointF(geometry.left(), geometry.top()),
                      QPointF(geometry.right(), geometry.bottom()));
    const QRectF inside = plot.adjusted(1.0, 1.0, -1.0, -1.0);
    const QRect blank(QRectF(inside.topLeft() * scale, inside.size() * scale).toRect());
    painter.save();
    painter.scale(1.0 / scale, 1.0 / scale);
    painter.fillRect(blank, DisplayColors::neutral);
    for (const QRect& part : QRegion(m_background.rect()) - blank)
        painter.drawPixmap(part.topLeft(), m_background, part);
    painter.setClipRect(blank);
    painter.scale(scale, scale);
    CurvePainter(painter, geometry, font()).drawGrid({});
    painter.restore();
}

void AQCurveView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    // The origin on a whole device pixel: at a scale of 1.5 a view may begin between two.
    painter.translate(Strokes::snapped(painter, QRectF(0.0, 0.0, 1.0, 1.0)).topLeft());
    const double scale = painter.deviceTransform().m11();
    drawBackground(painter, scale);

    CurvePainter curve(painter, curveGeometry(), font());
    const auto points = this->points();
    if (!points.empty()) {
        if (!isEnabled()) {
            curve.drawOutline(points);
        } else {
            curve.drawFill(points);
            if (m_playheadTime) {
                curve.drawTimeMarker(*m_playheadTime);
                curve.drawPlayhead(m_playhead);
            } else if (const int selected = m_selection.row(); selected >= 0) {
                curve.drawTimeMarker(m_sequence.at(selected).time);
            }
        }
    }
    if (hasFocus() && m_showsFocus)
        curve.drawFocusRing();
}

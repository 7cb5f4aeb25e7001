#include "controls/curve/AQCurveView.h"

#include "controls/DisplayColors.h"
#include "controls/Strokes.h"
#include "controls/curve/AQCurvePoint.h"
#include "controls/curve/AQCurveViewAccessible.h"
#include "controls/curve/CurvePainter.h"
#include "controls/popovers/AQCurvePointPopover.h"
#include "controls/time/TimeText.h"
#include "data/AQDataSource.h"
#include "data/ProgramInterpolation.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

int percent(double fraction) {
    return static_cast<int>(std::lround(fraction * 100.0));
}

void announce(QWidget* widget, QAccessible::Event type) {
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(widget, type);
    QAccessible::updateAccessibility(&event);
}

} // namespace

AQCurveView::AQCurveView(QWidget* parent)
    : QWidget(parent), m_pointPopover(new AQCurvePointPopover(this)) {
    AQCurveViewAccessible::install();
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(QStringLiteral("Light program curve"));
    setAccessibleDescription(QStringLiteral(
        "Left and Right select a time point, Up and Down change its intensity, Insert adds a "
        "point, Delete removes it."));
}

AQCurveView::~AQCurveView() = default;

void AQCurveView::setDocument(AQDataSource& document) {
    if (m_document)
        m_document->notifications().disconnect(this);
    m_document = &document;
    m_selectedRow = -1;
    const NotificationCenter& center = document.notifications();
    connect(&center, &NotificationCenter::dataChanged, this, &AQCurveView::onDataChanged);
    connect(&center, &NotificationCenter::cellChanged, this,
            [this](int, int, const QObject* sender) { onDataChanged(sender); });
    connect(&center, &NotificationCenter::sectionChanged, this, &AQCurveView::onSelectionChanged);
    refresh();
}

QSize AQCurveView::sizeHint() const {
    return {1040, 360};
}

QSize AQCurveView::minimumSizeHint() const {
    return {480, 200};
}

std::span<const AQTimePoint> AQCurveView::points() const {
    return m_document ? std::span<const AQTimePoint>(m_document->sequence().points())
                      : std::span<const AQTimePoint>();
}

void AQCurveView::onDataChanged(const QObject* sender) {
    if (sender != this)
        refresh();
}

void AQCurveView::onSelectionChanged(int row, const QObject* sender) {
    if (sender == this || row >= static_cast<int>(points().size()))
        return;
    select(std::max(row, -1));
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
    m_popoverRow = -1;
    refresh();
}

// Laying out is not left to painting: moving the points there would ask for another painting.
void AQCurveView::refresh() {
    layoutPoints();
    refreshPopover();
    update();
}

void AQCurveView::layoutPoints() {
    const auto points = this->points();
    const std::size_t count = showsPoints() ? points.size() : 0;
    while (m_pointViews.size() > count)
        removeLastPointView();
    while (m_pointViews.size() < count)
        addPointView();
    if (m_selectedRow >= static_cast<int>(points.size()))
        m_selectedRow = -1;

    const CurveGeometry geometry = curveGeometry();
    for (AQCurvePoint* view : m_pointViews) {
        const AQTimePoint& point = points[static_cast<std::size_t>(view->index())];
        view->setCentre(geometry.position(point));
        view->setColor(DisplayColors::displayColor(point.colorTemp));
        view->setIsSelected(view->index() == m_selectedRow);
        describePoint(view->index());
    }
}

void AQCurveView::addPointView() {
    auto* view = new AQCurvePoint(static_cast<int>(m_pointViews.size()), this);
    connect(view, &AQCurvePoint::pressed, this, &AQCurveView::onPointClicked);
    connect(view, &AQCurvePoint::dragged, this, &AQCurveView::onPointDragRequested);
    connect(view, &AQCurvePoint::hovered, this, &AQCurveView::onPointHover);
    connect(view, &AQCurvePoint::hoverEnded, this, &AQCurveView::onPointHoverOut);
    m_pointViews.push_back(view);
    view->show();
}

void AQCurveView::removeLastPointView() {
    AQCurvePoint* view = m_pointViews.back();
    m_pointViews.pop_back();
    // It may be in the middle of a mouse event that led here.
    view->disconnect(this);
    view->hide();
    view->setParent(nullptr);
    view->deleteLater();
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

void AQCurveView::select(int row) {
    if (row == m_selectedRow)
        return;
    m_selectedRow = row;
    refresh();
    if (row < 0 || !showsPoints())
        return;
    AQCurvePoint* view = m_pointViews[static_cast<std::size_t>(row)];
    announce(view, QAccessible::Selection);
    if (hasFocus())
        announce(view, QAccessible::Focus);
}

void AQCurveView::selectAndAnnounce(int row) {
    select(row);
    if (m_document)
        m_document->sequence().notifySelectionChange(row, this);
}

void AQCurveView::letGo() {
    closePointPopover();
    if (m_selectedRow >= 0)
        selectAndAnnounce(-1);
}

void AQCurveView::onPointClicked(AQCurvePoint* point) {
    showFocus(false);
    selectAndAnnounce(point->index());
}

void AQCurveView::onPointDragRequested(AQCurvePoint* point, double y) {
    editIntensity(point->index(), curveGeometry().intensityAt(y));
    showPointPopover(point->index());
}

void AQCurveView::onPointHover(AQCurvePoint* point) {
    showPointPopover(point->index());
}

void AQCurveView::onPointHoverOut() {
    closePointPopover();
}

void AQCurveView::editIntensity(int row, double intensity) {
    if (!showsPoints() || !isRow(row))
        return;
    m_document->sequence().updateWithRow(
        row, AQSequence::Brightness{std::clamp(intensity, 0.0, 1.0)}, this);
    refresh();
}

double AQCurveView::intensity(int row) const {
    return isRow(row) ? points()[static_cast<std::size_t>(row)].brightness : 0.0;
}

void AQCurveView::showPointPopover(int row) {
    if (!showsPoints() || !isRow(row))
        return;
    m_popoverRow = row;
    refreshPopover();
}

void AQCurveView::closePointPopover() {
    if (m_playheadTime)
        return;
    m_popoverRow = -1;
    refreshPopover();
}

void AQCurveView::refreshPopover() {
    const CurveGeometry geometry = curveGeometry();
    if (isEnabled() && m_playheadTime) {
        const double x = geometry.x(m_playheadTime->minuteOfDay());
        m_pointPopover->showFor(m_playhead, QPointF(x, geometry.top()));
        return;
    }
    if (m_popoverRow >= static_cast<int>(m_pointViews.size()))
        m_popoverRow = -1;
    if (m_popoverRow < 0) {
        m_pointPopover->dismiss();
        return;
    }
    const AQTimePoint& point = points()[static_cast<std::size_t>(m_popoverRow)];
    m_pointPopover->showFor(point, geometry.position(point));
}

void AQCurveView::mousePressEvent(QMouseEvent* event) {
    showFocus(false);
    if (event->button() == Qt::LeftButton && !m_playheadTime)
        letGo();
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
    switch (event.key()) {
    case Qt::Key_Left:
        return stepSelection(m_selectedRow < 0 ? last : std::max(m_selectedRow - 1, 0));
    case Qt::Key_Right:
        return stepSelection(std::min(m_selectedRow + 1, last));
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
        if (m_selectedRow < 0)
            return false;
        Q_EMIT deleteRequested();
        return true;
    case Qt::Key_Escape:
        if (m_selectedRow < 0 && m_popoverRow < 0)
            return false;
        letGo();
        return true;
    default:
        return false;
    }
}

bool AQCurveView::stepSelection(int row) {
    if (m_pointViews.empty())
        return false;
    selectAndAnnounce(row);
    showPointPopover(row);
    return true;
}

bool AQCurveView::stepIntensity(double step) {
    if (m_selectedRow < 0)
        return false;
    editIntensity(m_selectedRow, intensity(m_selectedRow) + step);
    showPointPopover(m_selectedRow);
    return true;
}

void AQCurveView::focusInEvent(QFocusEvent* event) {
    const Qt::FocusReason reason = event->reason();
    const bool isSame = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
    showFocus(isSame ? m_showsFocus
                     : reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                           reason == Qt::ShortcutFocusReason);
    if (m_selectedRow >= 0 && showsPoints())
        announce(m_pointViews[static_cast<std::size_t>(m_selectedRow)], QAccessible::Focus);
}

void AQCurveView::showFocus(bool isShown) {
    m_showsFocus = isShown;
    update();
}

void AQCurveView::focusOutEvent(QFocusEvent* event) {
    update();
    // What the keyboard showed goes; what the pointer shows stays. With the window, the focus comes
    // back.
    if (m_popoverRow >= 0 && event->reason() != Qt::ActiveWindowFocusReason &&
        event->reason() != Qt::PopupFocusReason &&
        !m_pointViews[static_cast<std::size_t>(m_popoverRow)]->underMouse())
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
            } else if (m_selectedRow >= 0) {
                curve.drawTimeMarker(points[static_cast<std::size_t>(m_selectedRow)].time);
            }
        }
    }
    if (hasFocus() && m_showsFocus)
        curve.drawFocusRing();
}

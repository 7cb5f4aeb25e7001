#include "controls/sliders/AQSlider.h"

#include "controls/AccentColor.h"
#include "controls/AccessibleFactory.h"
#include "controls/DisplayColors.h"
#include "controls/Percent.h"
#include "controls/Strokes.h"
#include "controls/sliders/AQSliderAccessible.h"
#include "controls/sliders/SliderField.h"

#include <QAccessible>
#include <QFontInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int pageIncrements = 10;
constexpr int gridUnit = 8;
constexpr double focusedFrameWidth = 2.0;
constexpr double frameWidth = 1.0;

bool beginsValue(const QKeyEvent& event) {
    return event.text().size() == 1 && QStringLiteral("0123456789+-.,").contains(event.text()) &&
           !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

} // namespace

AQSlider::AQSlider(QWidget* parent) : AQSlider(parent, std::nullopt) {}

AQSlider::AQSlider(QWidget* parent, std::optional<QLinearGradient> gradient)
    : AQValueView(parent), m_gradient(std::move(gradient)), m_selectColor(DisplayColors::line),
      m_knobColor(QColor::fromRgbF(1.0F, 1.0F, 1.0F, 0.5F)) {
    AccessibleFactory::install<AQSlider, AQSliderAccessible>();
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    showHint();
}

void AQSlider::setValue(double value) {
    if (std::isnan(value))
        return;
    const double limited = std::clamp(value, 0.0, 1.0);
    if (limited == m_value)
        return;
    m_value = limited;
    update();
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(this, m_value * 100.0);
        QAccessible::updateAccessibility(&event);
    }
    reportChange(m_value);
}

QVariant AQSlider::objectValue() const {
    return m_value;
}

void AQSlider::setObjectValue(const QVariant& object) {
    if (const auto number = numberFrom(object))
        setValue(*number);
}

QString AQSlider::valueText() const {
    return percentText(m_value);
}

void AQSlider::userSetValue(double value) {
    setValue(value);
    Q_EMIT edited();
}

void AQSlider::enterValue(double value) {
    Q_EMIT dragBegan();
    userSetValue(value);
    Q_EMIT dragEnded();
}

// One that cannot be used leaves it to what it stands in to say why.
void AQSlider::showHint() {
    setToolTip(isEnabled() ? tr("Type a value, use the arrow keys (Shift: 10 %), or drag. Escape "
                                "during a drag gives the old value back.")
                           : QString());
}

void AQSlider::openField(const QString& typed) {
    if (!m_field) {
        m_field = new SliderField(*this);
        connect(m_field, &TypedField::left, this, [this] { focusLeft(Qt::OtherFocusReason); });
    }
    m_field->open(typed);
}

QSize AQSlider::sizeHint() const {
    const int rows = (minimumSizeHint().height() + gridUnit - 1) / gridUnit;
    return {200, rows * gridUnit};
}

QSize AQSlider::minimumSizeHint() const {
    return {96, 24};
}

QRectF AQSlider::knobRect(const QRectF& rect) const {
    const double x =
        (rect.width() - 2.0 * (m_knobWidthDiv2 + m_knobMargin)) * m_value + m_knobMargin;
    return {rect.left() + x, rect.top() + m_knobMargin, 2.0 * m_knobWidthDiv2,
            rect.height() - 2.0 * m_knobMargin};
}

QFont AQSlider::labelFont(int pixelSize) const {
    QFont label = font();
    label.setPixelSize(std::max(pixelSize, QFontInfo(label).pixelSize()));
    return label;
}

QColor AQSlider::labelColor() const {
    return isEnabled() ? DisplayColors::line : DisplayColors::disabled;
}

QColor AQSlider::labelColorOnKnob() const {
    // On a dark window a disabled knob is as grey as the label.
    const bool drowns = !isEnabled() && AccentColor::isDark(palette());
    return drowns ? palette().color(QPalette::Window) : labelColor();
}

void AQSlider::drawBar(QPainter& painter, const QRectF& rect) {
    if (isEnabled() && m_gradient)
        painter.fillRect(rect, *m_gradient);
}

void AQSlider::drawKnob(QPainter& painter, const QRectF& rect) {
    const QRectF knob = Strokes::snapped(painter, knobRect(rect));
    painter.setCompositionMode(QPainter::CompositionMode_Lighten);
    painter.fillRect(knob, m_knobColor);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    Strokes::frame(painter, knob, frameWidth,
                   showsFocus() ? m_selectColor : DisplayColors::disabled);
}

void AQSlider::drawLabels(QPainter& /*painter*/, const QRectF& /*rect*/,
                          const QColor& /*color*/) const {}

void AQSlider::drawFrame(QPainter& painter, const QRectF& rect) const {
    if (!showsFocus()) {
        Strokes::frame(painter, rect, frameWidth, DisplayColors::disabled);
        return;
    }
    Strokes::frame(painter, rect, focusedFrameWidth, m_selectColor);
    if (AccentColor::isDark(palette())) {
        // Black does not stand out of a dark window and the dark end of a bar; a light line does.
        const double in = focusedFrameWidth;
        Strokes::frame(painter, rect.adjusted(in, in, -in, -in), frameWidth,
                       DisplayColors::neutral);
    }
}

void AQSlider::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRectF bounds = rect();
    drawBar(painter, bounds);
    if (labelColorOnKnob() == labelColor()) {
        drawKnob(painter, bounds);
        drawLabels(painter, bounds, labelColor());
    } else {
        drawLabels(painter, bounds, labelColor());
        drawKnob(painter, bounds);
        painter.save();
        painter.setClipRect(knobRect(bounds));
        drawLabels(painter, bounds, labelColorOnKnob());
        painter.restore();
    }
    drawFrame(painter, bounds);
}

void AQSlider::setFromPointer(double x) {
    const double inset = m_knobWidthDiv2 + m_knobMargin;
    const double travel = width() - 2.0 * inset;
    if (travel > 0.0)
        userSetValue((x - inset) / travel);
}

void AQSlider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    m_isDragged = true;
    Q_EMIT dragBegan();
    setFromPointer(event->position().x());
}

void AQSlider::mouseMoveEvent(QMouseEvent* event) {
    // What was pressed may have gone in the middle of a drag, which then comes to what lies under
    // the pointer.
    if (m_isDragged)
        setFromPointer(event->position().x());
    else
        event->ignore();
}

void AQSlider::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        endDrag();
    else
        event->ignore();
}

void AQSlider::endDrag() {
    if (std::exchange(m_isDragged, false))
        Q_EMIT dragEnded();
}

void AQSlider::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && m_isDragged) {
        m_isDragged = false;
        Q_EMIT dragCancelled();
        return;
    }
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool isLarge = modifiers == Qt::ShiftModifier;
    const double step = isLarge ? largeStep : valueIncrement();
    switch (isLarge || !modifiers ? event->key() : 0) {
    case Qt::Key_Up:
    case Qt::Key_Right:
        return userSetValue(m_value + step);
    case Qt::Key_Down:
    case Qt::Key_Left:
        return userSetValue(m_value - step);
    case Qt::Key_PageUp:
        return userSetValue(m_value + pageIncrements * valueIncrement());
    case Qt::Key_PageDown:
        return userSetValue(m_value - pageIncrements * valueIncrement());
    case Qt::Key_Home:
        return userSetValue(0.0);
    case Qt::Key_End:
        return userSetValue(1.0);
    default:
        if (beginsValue(*event) && !m_isDragged)
            openField(event->text());
        else
            AQValueView::keyPressEvent(event);
    }
}

void AQSlider::wheelEvent(QWheelEvent* event) {
    if (!hasFocus()) {
        m_wheelRemainder = 0;
        event->ignore();
        return;
    }
    event->accept();
    m_wheelRemainder += event->angleDelta().y();
    const int steps = m_wheelRemainder / QWheelEvent::DefaultDeltasPerStep;
    m_wheelRemainder %= QWheelEvent::DefaultDeltasPerStep;
    if (steps != 0)
        userSetValue(m_value + steps * valueIncrement());
}

bool AQSlider::event(QEvent* event) {
    if (event->type() == QEvent::Hide || event->type() == QEvent::EnabledChange ||
        event->type() == QEvent::WindowBlocked || event->type() == QEvent::FocusOut)
        endDrag(); // without a release
    else if (event->type() == QEvent::FontChange)
        updateGeometry();
    if (event->type() == QEvent::EnabledChange)
        showHint();
    if (event->type() == QEvent::Resize && m_field)
        m_field->place();
    return AQValueView::event(event);
}

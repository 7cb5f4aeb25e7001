#include "controls/window/AQSwitchButton.h"

#include "controls/AccentColor.h"
#include "controls/DisplayColors.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {

constexpr QSize trackSize(36, 20);
constexpr int focusMargin = 4; ///< room around the track for the focus ring
constexpr int textGap = 8;
constexpr double knobInset = 3.0;
constexpr int animationMilliseconds = 120;

} // namespace

AQSwitchButton::AQSwitchButton(QWidget* parent) : EnterClicks(parent) {
    m_animation.setDuration(animationMilliseconds);
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& position) {
        m_knobPosition = position.toDouble();
        update();
    });
    connect(this, &QCheckBox::toggled, this, &AQSwitchButton::moveKnob);
}

void AQSwitchButton::moveKnob(bool isOn) {
    const double target = isOn ? 1.0 : 0.0;
    m_animation.stop();
    const bool animated =
        isVisible() && style()->styleHint(QStyle::SH_Widget_Animate, nullptr, this);
    if (!animated) {
        m_knobPosition = target;
        update();
        return;
    }
    m_animation.setStartValue(m_knobPosition);
    m_animation.setEndValue(target);
    m_animation.start();
}

QSize AQSwitchButton::sizeHint() const {
    QSize size = trackSize.grownBy({focusMargin, focusMargin, focusMargin, focusMargin});
    if (!text().isEmpty()) {
        const QSize label = fontMetrics().size(Qt::TextShowMnemonic, text());
        size.rwidth() += textGap + label.width();
        size.setHeight(std::max(size.height(), label.height()));
    }
    return size;
}

bool AQSwitchButton::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

QRectF AQSwitchButton::trackRect() const {
    const int x = isLeftToRight() ? focusMargin : width() - focusMargin - trackSize.width();
    const int y = (height() - trackSize.height()) / 2;
    return QRectF(QRect(QPoint(x, y), trackSize));
}

void AQSwitchButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track = trackRect();
    const double radius = track.height() / 2.0;
    const QColor off = AccentColor::tone(palette(), AccentColor::isDark(palette()) ? 0.4 : 0.5);
    const QColor on = AccentColor::fill(palette());

    painter.setOpacity(isEnabled() ? 1.0 : 0.4);
    painter.setPen(Qt::NoPen);
    painter.setBrush(DisplayColors::blend(off, on, m_knobPosition));
    painter.drawRoundedRect(track, radius, radius);

    const double diameter = track.height() - 2.0 * knobInset;
    const double travel = track.width() - 2.0 * knobInset - diameter;
    const double fromLeft = isLeftToRight() ? m_knobPosition : 1.0 - m_knobPosition;
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRectF(track.left() + knobInset + fromLeft * travel,
                               track.top() + knobInset, diameter, diameter));
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(AccentColor::onWindow(palette()), 2.0));
        painter.drawRoundedRect(track.adjusted(-3.0, -3.0, 3.0, 3.0), radius + 3.0, radius + 3.0);
    }
    painter.setOpacity(1.0);
    if (!text().isEmpty()) {
        const int taken = focusMargin + trackSize.width() + textGap;
        const QRect label =
            isLeftToRight() ? rect().adjusted(taken, 0, 0, 0) : rect().adjusted(0, 0, -taken, 0);
        const auto side = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
        style()->drawItemText(&painter, label,
                              static_cast<int>((side | Qt::AlignVCenter).toInt()) |
                                  Qt::TextShowMnemonic,
                              palette(), isEnabled(), text(), QPalette::WindowText);
    }
}

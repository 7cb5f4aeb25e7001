#pragma once

#include "controls/window/EnterClicks.h"

#include <QCheckBox>
#include <QVariantAnimation>

/// An on-off switch. A check box in all but its look: Space and Enter flip it, `toggled` comes at
/// once, only the knob takes its time (and none where the style animates nothing).
///
/// A text, if there is one, stands to the right of the track.
class AQSwitchButton : public EnterClicks<QCheckBox> {
    Q_OBJECT

public:
    explicit AQSwitchButton(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void moveKnob(bool isOn);
    QRectF trackRect() const;

    QVariantAnimation m_animation;
    double m_knobPosition = 0.0; ///< 0 off .. 1 on
};

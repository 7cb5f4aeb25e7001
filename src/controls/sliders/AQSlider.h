#pragma once

#include "controls/AQValueView.h"

#include <QLinearGradient>

class SliderField;

/// A horizontal slider for a fraction 0.0..1.0: a bar with a translucent knob.
///
/// The mouse sets the value under the pointer; arrow keys and the wheel (only while focused) step
/// by `valueIncrement()`, Page Up and Page Down by ten of them, with Shift the arrow keys by
/// `largeStep`; Home and End go to the ends. A digit, sign or decimal separator opens a field to
/// type the value in.
class AQSlider : public AQValueView {
    Q_OBJECT

public:
    static constexpr double largeStep = 0.1;

    explicit AQSlider(QWidget* parent = nullptr);

    double value() const { return m_value; }
    /// Limits `value` to 0..1. A new value is stored, then reported to the delegate; an equal one,
    /// or one that is not a number, does nothing.
    void setValue(double value);

    /// A double.
    QVariant objectValue() const override;
    /// Takes any number.
    void setObjectValue(const QVariant& object) override;

    /// What one arrow key adds or takes.
    virtual double valueIncrement() const { return 0.01; }
    /// The value in words, for screen readers.
    virtual QString valueText() const;

    /// The button that is held moves the knob no more.
    void endDrag();

    /// An edit by the person: `setValue`, then `edited`.
    void userSetValue(double value);
    /// The same for a value that was typed, between `dragBegan` and `dragEnded`.
    void enterValue(double value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The person set a value, after the delegate heard of it; also where it stays the same, as at
    /// a limit, which the delegate does not hear of.
    void edited();
    /// The left button went down here, and came up or was lost; or a typed value is set.
    void dragBegan();
    void dragEnded();
    /// Escape during a drag, which ends it; the old value is wanted back.
    void dragCancelled();

protected:
    explicit AQSlider(QWidget* parent, std::optional<QLinearGradient> gradient);

    /// The bar; fills `rect` with the gradient while enabled.
    virtual void drawBar(QPainter& painter, const QRectF& rect);
    /// The knob; brightens what is beneath it.
    virtual void drawKnob(QPainter& painter, const QRectF& rect);
    /// What is written on the bar, none here. The knob never washes it out.
    virtual void drawLabels(QPainter& painter, const QRectF& rect, const QColor& color) const;

    QRectF knobRect(const QRectF& rect) const;
    /// The person's font, not smaller than `pixelSize`.
    QFont labelFont(int pixelSize) const;
    bool showsFocus() const { return isEnabled() && isWindowFocus(); }

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool event(QEvent* event) override;

private:
    QColor labelColor() const;
    /// For the part of a label that the knob lies on.
    QColor labelColorOnKnob() const;
    void setFromPointer(double x);
    void drawFrame(QPainter& painter, const QRectF& rect) const;
    void showHint();
    void openField(const QString& typed);

    const std::optional<QLinearGradient> m_gradient;
    QColor m_selectColor;
    QColor m_knobColor;
    double m_knobWidthDiv2 = 8.0;
    double m_knobMargin = 2.0;
    double m_value = 0.0;
    int m_wheelRemainder = 0;
    SliderField* m_field = nullptr; ///< made when it is first needed
    bool m_isDragged = false;       ///< the left button went down here and is held
};

#pragma once

#include "controls/DisplayColors.h"
#include "controls/curve/AQCurveHandle.h"
#include "data/AQTimePoint.h"

#include <QColor>
#include <QPointF>

/// One point of the light program on the curve: a disc that grows when selected.
///
/// It belongs to its point wherever that moves, with a press or a drag that it may be in. It knows
/// no program: it reports what the mouse does to it, and its curve view acts on that. Only the left
/// button counts.
class AQCurvePoint : public AQCurveHandle {
    Q_OBJECT

public:
    static constexpr double radius = 6.0;
    static constexpr double sel_radius = 10.0;
    /// A square of 2 x `sel_radius` + 4 units, out of sight until it is placed.
    AQCurvePoint(AQPointId id, QWidget* parent);

    AQPointId id() const { return m_id; }
    /// Moves the centre to a place in the parent, between whole pixels too.
    void setCentre(QPointF centre);

    const QColor& color() const { return m_color; }
    /// Redraws when the colour changes.
    void setColor(const QColor& color);

    /// Tells screen readers its values, and which of how many points it is in the order of the day.
    void describe(const AQTimePoint& point, int number, int count);

    bool isSelected() const { return m_isSelected; }
    /// Redraws when the state changes.
    void setIsSelected(bool isSelected);

Q_SIGNALS:
    void pressed(AQCurvePoint* point);
    void doubleClicked(AQCurvePoint* point);
    /// The disc shall be at height `y` of the parent; once for each move of a drag. That is where
    /// the pointer is, unless it moved with Ctrl held, which counts for a tenth of the way.
    void dragged(AQCurvePoint* point, double y);
    void hovered(AQCurvePoint* point);
    /// The pointer has left, or a press ended elsewhere or in a modal window. Not sent while a
    /// press is held.
    void hoverEnded(AQCurvePoint* point);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void beginDrag(bool isFine);

    const AQPointId m_id;
    QColor m_color = DisplayColors::neutral;
    QPointF m_offset; ///< of the disc from the middle of the widget, below one pixel
    bool m_isSelected = false;
    double m_pressY = 0.0;
    double m_pointerY = 0.0;    ///< in the last move
    double m_fromPointer = 0.0; ///< where the disc shall be, seen from the pointer
};

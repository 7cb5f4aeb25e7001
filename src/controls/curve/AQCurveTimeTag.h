#pragma once

#include <QWidget>

/// The handle of the time tag on the curve's axis: it is dragged sideways to move the selected
/// point in time. The tag itself is drawn with the curve.
///
/// It knows no program: it reports what the mouse does to it. Only the left button counts.
class AQCurveTimeTag : public QWidget {
    Q_OBJECT

public:
    /// How far the pointer must move sideways before a press becomes a drag.
    static constexpr double dragThreshold = 3.0;

    explicit AQCurveTimeTag(QWidget* parent);

    /// Ends a press: the button that is still held drags no more.
    void endPress();

Q_SIGNALS:
    void pressed();
    /// The pointer is `way` units to the right of where it was pressed; once for each move of a
    /// drag. `isFine` with Ctrl held.
    void dragged(double way, bool isFine);
    /// The press has ended, however it did.
    void released();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool m_isMouseDown = false;
    bool m_isDragging = false;
    double m_pressX = 0.0; ///< on the screen: the tag moves with the drag
};

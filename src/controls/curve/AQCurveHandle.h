#pragma once

#include <QWidget>

/// What the mouse takes hold of on the curve. It knows when a press has ended, however it does: the
/// button came up, a menu or a modal window took its release, or the handle went out of sight. Only
/// the left button counts.
class AQCurveHandle : public QWidget {
    Q_OBJECT

public:
    /// How far the pointer must move before a press becomes a drag: a click must not change the
    /// light.
    static constexpr double dragThreshold = 3.0;

    /// A press that began here is still held.
    bool isMouseDown() const { return m_isMouseDown; }
    /// Ends such a press: the button that is still held drags no more.
    void endPress();

Q_SIGNALS:
    /// The press has ended.
    void released();

protected:
    explicit AQCurveHandle(QWidget* parent);

    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    bool isDragging() const { return m_isDragging; }
    /// True from the move on that leads `way` from the press, as far as that counts here.
    bool dragsAfter(double way);

private:
    bool m_isMouseDown = false;
    bool m_isDragging = false;
};

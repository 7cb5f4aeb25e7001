#pragma once

#include "controls/curve/AQCurveHandle.h"

/// The handle of the time tag on the curve's axis: it is dragged sideways to move the selected
/// point in time. The tag itself is drawn with the curve.
///
/// It knows no program: it reports what the mouse does to it.
class AQCurveTimeTag : public AQCurveHandle {
    Q_OBJECT

public:
    explicit AQCurveTimeTag(QWidget* parent);

Q_SIGNALS:
    void pressed();
    /// The pointer is `way` units to the right of where it was pressed; once for each move of a
    /// drag. `isFine` with Ctrl held.
    void dragged(double way, bool isFine);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    double m_pressX = 0.0; ///< on the screen: the tag moves with the drag
};

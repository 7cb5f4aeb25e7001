#pragma once

#include "controls/popovers/PopoverPlacement.h"

#include <QPointF>
#include <QWidget>

class AQCurvePointPopoverView;
struct AQTimePoint;

/// The popover that shows the values of a point or of the playhead, with an arrow to its place.
///
/// It comes and goes only when told, takes neither focus nor mouse, lies above everything in its
/// owner's window, and stands above the place or, where that window ends, below it.
class AQCurvePointPopover : public QWidget {
    Q_OBJECT

public:
    /// `owner` is the view that anchors are places in. This belongs to the window that the owner is
    /// in, and goes with either.
    explicit AQCurvePointPopover(QWidget* owner);

    /// Shows `value` beside the square of 30 units around `anchor`, a place in the owner; within
    /// `bounds`, a part of the owner, if there are any.
    void showFor(const AQTimePoint& value, QPointF anchor, QRect bounds = {});
    void dismiss();

    /// Between showFor() and dismiss(); it is out of sight meanwhile as long as the owner is.
    bool isPresented() const { return m_isPresented; }
    const AQTimePoint& value() const;
    /// Where it stands in the window; valid while presented.
    const PopoverPlacement& placement() const { return m_placement; }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void applyPlacement();

    QWidget& m_owner;
    AQCurvePointPopoverView* m_popoverView;
    QPointF m_anchor;
    QRect m_bounds; ///< in the owner; without them the whole window
    PopoverPlacement m_placement;
    bool m_isPresented = false;
};

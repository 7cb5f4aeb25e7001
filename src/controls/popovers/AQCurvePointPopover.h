#pragma once

#include "controls/popovers/PopoverPlacement.h"

#include <QPointF>
#include <QPointer>
#include <QWidget>

class AQCurvePointPopoverView;
struct AQTimePoint;

/// The popover that shows the values of a point or of the playhead, with an arrow to its place.
///
/// It comes and goes only when told, takes neither focus nor mouse, and stands above the place or,
/// where the screen ends, below it. It moves with its owner's window and is out of sight while that
/// window is hidden or no longer the active one.
class AQCurvePointPopover : public QWidget {
    Q_OBJECT

public:
    /// `owner` is the view that anchors are places in; it must outlive this.
    explicit AQCurvePointPopover(QWidget* owner);

    /// Shows `value` beside the square of 30 units around `anchor`, a place in the owner.
    void showFor(const AQTimePoint& value, QPointF anchor);
    void dismiss();

    /// Between showFor() and dismiss(); the owner's window may keep it out of sight meanwhile.
    bool isPresented() const { return m_isPresented; }
    const AQTimePoint& value() const;
    /// Where it stands, in screen coordinates; valid while presented.
    const PopoverPlacement& placement() const { return m_placement; }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void watchWindow();
    void applyPlacement();
    void applyVisibility();

    QWidget& m_owner;
    AQCurvePointPopoverView* m_popoverView;
    QPointer<QWidget> m_window; ///< the owner's, as long as it is watched
    QPointF m_anchor;
    PopoverPlacement m_placement;
    bool m_isPresented = false;
    bool m_isWindowInactive = false; ///< the window was active and is not any more
};

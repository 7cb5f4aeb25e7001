#pragma once

#include "controls/Draft.h"
#include "controls/popovers/PopoverPlacement.h"
#include "data/AQTimePoint.h"
#include "data/PointColumn.h"

#include <QPointF>
#include <QWidget>

#include <array>

class AQSequence;
class QLabel;
class RefusalTip;
class TypedField;

/// Three fields at a point of the curve, in which its time, intensity and colour temperature are
/// typed.
///
/// Enter keeps what was typed, as one step of the history, and closes; Escape closes alone; Tab
/// goes round. While something is wrong, Enter leaves it open and the reason is said in it. When
/// the focus goes elsewhere in the window it keeps what is right, and says what it drops. It closes
/// by itself when the point goes or the owner is hidden or disabled.
///
/// It lies above everything in its owner's window, without leaving that.
class AQPointFields : public QWidget, public Draft {
    Q_OBJECT

public:
    /// Closed. `owner` is the view that anchors are places in and that gets the focus back. Belongs
    /// to the owner's window and goes with either; `sequence` must outlive it.
    AQPointFields(AQSequence& sequence, QWidget& owner);

    /// Opens for a point of the sequence, at the middle of its disc, with all of the field of
    /// `column` selected. One that is open for another point commits first.
    void openFor(AQPointId id, QPointF anchor, int column = PointColumn::time);
    bool isOpen() const { return m_id != AQPointId::none; }
    /// The point it is open for, else `none`.
    AQPointId id() const { return m_id; }
    /// The point's disc is elsewhere now.
    void setAnchor(QPointF anchor);
    const PopoverPlacement& placement() const { return m_placement; }

    /// As Enter does; true when it is closed.
    bool commit() override;
    /// Closes without a change, as Escape does.
    void cancel();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// For whatever reason. What was typed is in the sequence already.
    void closed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void layOut();
    TypedField* makeField(int column);
    void showPoint();
    TypedField& field(int column) const { return *m_fields[static_cast<std::size_t>(column)]; }
    const AQTimePoint& point() const;
    /// Why `text` cannot be the value in `column`; empty for one that can.
    QString faultIn(int column, const QString& text) const;
    void applyTyped();
    void onLeft(int column);
    /// Keeps what is right, and says what it drops.
    void leave();
    void showMessage();
    static QRect discAround(QPointF anchor);
    void applyPlacement();

    AQSequence& m_sequence;
    QWidget& m_owner;
    QWidget* m_body; ///< all but the border and the arrow
    QLabel* m_title;
    QLabel* m_message; ///< what is wrong, or else what the keys do
    std::array<TypedField*, PointColumn::count> m_fields{};
    RefusalTip* m_tip;
    AQPointId m_id = AQPointId::none;
    QPointF m_anchor;
    PopoverPlacement m_placement;
};

#pragma once

#include "controls/AQValueDelegate.h"
#include "data/AQTimePoint.h"
#include "data/PointColumn.h"

#include <QWidget>

#include <array>

class AQSequence;
class AQSliderBrightness;
class AQSliderColorTemp;
class AQTimeEdit;

/// One point of the light program as a row: the editors of its time, colour temperature and
/// intensity.
///
/// They belong to the point and not to its place: when points change places the row moves, with the
/// keyboard focus, the typing and the press of the mouse that it may have. What the person enters
/// goes into the sequence, with this row as the sender.
class AQPointRow : public QWidget, private AQValueDelegate {
    Q_OBJECT

public:
    static constexpr int margin = 4; ///< around each editor

    /// For the point `id` of `sequence`, which must outlive the row.
    AQPointRow(AQSequence& sequence, AQPointId id, QWidget* parent);
    ~AQPointRow() override;

    AQPointId id() const { return m_id; }
    AQValueView& editor(int column) const { return *m_editors[static_cast<std::size_t>(column)]; }
    /// The column of the editor that is its window's keyboard focus, -1 for none.
    int focusedColumn() const;

    /// Shows the point's values and says in names that it stands in `row` now. Does nothing once
    /// the point has gone.
    void refresh(int row);
    void setIsSelected(bool isSelected);
    bool isSelected() const { return m_isSelected; }
    /// The width of the time; the two sliders share the rest.
    void setTimeWidth(int width);

Q_SIGNALS:
    /// The keyboard focus came to one of the editors, or the value of one was set without it.
    void turnedTo(AQPointId id);
    /// The person wants this point, which was turned to, removed.
    void deleteRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void turnTo();
    void aqValueDidChange(AQValueView& view, const QVariant& value) override;
    bool aqValueShouldChange(AQValueView& view, const QVariant& value) override;
    void aqGotFocus(AQValueView& view) override;
    QAccessibleInterface* aqAccessibleParent() const override;

    AQSequence& m_sequence;
    const AQPointId m_id;
    AQTimeEdit* m_time;
    AQSliderColorTemp* m_colorTemp;
    AQSliderBrightness* m_brightness;
    const std::array<AQValueView*, PointColumn::count> m_editors;
    int m_timeWidth = 0;
    bool m_isSelected = false;
};

#pragma once

#include "controls/curve/CurveBackground.h"
#include "controls/curve/CurveGeometry.h"
#include "controls/curve/CurveKeyboard.h"
#include "data/AQSelection.h"
#include "data/AQTimePoint.h"

#include <QWidget>

#include <optional>
#include <span>
#include <vector>

class AQCurvePoint;
class AQCurvePointPopover;
class AQCurveTimeTag;
class AQPointFields;
class AQSequence;
class RefusalTip;

/// The curve editor: the light program as intensity over the time of day, coloured by colour
/// temperature, with a point to select and drag for each time point.
///
/// It edits the intensity and the time of points. It has two states: editing, with the points and a
/// marker at the selected one, and playhead, with a disc at the playhead and no points, in which
/// a press, Left and Right ask for another time and Space for a pause. Disabling it
/// (QWidget::setEnabled) overrides both: no fill, no points, grey labels.
///
/// A point is dragged up and down, with Ctrl a tenth of the way, and the tag of the selected one
/// sideways to clock multiples of 5 minutes, with Ctrl of one. A drag is one step of the history,
/// and Escape takes it back. From the keyboard, Left, Right, Home and End select a point, Up and
/// Down change its intensity by 1 % (with Shift 10 %), Alt with Left and Right its time by 5
/// minutes (with Shift 1), Enter and F2 ask for its editor, Delete and Insert for a point to be
/// removed or added, Escape lets go. A double click asks for the editor of a point or for another
/// point.
///
/// Which point is selected is the selection's to know. A point view belongs to its point, so that a
/// drag goes on with the point that was pressed when points change places.
class AQCurveView : public QWidget {
    Q_OBJECT

public:
    static constexpr double keyStep = 0.01;
    static constexpr double largeKeyStep = 0.1;
    /// What times are set to when nobody asks for the minute.
    static constexpr int usualMinutes = 5;

    /// Draws and edits the program of `sequence`, follows its notifications and selects in
    /// `selection`; both must outlive this view. Changes that name this view as the sender are
    /// ignored: it has shown its own edit already.
    AQCurveView(AQSequence& sequence, AQSelection& selection, QWidget* parent);
    ~AQCurveView() override;

    /// Where minutes and intensities lie in the view at its present size.
    CurveGeometry curveGeometry() const { return CurveGeometry(size()); }

    /// One per time point, in its order; none while disabled or while a playhead is shown.
    const std::vector<AQCurvePoint*>& pointViews() const { return m_pointViews; }
    /// Null when the selected point, if any, is not on screen.
    AQCurvePoint* selectedPoint() const { return pointView(m_selection.id()); }
    AQCurvePointPopover& pointPopover() const { return *m_pointPopover; }

    /// Absent, as at the start, while no demo runs.
    std::optional<AQTime> playheadTime() const { return m_playheadTime; }
    /// Shows the playhead and its popover, with the light of the program at that time as it is now.
    /// The hour and minute of the present playhead change nothing; absent returns to editing.
    void setPlayheadTime(std::optional<AQTime> time);
    /// Of the present playhead. Paused, its popover stays by the disc and covers nothing outside of
    /// the view.
    void setPlayheadPaused(bool isPaused);
    /// The light at the playhead, 0.0..1.0; that of the last one when absent.
    double playheadBrightness() const { return m_playhead.brightness; }
    double playheadColorTemp() const { return m_playhead.colorTemp; }

    /// Other points to compare the curve with, dashed; absent, as at the start, for none. While
    /// there is a preview, the program itself is shown so.
    void setGhost(std::optional<std::vector<AQTimePoint>> points);

    QSize sizeHint() const override { return {1040, 360}; }
    QSize minimumSizeHint() const override { return {480, 200}; }

    /// The person selects a point: announced with this view as the sender, also when it is
    /// selected.
    void onPointClicked(AQCurvePoint* point);
    /// The person drags a point to height `y` of the view.
    void onPointDragRequested(AQCurvePoint* point, double y);
    void onPointHover(AQCurvePoint* point);
    void onPointHoverOut();
    /// The person sets the intensity of a point, limited to 0.0..1.0. Nothing happens without
    /// points on screen.
    void editIntensity(AQPointId id, double intensity);
    /// The person sets the time of a point, to a minute of the day that is free.
    void editTime(AQPointId id, int minuteOfDay);
    /// The intensity of a point, 0.0 for one that is not in the program.
    double intensity(AQPointId id) const;
    /// The person turns to a point by the keyboard, which shows its values.
    void turnTo(AQPointId id);
    void showPointPopover(AQPointId id);
    /// The person lets go of the selected point and its popover; false when there was neither.
    bool deselect();
    /// Selects the point and opens fields for its values at it.
    void openFields(AQPointId id);
    /// Says for some seconds why something that was asked for here is not done.
    void tell(const QString& reason);

Q_SIGNALS:
    /// The person wants the selected point removed.
    void deleteRequested();
    /// The person wants a point added after the selected one, if any.
    void addRequested();
    /// The person wants this point: it lies on the curve, or in an empty program at the pointer.
    void addAtRequested(const AQTimePoint& point);
    /// The person wants a menu at `place` on the screen: for the selected point, or for the curve,
    /// where `there` could be added; none from the keyboard and beside the plot.
    void menuRequested(QPoint place, bool isForPoint, std::optional<AQTimePoint> there);

    // The person wants the playhead, which there is, somewhere else: at this time, at the point
    // before or after it; or to stay where it is, and to go on from there.
    void playheadRequested(AQTime time);
    void pointBeforeRequested();
    void pointAfterRequested();
    void pauseRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// The program, or its preview.
    std::span<const AQTimePoint> points() const;
    std::span<const AQTimePoint> ghost() const;
    /// Null for a point that is not on screen.
    AQCurvePoint* pointView(AQPointId id) const;
    bool showsPoints() const { return isEnabled() && !m_playheadTime; }

    void onDataChanged(const QObject* sender);
    void onSelectionChanged();

    void refresh();
    void layoutPoints();
    void matchPointViews(std::span<const AQTimePoint> points);
    AQCurvePoint* makePointView(AQPointId id);
    void makeTimeTag();
    void onTimeTagDragged(double way, bool isFine);
    void letGoOfPoint();
    void askForPlayheadAt(QPointF place);
    std::optional<AQTimePoint> pointAt(QPointF place, bool isFine) const;
    void select(AQPointId id);
    void showFocus(bool isShown);
    void closePointPopover();
    void refreshPopover();

    AQSequence& m_sequence;
    AQSelection& m_selection;
    CurveKeyboard m_keyboard;
    AQCurveTimeTag* m_timeTag;
    AQPointId m_taggedId = AQPointId::none;  ///< whose tag was pressed last
    int m_tagMinute = 0;                     ///< where it stood then
    std::vector<AQCurvePoint*> m_pointViews; ///< in the order of the day
    AQCurvePointPopover* m_pointPopover;
    AQPointFields* m_fields = nullptr;       ///< made when first wanted
    AQPointId m_popoverId = AQPointId::none; ///< what the popover shows, none for the playhead too
    bool m_showsFocus = false;               ///< the keyboard was used here last, not the pointer
    std::optional<AQTime> m_playheadTime;
    AQTimePoint m_playhead{AQTime{}, 0.0, 0.0};
    bool m_isPlayheadPaused = false;
    std::optional<std::vector<AQTimePoint>> m_ghost;
    RefusalTip* m_refusalTip = nullptr; ///< made for the first refusal
    CurveBackground m_background;
};

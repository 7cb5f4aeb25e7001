#pragma once

#include "controls/curve/CurveGeometry.h"
#include "data/AQTimePoint.h"

#include <QPixmap>
#include <QWidget>

#include <optional>
#include <span>
#include <vector>

class AQCurvePoint;
class AQCurvePointPopover;
class AQDataSource;

/// The curve editor: the light program as intensity over the time of day, coloured by colour
/// temperature, with a point to select and drag for each time point.
///
/// It edits the intensity of points alone. It has two states: editing, with the points and a marker
/// at the selected one, and playhead, with a disc at the playhead and no points. Disabling it
/// (QWidget::setEnabled) overrides both: no fill, no points, grey labels.
///
/// From the keyboard, Left, Right, Home and End select a point, Up and Down change its intensity by
/// 1 % (with Shift 10 %), Delete and Insert ask for a point to be removed or added, Escape lets go.
///
/// Which point is selected is kept here, not for the whole class: there is one curve in the
/// program, and a second one, in a test or beside it, must not take its selection away. The row is
/// kept while the points are out of sight, so that curve and table still agree afterwards.
class AQCurveView : public QWidget {
    Q_OBJECT

public:
    static constexpr double keyStep = 0.01;
    static constexpr double largeKeyStep = 0.1;

    /// Shows an empty program until a document is set.
    explicit AQCurveView(QWidget* parent = nullptr);
    ~AQCurveView() override;

    /// Draws and edits the program of `document` from now on, which must outlive this view, and
    /// follows its notifications. Those that name this view as the sender are ignored: it has shown
    /// its own edit already.
    void setDocument(AQDataSource& document);

    /// Where minutes and intensities lie in the view at its present size.
    CurveGeometry curveGeometry() const { return CurveGeometry(size()); }

    /// One per time point, in its order; none while disabled or while a playhead is shown.
    const std::vector<AQCurvePoint*>& pointViews() const { return m_pointViews; }
    /// The row of the selected point, -1 for none.
    int selectedRow() const { return m_selectedRow; }
    AQCurvePointPopover& pointPopover() const { return *m_pointPopover; }

    /// Absent, as at the start, while no demo runs.
    std::optional<AQTime> playheadTime() const { return m_playheadTime; }
    /// Shows the playhead and its popover, with the light of the program at that time as it is now.
    /// The hour and minute of the present playhead change nothing; absent returns to editing.
    void setPlayheadTime(std::optional<AQTime> time);
    /// The light at the playhead, 0.0..1.0; that of the last one when absent.
    double playheadBrightness() const { return m_playhead.brightness; }
    double playheadColorTemp() const { return m_playhead.colorTemp; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// The person selects a point: announced with this view as the sender, also when it is
    /// selected.
    void onPointClicked(AQCurvePoint* point);
    /// The person drags a point to height `y` of the view.
    void onPointDragRequested(AQCurvePoint* point, double y);
    void onPointHover(AQCurvePoint* point);
    void onPointHoverOut();
    /// The person sets the intensity of a point, limited to 0.0..1.0. Nothing happens without
    /// points on screen.
    void editIntensity(int row, double intensity);
    /// The intensity of a point, 0.0 outside the program.
    double intensity(int row) const;

Q_SIGNALS:
    /// The person wants the selected point removed.
    void deleteRequested();
    /// The person wants a point added after the selected one, if any.
    void addRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    std::span<const AQTimePoint> points() const;
    bool isRow(int row) const { return row >= 0 && row < static_cast<int>(points().size()); }
    bool showsPoints() const { return isEnabled() && !m_playheadTime; }

    void onDataChanged(const QObject* sender);
    void onSelectionChanged(int row, const QObject* sender);

    void refresh();
    void layoutPoints();
    void addPointView();
    void removeLastPointView();
    void describePoint(int row);
    void makeBackground();
    void drawBackground(QPainter& painter, double scale);

    void select(int row);
    /// Selects and tells the others, as a person's choice.
    void selectAndAnnounce(int row);
    void letGo();
    void showFocus(bool isShown);
    bool handleKey(const QKeyEvent& event);
    bool stepSelection(int row);
    bool stepIntensity(double step);

    void showPointPopover(int row);
    void closePointPopover();
    void refreshPopover();

    AQDataSource* m_document = nullptr;
    std::vector<AQCurvePoint*> m_pointViews;
    AQCurvePointPopover* m_pointPopover;
    int m_selectedRow = -1;
    int m_popoverRow = -1;     ///< the point that the popover shows, -1 for none or the playhead
    bool m_showsFocus = false; ///< the keyboard was used here last, not the pointer
    std::optional<AQTime> m_playheadTime;
    AQTimePoint m_playhead{AQTime{}, 0.0, 0.0};
    QPixmap m_background; ///< ground, axes and labels in device pixels; null until needed again
    QSize m_backgroundSize;
    double m_backgroundScale = 0.0;
};

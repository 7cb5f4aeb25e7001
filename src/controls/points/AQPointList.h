#pragma once

#include "data/AQTimePoint.h"

#include <QScrollArea>
#include <QTimer>

#include <vector>

class AQPointListHeader;
class AQPointRow;
class AQSelection;
class AQSequence;

/// The light program as a list of rows, one for each point in the order of the day.
///
/// Up to `mostRowsKept` rows exist as widgets, more only in and next to what is seen, at the focus
/// and at both ends, so that Tab reaches every one. Those out of sight come one turn of the event
/// loop after the seen ones: a load is done before they are made. Focus and selection are one: who
/// comes to an editor selects its point, and when another point is selected while an editor has the
/// focus, the focus goes to the same column of that one.
class AQPointList : public QScrollArea {
    Q_OBJECT
    Q_PROPERTY(int count READ count)
    Q_PROPERTY(int selectedRow READ selectedRow WRITE setSelectedRow)

public:
    /// As many as a controller can hold.
    static constexpr int mostRowsKept = 84;

    /// Shows the program of `sequence`, follows its notifications and selects in `selection`; both
    /// must outlive the list.
    AQPointList(AQSequence& sequence, AQSelection& selection, QWidget* parent);

    /// Tab goes from `previous`, which must outlive the list, to the first row.
    void setTabAnchor(QWidget& previous);

    int count() const;
    /// -1 when no row is selected.
    int selectedRow() const;
    /// Selects as a person does; -1 lets go.
    void setSelectedRow(int row);

    /// The row of a point as a widget, made if there was none; null outside the program.
    AQPointRow* rowAt(int row);
    /// "Point 3 of 7, 15:00".
    QString rowName(int row) const;
    /// On the screen, also outside of what is seen of the list.
    QRect rowRect(int row) const;
    const AQSequence& sequence() const { return m_sequence; }
    /// The keyboard focus goes to the editor of `column` in `row`, which is scrolled into view.
    void focusEditor(int row, int column, Qt::FocusReason reason);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The person wants the selected point removed.
    void deleteRequested();

protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    enum class Making { needed, all };
    struct PlacedRow {
        int row;
        AQPointRow* widget;
    };

    void onDataChanged();
    void onSelectionChanged();
    void fitToFont();
    void layOut();
    void scrollTo(int row);
    void placeRows(Making making);
    bool isKept(int row, int focusedRow) const;
    bool isNeeded(int row, int focusedRow) const;
    bool isNear(int row, int distance) const;
    AQPointRow* makeRow(AQPointId id);
    void linkTabs();
    const PlacedRow* placed(int row) const;
    const PlacedRow* focusedRow() const;

    AQSequence& m_sequence;
    AQSelection& m_selection;
    AQPointListHeader* m_header;
    QWidget* m_tabAnchor = nullptr;
    std::vector<PlacedRow> m_rows; ///< in the order of the day
    QTimer m_unseenRows;           ///< runs while rows out of sight are still to be made
    int m_rowHeight;
    int m_leastRowHeight = 0;
    int m_timeWidth = 0;
    int m_leastSliderWidth = 0;
    AQPointId m_shownId = AQPointId::none; ///< as selected
    int m_wantedRow = -1;                  ///< that somebody asked for, seen or not
};

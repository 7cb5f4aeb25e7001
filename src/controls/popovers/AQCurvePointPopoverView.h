#pragma once

#include "data/AQTimePoint.h"

#include <QWidget>

class QPainter;

/// What the popover says: the time over the two channel levels and the intensity.
class AQCurvePointPopoverView : public QWidget {
    Q_OBJECT

public:
    static constexpr int contentWidth = 180;
    static constexpr int contentHeight = 75;
    /// The height of the upper band, which holds the time.
    static constexpr int timeBandHeight = 25;

    explicit AQCurvePointPopoverView(QWidget* parent = nullptr);

    const AQTimePoint& value() const { return m_value; }
    /// Redraws when the value changes.
    void setValue(const AQTimePoint& value);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The same margin beside and between them, whatever their values.
    void drawColumns(QPainter& painter) const;

    AQTimePoint m_value;
};

#pragma once

#include <QLabel>

struct ProgramStatistics;

/// The caption of the curve, on the same white ground below it: how much light the program gives in
/// a day, in small grey letters that begin where the plot does. What is laid out in it stands on
/// the right, up to where the plot ends.
class AQStatisticsLine : public QLabel {
    Q_OBJECT

public:
    explicit AQStatisticsLine(QWidget* parent);

    /// The letters of the caption in a window whose font is `font`.
    static QFont captionFont(QFont font);

    void setStatistics(const ProgramStatistics& statistics);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fitToFont();

    QFont m_small;
};

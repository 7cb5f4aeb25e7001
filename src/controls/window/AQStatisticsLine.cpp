#include "controls/window/AQStatisticsLine.h"

#include "controls/DisplayColors.h"
#include "controls/curve/CurveGeometry.h"
#include "data/ProgramStatistics.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int leastHeight = 16;
constexpr int gapBelow = 2;
constexpr int smallestText = 11; ///< pixels, beside a desktop's font of 13, as at the curve's axes
constexpr int largestText = 14;
constexpr QColor textColor{100, 100, 100};

} // namespace

AQStatisticsLine::AQStatisticsLine(QWidget* parent) : QLabel(parent) {
    QFont small = font();
    small.setPixelSize(
        std::clamp(QFontInfo(small).pixelSize() * smallestText / 13, smallestText, largestText));
    setFont(small);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setFixedHeight(std::max(leastHeight, QFontMetrics(small).height() + gapBelow));
}

void AQStatisticsLine::setStatistics(const ProgramStatistics& statistics) {
    if (const QString text = statistics.text(); text != this->text())
        setText(text);
}

void AQStatisticsLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), DisplayColors::neutral);
    painter.setPen(textColor);
    painter.drawText(rect().adjusted(static_cast<int>(CurveGeometry::sideMargin), 0, 0, -gapBelow),
                     Qt::AlignLeft | Qt::AlignVCenter, text());
}

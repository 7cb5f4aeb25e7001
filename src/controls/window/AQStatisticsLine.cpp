#include "controls/window/AQStatisticsLine.h"

#include "controls/DisplayColors.h"
#include "controls/curve/CurveGeometry.h"
#include "data/ProgramStatistics.h"

#include <QEvent>
#include <QFontInfo>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int leastHeight = 16;
constexpr int gapBelow = 2;
constexpr int usualText = 13;    ///< pixels, a desktop's
constexpr int smallestText = 11; ///< beside that, as at the curve's axes
constexpr int largestText = 14;
constexpr QColor textColor{100, 100, 100};

} // namespace

AQStatisticsLine::AQStatisticsLine(QWidget* parent) : QLabel(parent) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    fitToFont();
}

QFont AQStatisticsLine::captionFont(QFont font) {
    font.setPixelSize(std::clamp(QFontInfo(font).pixelSize() * smallestText / usualText,
                                 smallestText, largestText));
    return font;
}

void AQStatisticsLine::fitToFont() {
    m_small = captionFont(font());
    setFixedHeight(std::max(leastHeight, QFontMetrics(m_small).height() + gapBelow));
}

void AQStatisticsLine::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitToFont();
}

void AQStatisticsLine::setStatistics(const ProgramStatistics& statistics) {
    if (const QString text = statistics.text(); text != this->text())
        setText(text);
}

void AQStatisticsLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), DisplayColors::neutral);
    painter.setFont(m_small);
    painter.setPen(textColor);
    painter.drawText(rect().adjusted(static_cast<int>(CurveGeometry::sideMargin), 0, 0, -gapBelow),
                     Qt::AlignLeft | Qt::AlignVCenter, text());
}

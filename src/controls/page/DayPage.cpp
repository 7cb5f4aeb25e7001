#include "controls/page/DayPage.h"

#include "controls/DisplayColors.h"
#include "controls/FittingFont.h"
#include "controls/Percent.h"
#include "controls/curve/CurveGeometry.h"
#include "controls/curve/CurvePainter.h"
#include "data/PointColumn.h"
#include "data/ProgramStatistics.h"
#include "data/TimeText.h"

#include <QCoreApplication>
#include <QLocale>
#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int margin = 24;
constexpr double side = CurveGeometry::sideMargin; ///< texts begin where the plot does
constexpr double inner = DayPage::width - 2.0 * side;
constexpr QRectF titleBox{side, margin, inner, 32};
constexpr QRectF dateBox{side, margin + 32, inner, 24};
constexpr double curveTop = margin + 64;
constexpr QSizeF curveSize{DayPage::width, 400};
constexpr QRectF sumsBox{side, curveTop + curveSize.height(), inner, 24};
constexpr double tableTop = curveTop + curveSize.height() + 40;

constexpr int tables = 3; ///< side by side
constexpr double tableGap = 32;
constexpr double tableWidth = (inner - (tables - 1) * tableGap) / tables;
constexpr std::array columnLefts{0.0, 60.0, 210.0, tableWidth}; ///< and where the last ends
constexpr double columnGap = 8;
constexpr double headingHeight = 28;
constexpr double rowHeight = 24;
constexpr QSize swatch{16, 12};

constexpr int titleText = 22; ///< pixels
constexpr int usualText = 13;
constexpr int headingText = 12;
constexpr QColor ruleColor{208, 208, 208};

/// How many rows a page has room for, the first one beside the curve.
int rowsOn(int page, double height) {
    const double top = page == 0 ? tableTop : margin;
    const int rows = static_cast<int>((height - margin - top - headingHeight) / rowHeight);
    return std::max(rows, page == 0 ? 0 : 1);
}

int rowsFor(std::size_t points) {
    return (static_cast<int>(points) + tables - 1) / tables;
}

} // namespace

DayPage::DayPage(Contents contents, const QFont& font)
    : m_contents(std::move(contents)), m_font(font) {}

QFont DayPage::fontOf(int pixelSize, QFont::Weight weight) const {
    QFont font = m_font;
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}

QSize DayPage::size() const {
    const double table = m_contents.points.empty()
                             ? 0.0
                             : headingHeight + rowHeight * rowsFor(m_contents.points.size());
    return {width, static_cast<int>(std::ceil(tableTop + table + margin))};
}

std::span<const AQTimePoint> DayPage::pointsOn(int page, double height) const {
    std::span<const AQTimePoint> rest = m_contents.points;
    for (int i = 0;; ++i) {
        const auto here =
            std::min(rest.size(), static_cast<std::size_t>(tables * rowsOn(i, height)));
        if (i == page)
            return rest.first(here);
        rest = rest.subspan(here);
    }
}

int DayPage::pageCount(double height) const {
    std::size_t room = 0;
    int pages = 0;
    do
        room += static_cast<std::size_t>(tables * rowsOn(pages++, height));
    while (room < m_contents.points.size());
    return pages;
}

void DayPage::paint(QPainter& painter, int page, double height) const {
    painter.setRenderHint(QPainter::Antialiasing);
    if (page == 0)
        paintHead(painter);
    paintTable(painter, page == 0 ? tableTop : margin, pointsOn(page, height));
}

bool DayPage::paintPages(QPagedPaintDevice& device) const {
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    const double scale = static_cast<double>(painter.viewport().width()) / width;
    const double height = painter.viewport().height() / scale;
    painter.scale(scale, scale);
    for (int page = 0; page < pageCount(height); ++page) {
        if (page > 0 && !device.newPage())
            return false;
        paint(painter, page, height);
    }
    return painter.end();
}

void DayPage::paintHead(QPainter& painter) const {
    painter.setPen(DisplayColors::line);
    painter.setFont(fittingFont(fontOf(titleText, QFont::Bold), titleText, titleBox.size().toSize(),
                                m_contents.name));
    painter.drawText(titleBox, Qt::AlignLeft | Qt::AlignVCenter, m_contents.name);

    QString origin = QLocale().toString(m_contents.date, QLocale::LongFormat);
    if (!m_contents.controller.isEmpty())
        origin += QStringLiteral(" · ") +
                  QCoreApplication::translate("DayPage", "controller with firmware %1")
                      .arg(m_contents.controller);
    painter.setPen(DisplayColors::quietText);
    painter.setFont(fontOf(usualText));
    painter.drawText(dateBox, Qt::AlignLeft | Qt::AlignVCenter, origin);
    painter.drawText(sumsBox, Qt::AlignLeft | Qt::AlignVCenter,
                     statisticsOf(m_contents.points).text());

    painter.save();
    painter.translate(0.0, curveTop);
    CurvePainter curve(painter, CurveGeometry(curveSize), fontOf(usualText));
    curve.drawBackground(true);
    if (!m_contents.points.empty()) {
        curve.drawFill(m_contents.points);
        curve.drawPoints(m_contents.points);
    }
    painter.restore();
}

void DayPage::paintTable(QPainter& painter, double top, std::span<const AQTimePoint> points) const {
    const auto rows = static_cast<std::size_t>(rowsFor(points.size()));
    for (std::size_t first = 0; first < points.size(); first += rows) {
        const std::size_t tablesBefore = first / rows;
        const double left = side + static_cast<double>(tablesBefore) * (tableWidth + tableGap);
        painter.setPen(DisplayColors::line);
        for (std::size_t column = 0; column < PointColumn::count; ++column) {
            const QString title = PointColumn::title(static_cast<int>(column));
            const double room = columnLefts.at(column + 1) - columnLefts.at(column) - columnGap;
            painter.setFont(fittingFont(fontOf(headingText, QFont::Bold), headingText,
                                        {static_cast<int>(room), static_cast<int>(rowHeight)},
                                        title));
            painter.drawText(QPointF(left + columnLefts.at(column), top + usualText), title);
        }
        painter.setFont(fontOf(usualText));
        const auto shown = points.subspan(first, std::min(rows, points.size() - first));
        double y = top + headingHeight;
        for (const AQTimePoint& point : shown) {
            paintRow(painter, left, y, point);
            y += rowHeight;
        }
    }
}

void DayPage::paintRow(QPainter& painter, double left, double top, const AQTimePoint& point) const {
    painter.fillRect(QRectF(left, top, tableWidth, 1.0), ruleColor);
    const auto box = [&](std::size_t column) {
        return QRectF(left + columnLefts.at(column), top, tableWidth, rowHeight);
    };
    QRectF color(box(1).topLeft(), swatch);
    color.moveTop(top + (rowHeight - swatch.height()) / 2.0);
    painter.setPen(QPen(DisplayColors::disabled, 1.0));
    painter.setBrush(DisplayColors::displayColor(point.colorTemp));
    painter.drawRect(color);
    painter.setPen(DisplayColors::line);
    constexpr int alignment = Qt::AlignLeft | Qt::AlignVCenter;
    painter.drawText(box(0), alignment, timeText(point.time.hour, point.time.minute));
    painter.drawText(box(1).translated(swatch.width() + 8.0, 0.0), alignment,
                     percentText(point.colorTemp));
    painter.drawText(box(2), alignment, percentText(point.brightness));
}

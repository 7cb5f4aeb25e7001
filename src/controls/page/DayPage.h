#pragma once

#include "data/AQTimePoint.h"

#include <QDate>
#include <QFont>
#include <QSize>
#include <QString>

#include <span>
#include <vector>

class QPagedPaintDevice;
class QPainter;

/// A light program on paper: its name, the curve, how much light it gives, and a table of its
/// points. Black on white whatever the palette is.
///
/// Measured in units of which a page is `width` wide. All of it fits on one page of `size()`; on
/// lower pages the table goes on behind the first.
class DayPage {
public:
    struct Contents {
        QString name;
        QDate date;
        QString controller; ///< its firmware; empty when that is not known
        std::vector<AQTimePoint> points;
    };
    static constexpr int width = 1040;

    DayPage(Contents contents, const QFont& font);

    QSize size() const;
    /// At least one; `height` is that of a page.
    int pageCount(double height) const;
    /// Paints one page (0..pageCount - 1); the painter's unit is that of the page, and its origin
    /// the page's corner on a whole device pixel.
    void paint(QPainter& painter, int page, double height) const;
    /// Paints all pages, as large as they fit on the device's; false when the device refuses.
    bool paintPages(QPagedPaintDevice& device) const;

private:
    void paintHead(QPainter& painter) const;
    void paintTable(QPainter& painter, double top, std::span<const AQTimePoint> points) const;
    void paintRow(QPainter& painter, double left, double top, const AQTimePoint& point) const;
    QFont fontOf(int pixelSize, QFont::Weight weight = QFont::Normal) const;
    /// The points of one page.
    std::span<const AQTimePoint> pointsOn(int page, double height) const;

    Contents m_contents;
    QFont m_font;
};

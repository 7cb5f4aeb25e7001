#include "controls/curve/CurveBackground.h"

#include "controls/DisplayColors.h"
#include "controls/curve/CurvePainter.h"

#include <QPainter>
#include <QRegion>

#include <cmath>

void CurveBackground::makePicture(const CurveGeometry& geometry, const QFont& font,
                                  bool isEnabled) {
    m_picture = QPixmap(m_size);
    m_picture.fill(DisplayColors::neutral);
    m_picture.setDevicePixelRatio(m_scale);
    {
        QPainter painter(&m_picture);
        CurvePainter(painter, geometry, font).drawBackground(isEnabled);
    }
    // One pixel of the picture is one of the device from here on, whatever the scale.
    m_picture.setDevicePixelRatio(1.0);
}

void CurveBackground::draw(QPainter& painter, const CurveGeometry& geometry, const QFont& font,
                           bool isEnabled) {
    const double scale = painter.deviceTransform().m11();
    const QSize wanted(static_cast<int>(std::ceil(geometry.width() * scale)),
                       static_cast<int>(std::ceil(geometry.height() * scale)));
    if (m_size != wanted || m_scale != scale) {
        // The first picture of a size, at the start and in a resize, is mostly the last one too.
        m_picture = QPixmap();
        m_size = wanted;
        m_scale = scale;
        CurvePainter(painter, geometry, font).drawBackground(isEnabled);
        return;
    }
    if (m_picture.isNull())
        makePicture(geometry, font, isEnabled);
    // Within the axes there is the grid alone, and drawing that is faster than copying.
    const QRectF plot(QPointF(geometry.left(), geometry.top()),
                      QPointF(geometry.right(), geometry.bottom()));
    const QRectF inside = plot.adjusted(1.0, 1.0, -1.0, -1.0);
    const QRect blank(QRectF(inside.topLeft() * scale, inside.size() * scale).toRect());
    painter.save();
    painter.scale(1.0 / scale, 1.0 / scale);
    painter.fillRect(blank, DisplayColors::neutral);
    for (const QRect& part : QRegion(m_picture.rect()) - blank)
        painter.drawPixmap(part.topLeft(), m_picture, part);
    painter.setClipRect(blank);
    painter.scale(scale, scale);
    CurvePainter(painter, geometry, font).drawGrid({});
    painter.restore();
}

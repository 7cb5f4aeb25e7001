#pragma once

#include "controls/curve/CurveGeometry.h"

#include <QFont>
#include <QPixmap>
#include <QSize>

class QPainter;

/// Ground, grid, axes and labels of the curve view, kept as a picture from one painting to the
/// next.
class CurveBackground {
public:
    /// For another look in the same size, such as another font.
    void forget() { m_picture = QPixmap(); }
    /// Covers the whole view.
    void draw(QPainter& painter, const CurveGeometry& geometry, const QFont& font, bool isEnabled);

private:
    void makePicture(const CurveGeometry& geometry, const QFont& font, bool isEnabled);

    QPixmap m_picture; ///< in device pixels; null until needed again
    QSize m_size;
    double m_scale = 0.0;
};

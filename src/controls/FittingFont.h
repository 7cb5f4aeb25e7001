#pragma once

#include <QFont>

class QSize;
class QString;

/// `font` in a size in pixels, or in the largest below it in which `text` fits into `room`; not
/// below 8 pixels.
QFont fittingFont(QFont font, int pixelSize, const QSize& room, const QString& text);

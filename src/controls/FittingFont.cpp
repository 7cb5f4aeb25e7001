#include "controls/FittingFont.h"

#include <QFontMetrics>

namespace {

constexpr int smallestPixelSize = 8;

} // namespace

QFont fittingFont(QFont font, int pixelSize, const QSize& room, const QString& text) {
    for (;; --pixelSize) {
        font.setPixelSize(pixelSize);
        const QFontMetrics metrics(font);
        if (pixelSize <= smallestPixelSize ||
            (metrics.horizontalAdvance(text) <= room.width() && metrics.height() <= room.height()))
            return font;
    }
}

#include "MenuBarStyle.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPolygonF>

#include <algorithm>

namespace {

/// Two chevrons to where the writing goes, in the color of the menu's titles.
class MoreArrow : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State /*state*/) override {
        const double size = std::min(rect.width(), rect.height()) / 4.0;
        const QPalette::ColorGroup group =
            mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(
            QPen(QApplication::palette().color(group, QPalette::WindowText), 0.4 * size));
        painter->translate(QRectF(rect).center());
        if (QApplication::isRightToLeft())
            painter->scale(-1.0, 1.0);
        for (const double left : {-1.25 * size, 0.25 * size})
            painter->drawPolyline(QPolygonF{{left, -size}, {left + size, 0.0}, {left, size}});
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new MoreArrow; }
};

} // namespace

MenuBarStyle::MenuBarStyle() : QProxyStyle(QApplication::style()->name()) {
    setObjectName(baseStyle()->name()); // by which it is known, as the style itself would be
}

QIcon MenuBarStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                 const QWidget* widget) const {
    return icon == SP_ToolBarHorizontalExtensionButton
               ? QIcon(new MoreArrow)
               : QProxyStyle::standardIcon(icon, option, widget);
}

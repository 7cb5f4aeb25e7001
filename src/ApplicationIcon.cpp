#include "ApplicationIcon.h"

#include <QGuiApplication>
#include <QIcon>

namespace ApplicationIcon {

QIcon builtIn() {
    QIcon icon;
    for (const int size : {16, 32, 64})
        icon.addFile(QStringLiteral(":/icon-%1.png").arg(size), {size, size});
    return icon;
}

QIcon fromTheme() {
    return QIcon::fromTheme(QGuiApplication::desktopFileName(), builtIn());
}

} // namespace ApplicationIcon

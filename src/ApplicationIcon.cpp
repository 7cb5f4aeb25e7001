#include "ApplicationIcon.h"

#include <QGuiApplication>
#include <QIcon>

QIcon applicationIcon() {
    QIcon builtIn;
    for (const int size : {16, 24, 32, 48, 64, 128})
        builtIn.addFile(QStringLiteral(":/icon-%1.png").arg(size), {size, size});
    return QIcon::fromTheme(QGuiApplication::desktopFileName(), builtIn);
}

#include "controls/popovers/Overlay.h"

#include <QWidget>

void layOver(QWidget& overlay, QWidget& owner) {
    QWidget* window = owner.window();
    if (overlay.parentWidget() != window) {
        overlay.setParent(window);
        QObject::connect(&owner, &QObject::destroyed, &overlay, &QObject::deleteLater,
                         Qt::UniqueConnection);
        for (QWidget* each = &owner; each != window; each = each->parentWidget())
            each->installEventFilter(&overlay);
    }
    overlay.raise();
}

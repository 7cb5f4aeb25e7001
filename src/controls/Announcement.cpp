#include "controls/Announcement.h"

#include <QAccessibleWidget>
#include <QTimer>
#include <QWidget>

#include <chrono>

// Qt knows no announcements; a notification that appears is read by its name. Each is a thing of
// its own, as readers ask for the name later, and stays until they have.
void Announcement::make(const QWidget& widget, const QString& text) {
    using namespace std::chrono_literals;
    constexpr auto kept = 2s;
    if (!QAccessible::isActive())
        return;
    auto* notification = new QWidget(widget.window());
    notification->setAttribute(Qt::WA_TransparentForMouseEvents);
    notification->setFixedSize(0, 0);
    QAccessible::registerAccessibleInterface(
        new QAccessibleWidget(notification, QAccessible::Notification));
    notification->setAccessibleName(text);
    notification->show();
    QTimer::singleShot(kept, notification, &QObject::deleteLater);
}

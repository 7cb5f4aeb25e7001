#include "yprotocoll/UdevSerialPortManager.h"
#include "yprotocoll/YMessageController.h"

#include <QCoreApplication>
#include <QPointer>

namespace {

/// The controller with the real services it works on, in one life.
class RealLink : public QObject {
public:
    using QObject::QObject;

    UdevSerialPortManager ports;
    ModalPause pause;
    YMessageController controller{ports, pause};
};

} // namespace

YMessageController& YMessageController::sharedInstance() {
    static QPointer<RealLink> link;
    if (!link)
        link = new RealLink(QCoreApplication::instance());
    return link->controller;
}

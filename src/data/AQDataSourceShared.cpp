#include "data/AQDataSource.h"
#include "yprotocoll/YMessageController.h"

AQDataSource& AQDataSource::sharedInstance() {
    static NotificationCenter notifications;
    static AQDataSource document(notifications,
                                 [] { return YMessageController::sharedInstance().device(); });
    return document;
}

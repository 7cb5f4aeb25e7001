#include "lamp/Departure.h"

#include "lamp/LampPreview.h"
#include "lamp/Transfers.h"
#include "yprotocoll/link/YMessageController.h"

Departure::Departure(YMessageController& controller, Transfers& transfers, LampPreview& lamp,
                     QObject* parent)
    : QObject(parent), m_controller(controller), m_transfers(transfers), m_lamp(lamp) {}

void Departure::leaveFor(const std::string& path) {
    m_controller.lookFor(path);
    m_path = path;
    if (m_isEnding)
        return;
    if (!m_isLeaving && path == m_controller.portPath())
        onLeft();
    else
        leave();
}

void Departure::end(Loss loss) {
    m_lossEnds = loss == Loss::Ends || (m_isEnding ? m_lossEnds : m_isLeaving);
    if (m_isEnding)
        return;
    m_isEnding = true;
    m_transfers.dropLoads();
    Q_EMIT changed();
    leave();
}

void Departure::stay() {
    m_isEnding = false;
    Q_EMIT changed();
    m_lamp.resume();
}

void Departure::leave() {
    m_isLeaving = true;
    m_transfers.afterSends([this] {
        Q_EMIT changed();
        m_lamp.releaseForGood([this] { onLeft(); });
    });
}

void Departure::onLeft() {
    m_isLeaving = false;
    if (m_isEnding)
        Q_EMIT ended();
    else
        Q_EMIT leftFor(m_path);
}

QString Departure::sign() const {
    return m_isEnding && m_transfers.isSending() ? tr("SENDING, THEN QUITTING") : QString();
}

void Departure::linkWasLost() {
    m_isLeaving = false;
    if (!m_isEnding)
        return;
    m_isEnding = false;
    Q_EMIT changed();
    if (m_lossEnds)
        Q_EMIT ended();
}

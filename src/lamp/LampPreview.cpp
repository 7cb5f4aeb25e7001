#include "lamp/LampPreview.h"

#include "data/ColorMapping.h"
#include "yprotocoll/YCommands.h"
#include "yprotocoll/link/YMessageController.h"

#include <QPointer>

LampPreview::LampPreview(YMessageController& controller, Intervals intervals, QObject* parent)
    : QObject(parent), m_controller(controller), m_intervals(intervals) {}

bool LampPreview::canSend() const {
    // What the link reports comes from the event loop, a little after it happened: the report is
    // what the window shows, the controller's own word is what can be sent.
    return m_isConnected && m_controller.isConnected() && !m_releasedForGood;
}

void LampPreview::take(const QString& sign) {
    m_isHeld = true;
    m_sign = sign;
    if (canSend()) {
        // A release that waits in the stream would follow and end this preview.
        m_controller.dropWaitingStream();
        m_controller.send(CmdEnableDemoMode());
        m_hasLamp = true;
        ++m_takings;
    }
    announceSign();
}

void LampPreview::keepAlive() {
    if (m_isHeld && canSend())
        m_controller.send(CmdEnableDemoMode());
}

void LampPreview::show(const ChannelLevels& levels) {
    if (m_isHeld && canSend())
        m_controller.sendStream(CmdSetDemoModeLevels(levels.cold, levels.warm), m_intervals.levels);
}

void LampPreview::showAtOnce(const ChannelLevels& levels) {
    show(levels);
    m_controller.hurryStream();
}

void LampPreview::setSign(const QString& sign) {
    m_sign = sign;
    announceSign();
}

void LampPreview::releaseAfterLevels() {
    m_isHeld = false;
    if (m_hasLamp && canSend())
        m_controller.sendStream(CmdDisableDemoMode(), m_intervals.levels,
                                [released = onReleased()](const YAnswer&) { released(); });
    announceSign();
}

void LampPreview::release() {
    m_isHeld = false;
    if (m_hasLamp && canSend()) {
        m_controller.dropWaitingStream();
        m_controller.send(CmdDisableDemoMode(),
                          [released = onReleased()](const YAnswer&) { released(); });
    }
    announceSign();
}

void LampPreview::releaseForGood(std::function<void()> done) {
    if (m_releasedForGood) {
        m_releasedForGood = std::move(done);
        return;
    }
    if (!m_hasLamp || !canSend()) {
        done();
        return;
    }
    m_releasedForGood = std::move(done);
    m_controller.dropWaitingStream();
    m_controller.send(CmdDisableDemoMode(),
                      [released = onReleased(), lamp = QPointer(this)](const YAnswer&) {
                          released();
                          if (lamp && lamp->m_releasedForGood)
                              std::function(lamp->m_releasedForGood)();
                      });
}

std::function<void()> LampPreview::onReleased() {
    return [lamp = QPointer(this), takings = m_takings] {
        if (!lamp || lamp->m_takings != takings)
            return;
        lamp->m_hasLamp = false;
        lamp->announceSign();
    };
}

void LampPreview::setConnected(bool isConnected) {
    m_isConnected = isConnected;
    m_releasedForGood = nullptr;
    if (isConnected) {
        Q_EMIT regained();
        if (!m_isHeld && m_hasLamp)
            release();
    }
    announceSign();
}

void LampPreview::resume() {
    if (m_releasedForGood && m_isConnected)
        setConnected(true);
}

QString LampPreview::sign() const {
    if (m_isHeld && !m_isConnected)
        return tr("%1, waiting for the controller").arg(m_sign);
    return m_isHeld || (m_hasLamp && m_isConnected) ? m_sign : QString();
}

void LampPreview::announceSign() {
    if (sign() == m_announcedSign)
        return;
    m_announcedSign = sign();
    Q_EMIT signChanged(m_announcedSign);
}

#pragma once

#include <QObject>
#include <QString>

#include <chrono>
#include <functional>

class YMessageController;
struct ChannelLevels;

struct LampIntervals {
    std::chrono::milliseconds levels{1000}; ///< between an answer and the next levels
};

/// The lamp under the program's hand: taken from the controller's own program, shown levels, and
/// given back for sure.
///
/// One user holds the lamp at a time; live mode and demo mode take turns. Nothing is sent while no
/// controller is connected. A link that is lost leaves everything as it is: once there is one
/// again, whoever still holds the lamp is asked to take it anew, and a lamp that nobody holds any
/// more is given back then.
class LampPreview : public QObject {
    Q_OBJECT

public:
    using Intervals = LampIntervals;

    /// `controller` must outlive this.
    explicit LampPreview(YMessageController& controller, Intervals intervals = {},
                         QObject* parent = nullptr);

    /// Holds the lamp from now on and takes it from the controller's program. `sign` says in a few
    /// words what the lamp shows.
    void take(const QString& sign);
    /// Tells the controller, which gives up a preview that is not heard of, that it goes on.
    void keepAlive();
    void show(const ChannelLevels& levels);
    /// As `show()`, without the time that is usual between two levels: for who asks for them once.
    void showAtOnce(const ChannelLevels& levels);
    void setSign(const QString& sign);

    /// Lets go of the lamp behind levels that are on their way.
    void releaseAfterLevels();
    /// Lets go of the lamp as soon as the command in flight is answered; waiting levels are
    /// dropped, since they would take the lamp again.
    void release();
    /// For the end of the program: as `release()`, and calls `done` after the controller's answer;
    /// at once when no controller is connected. Until then the lamp cannot be taken again. When the
    /// link is lost meanwhile, `done` is never called and the holder goes on as after any lost
    /// link. A second call while the first waits takes its place.
    void releaseForGood(std::function<void()> done);

    /// After a release for good whose link goes on: whoever still holds the lamp takes it anew.
    void resume();

    /// True from the taking until the controller has confirmed that it has its lamp back.
    bool hasLamp() const { return m_hasLamp; }
    /// What to show about the preview; empty when there is none.
    QString sign() const;

    /// To be told when the link has opened and when it was lost.
    void setConnected(bool isConnected);

Q_SIGNALS:
    void signChanged(const QString& sign);
    /// There is a link again; who holds the lamp takes it anew.
    void regained();

private:
    bool canSend() const;
    std::function<void()> onReleased();
    void announceSign();

    YMessageController& m_controller;
    Intervals m_intervals;
    bool m_isConnected = false;
    bool m_isHeld = false;
    bool m_hasLamp = false;
    std::function<void()> m_releasedForGood; ///< set while that is awaited
    int m_takings = 0; ///< tells the answer of an outdated release from that of the last one
    QString m_sign;
    QString m_announcedSign;
};

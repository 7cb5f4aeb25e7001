#pragma once

#include "data/AQDataSource.h"
#include "data/TransferResult.h"

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

class YAnswer;
class YMessageController;

/// Loads the document's light program and task light from the controller, and sends them to it.
///
/// A transfer whose link fails ends without a result.
class Transfers : public QObject {
    Q_OBJECT

public:
    /// Both must outlive this.
    Transfers(AQDataSource& data, YMessageController& controller, QObject* parent = nullptr);

    /// Asks for the program in the controller. Ends in `loaded`, or in `disturbed` when the
    /// document was changed meanwhile. Of several loads on their way the last one counts.
    void load();
    bool isLoading() const { return m_loads > 0; }
    /// After `disturbed`: replaces the document all the same.
    void replaceDocument();
    /// Ends in `sent`.
    void send();
    bool isSending() const { return m_sends > 0; }

    /// Forgets the loads on their way, but not one that was `disturbed`.
    void dropLoads();
    /// Calls `done` after the sends on their way, behind their `sent`; at once when there are none;
    /// never when their link fails. A second call takes the place of the first.
    void afterSends(std::function<void()> done);
    /// To be told when the link was lost.
    void linkWasLost();

Q_SIGNALS:
    /// A load has arrived and is compared with the document next.
    void arrived();
    /// With `ok` the document holds what the controller does and is clean; `isOther` tells whether
    /// that is something else than it held before.
    void loaded(const TransferResult& result, bool isOther);
    void disturbed();
    void sent(const TransferResult& result);

private:
    using Answers = std::vector<std::shared_ptr<const YAnswer>>;

    void onAnswers(const Answers& answers, const DeviceInfo& device);
    void onSent();

    AQDataSource& m_data;
    YMessageController& m_controller;
    int m_loads = 0;
    int m_sends = 0;
    int m_droppings = 0; ///< tells the answers of a dropped load from those of a later one
    AQDataSource::Contents m_undisturbed; ///< the document when the first load on its way began
    Answers m_answers;                    ///< of the last load
    DeviceInfo m_device;                  ///< where they came from
    std::function<void()> m_afterSends;
};

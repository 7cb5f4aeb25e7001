#pragma once

#include "data/AQDataSource.h"
#include "data/TransferResult.h"
#include "lamp/ProgramComparison.h"
#include "lamp/TransferProgress.h"

#include <QObject>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class LampContents;
class YAnswer;
class YCommand;
class YMessageController;

/// Loads the document's light program and task light from the controller, sends them to it, and
/// reads the controller without touching the document.
///
/// What the answers tell of the controller's program is noted in `lamp`. A transfer whose link
/// fails ends without a result. One that is asked for while others are on their way is the next: a
/// send waits until what was asked for before it has been read.
class Transfers : public QObject {
    Q_OBJECT

public:
    /// What was read. Lists that make no program end in errorInvalidData too, with them and
    /// without contents; an image without channels has been told nothing.
    using ReadDone = std::function<void(const TransferResult& result, const StoredProgram& read)>;

    /// All must outlive this.
    Transfers(AQDataSource& data, YMessageController& controller, LampContents& lamp,
              QObject* parent = nullptr);

    /// Asks for the program in the controller, which ends the acclimation. Ends in `loaded`, or in
    /// `disturbed` when the document was changed meanwhile. Of several loads on their way the last
    /// one counts.
    void load();
    /// Whether the document would lose an acclimation that is not over by a load.
    bool endsAcclimation() const;
    bool isLoading() const { return m_loads > 0; }
    /// After `disturbed`: replaces the document all the same.
    void replaceDocument();
    /// Sends the program as it is now, in today's light. Ends in `sent`.
    void send();
    /// Where the controller is that it all goes to and comes from.
    std::string portPath() const;
    /// The day whose light a send takes.
    QDate today() const { return m_data.today(); }
    /// Or waiting to send.
    bool isSending() const { return m_sends > 0 || !m_waiting.empty(); }

    /// Reads the program in the controller, and with `AndMode` whether it runs it. `done` holds
    /// contents when the result is `ok`; while a modal window is shown it waits, and the reading
    /// goes on.
    enum class Read { Program, AndMode };
    void read(Read what, const ReadDone& done);
    bool isReading() const { return m_readings > 0; }
    /// The document becomes what was read before, without an acclimation, in one step of this name.
    /// One that was dirty stays so.
    void take(const StoredProgram& program, const QString& stepName);

    const TransferProgress& progress() const { return m_progress; }

    /// Forgets the loads and readings on their way, but not a load that was `disturbed`.
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
    void readingChanged(bool isReading);
    /// With `ok` the controller has answered all; a `difference`, in words, tells that it says it
    /// stored something else.
    void sent(const TransferResult& result, const QString& difference);

private:
    using Answers = std::vector<std::shared_ptr<const YAnswer>>;
    struct Sending;
    enum class Kind { Reading, Send };
    struct Waiting {
        Kind kind;
        std::function<void()> begin;
    };

    void begin(Kind kind, std::function<void()> transfer);
    void beginWaiting();
    void beginReading(const std::vector<YCommand>& commands, const QString& activity,
                      const std::function<void(const Answers&)>& done);
    void beginSend(const std::shared_ptr<Sending>& sending, const std::vector<YCommand>& commands);
    void setReadings(int count);
    static std::optional<StoredProgram> programOf(const Answers& answers, const DeviceInfo& device);
    void deliver(int droppings, const std::function<void()>& result);
    enum class News { No, Yes }; ///< whether what was read is to be noted yet
    void finishLoad(News news);
    void replaceBy(const StoredProgram& program);
    void onLoaded(const std::optional<StoredProgram>& program);
    void onSendAnswer(Sending& sending, std::size_t index, const YAnswer& answer);
    void onSent(const Sending& sending);

    AQDataSource& m_data;
    YMessageController& m_controller;
    LampContents& m_lamp;
    TransferProgress m_progress;
    int m_loads = 0;
    int m_sends = 0; ///< on the line
    int m_readings = 0;
    int m_readingsOnLine = 0;      ///< and loads, also the dropped ones
    std::deque<Waiting> m_waiting; ///< the first is a send, which waits for those
    int m_links = 0;               ///< that were lost; tells the answers of one from the next one's
    int m_droppings = 0; ///< tells the answers of a dropped load from those of a later one
    AQDataSource::Contents m_undisturbed; ///< the document when the first load on its way began
    AQDataSource::Contents m_sentLast;    ///< what the last send began with
    StoredProgram m_loaded;               ///< by the last load
    std::function<void()> m_afterSends;
};

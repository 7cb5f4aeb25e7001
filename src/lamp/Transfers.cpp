#include "lamp/Transfers.h"

#include "data/DeviceProgramImage.h"
#include "lamp/LampContents.h"
#include "yprotocoll/YAnswers.h"
#include "yprotocoll/YCommands.h"
#include "yprotocoll/link/YMessageController.h"

#include <spdlog/spdlog.h>

#include <utility>

/// One send, and what its answers tell.
struct Transfers::Sending {
    AQDataSource::Contents document;
    AQDataSource::Contents contents; ///< the document in today's light
    DeviceImage image;
    DeviceImage stored; ///< what no answer tells is taken to be as it was sent
    bool isAllTold = true;

    void noteAnswer(std::size_t index, const YAnswer& answer) {
        if (const auto* taskMode = dynamic_cast<const AnswerTaskMode*>(&answer))
            stored.taskMode = {taskMode->minutes, taskMode->seconds, taskMode->levels[0].raw,
                               taskMode->levels[1].raw};
        else if (const auto* sequence = dynamic_cast<const AnswerSequenceData*>(&answer);
                 sequence && tellsOf(index, *sequence))
            stored.channels[index] = sequence->seqData;
        else
            isAllTold = false;
    }

private:
    /// Whether it tells what is stored in the channel.
    bool tellsOf(std::size_t index, const AnswerSequenceData& answer) const {
        if (index >= image.channels.size())
            return false;
        const auto& entries = answer.seqData;
        // Bytes are missing or too many.
        constexpr std::size_t entrySize = 3;
        if (answer.data().size() != 1 + entrySize * entries.size())
            return false;
        if (entries == image.channels[index])
            return true;
        // Of a controller that names no channels, it may be the late answer about the one before.
        const bool isLate =
            index > 0 && answer.channel != index && entries == image.channels[index - 1];
        // Without entries it may be the mere receipt of a controller that repeats none.
        return !entries.empty() && !isLate;
    }
};

Transfers::Transfers(AQDataSource& data, YMessageController& controller, LampContents& lamp,
                     QObject* parent)
    : QObject(parent), m_data(data), m_controller(controller), m_lamp(lamp) {}

void Transfers::begin(Kind kind, std::function<void()> transfer) {
    m_waiting.push_back({kind, std::move(transfer)});
    beginWaiting();
}

// Each command of a reading is queued when the one before it was answered, those of a send all at
// once: begun meanwhile, it would change the program between two parts that are read of it.
void Transfers::beginWaiting() {
    while (!m_waiting.empty() &&
           (m_waiting.front().kind == Kind::Reading || m_readingsOnLine == 0)) {
        const auto transfer = std::move(m_waiting.front().begin);
        m_waiting.pop_front();
        transfer();
    }
}

void Transfers::beginReading(const std::vector<YCommand>& commands, const QString& activity,
                             const std::function<void(const Answers&)>& done) {
    begin(Kind::Reading, [this, commands, activity, done] {
        ++m_readingsOnLine;
        m_progress.begin(activity, static_cast<int>(commands.size()));
        m_controller.sendCommands(
            commands,
            [this, done, links = m_links](const Answers& answers) {
                if (links != m_links)
                    return;
                --m_readingsOnLine;
                done(answers);
                beginWaiting();
            },
            [this](const YAnswer&) { m_progress.step(); });
    });
}

void Transfers::load() {
    const auto& device = m_controller.device();
    const TransferResult check = DeviceProgramImage::checkLoad(device);
    if (!check.isOk()) {
        Q_EMIT loaded(check, false);
        return;
    }
    if (m_loads++ == 0)
        m_undisturbed = m_data.contents();
    beginReading(DeviceProgramImage::loadCommands(*device), tr("Loading %1 of %2"),
                 [this, loadedFrom = *device, droppings = m_droppings](const Answers& answers) {
                     if (droppings == m_droppings && --m_loads == 0)
                         onLoaded(programOf(answers, loadedFrom));
                 });
}

bool Transfers::endsAcclimation() const {
    return m_data.acclimation() && !m_data.acclimation()->isOverOn(m_data.today());
}

std::optional<StoredProgram> Transfers::programOf(const Answers& answers,
                                                  const DeviceInfo& device) {
    const auto image = DeviceProgramImage::imageOf(answers, device);
    if (!image)
        return {};
    return StoredProgram{*image, DeviceProgramImage::contentsOf(*image)};
}

void Transfers::onLoaded(const std::optional<StoredProgram>& program) {
    m_loaded = program.value_or(StoredProgram());
    // What makes no document is no whole load.
    if (!m_loaded.contents)
        m_lamp.noteUnreadable();
    Q_EMIT arrived();
    // The dirty mark does not tell: it may stand from before, and have been asked about.
    if (m_data.contents() == m_undisturbed) {
        finishLoad(News::Yes);
        return;
    }
    if (m_loaded.contents)
        m_lamp.noteRead(m_loaded);
    Q_EMIT disturbed();
}

void Transfers::replaceDocument() {
    finishLoad(News::No);
}

void Transfers::finishLoad(News news) {
    const StoredProgram program = std::exchange(m_loaded, {});
    if (!program.contents) {
        Q_EMIT loaded(TransferResult::errorInvalidData{}, false);
        return;
    }
    const auto before = m_data.contents();
    replaceBy(program);
    // Not sooner: nobody is to be told of a difference that ends in the next moment.
    if (news == News::Yes)
        m_lamp.noteRead(program);
    m_data.noteStep(tr("Load from Device"));
    m_data.markLoaded();
    m_data.announceReplacement(this);
    Q_EMIT loaded(TransferResult::ok{}, m_data.contents() != before);
}

void Transfers::take(const StoredProgram& program, const QString& stepName) {
    replaceBy(program);
    if (m_data.isDirty()) {
        // Nobody has been asked about unsaved changes: they can still be undone, a quit asks, and
        // at no moment is the document clean, which would end their recovery copy.
        m_data.history().noteStep(stepName);
    } else {
        m_data.noteStep(stepName);
        m_data.markLoaded();
    }
    m_data.announceReplacement(this);
}

void Transfers::replaceBy(const StoredProgram& program) {
    m_data.sequence().replacePoints(program.contents->points);
    m_data.setTaskLight(program.contents->taskLight);
    // The program is that of one day now.
    m_data.setAcclimation(std::nullopt);
}

void Transfers::read(Read what, const ReadDone& done) {
    const auto& device = m_controller.device();
    const TransferResult check = DeviceProgramImage::checkLoad(device);
    if (!check.isOk()) {
        done(check, {});
        return;
    }
    auto commands = DeviceProgramImage::loadCommands(*device);
    if (what == Read::AndMode)
        commands.push_back(CmdGetDeviceMode());
    setReadings(m_readings + 1);
    beginReading(commands, tr("Reading %1 of %2"),
                 [this, what, done, readFrom = *device, droppings = m_droppings](Answers answers) {
                     if (droppings != m_droppings)
                         return;
                     if (what == Read::AndMode) {
                         if (const auto* mode =
                                 dynamic_cast<const AnswerDeviceMode*>(answers.back().get()))
                             m_lamp.noteMode(mode->isProgramMode());
                         answers.pop_back();
                     }
                     const auto program = programOf(answers, readFrom);
                     if (program)
                         m_lamp.noteRead(*program);
                     else
                         m_lamp.noteUnreadable();
                     deliver(droppings, [this, done, program] {
                         setReadings(m_readings - 1);
                         const bool isOk = program && program->contents;
                         done(isOk ? TransferResult(TransferResult::ok{})
                                   : TransferResult::errorInvalidData{},
                              program.value_or(StoredProgram()));
                     });
                 });
}

void Transfers::deliver(int droppings, const std::function<void()>& result) {
    if (droppings != m_droppings)
        return;
    const ModalPause& pause = m_controller.modalPause();
    if (!pause.isActive()) {
        result();
        return;
    }
    // Windows may follow one another, and queued this comes behind the next.
    connect(
        &pause, &ModalPause::ended, this, [this, droppings, result] { deliver(droppings, result); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

std::string Transfers::portPath() const {
    return m_controller.portPath();
}

void Transfers::send() {
    const auto& device = m_controller.device();
    const TransferResult check = DeviceProgramImage::checkSend(m_data, device);
    if (!check.isOk()) {
        Q_EMIT sent(check, {});
        return;
    }
    const auto sending = std::make_shared<Sending>();
    sending->document = m_data.contents();
    sending->contents = m_data.contentsToday();
    sending->image = DeviceProgramImage::imageOf(sending->contents, *device->channelCount);
    sending->stored = sending->image;
    const auto commands = DeviceProgramImage::sendCommands(sending->image, *device);
    begin(Kind::Send, [this, sending, commands] { beginSend(sending, commands); });
}

void Transfers::beginSend(const std::shared_ptr<Sending>& sending,
                          const std::vector<YCommand>& commands) {
    ++m_sends;
    m_sentLast = sending->document;
    m_data.markSent(sending->contents);
    m_progress.begin(tr("Sending %1 of %2"), static_cast<int>(commands.size()));
    for (std::size_t index = 0; index < commands.size(); ++index)
        m_controller.send(commands[index], [this, sending, index](const YAnswer& answer) {
            onSendAnswer(*sending, index, answer);
        });
}

void Transfers::onSendAnswer(Sending& sending, std::size_t index, const YAnswer& answer) {
    m_progress.step();
    sending.noteAnswer(index, answer);
    // The controller answers in order, so the last answer, the task mode's, stands for all.
    if (index == sending.image.channels.size())
        onSent(sending);
}

void Transfers::onSent(const Sending& sending) {
    --m_sends;
    const bool isOther = sending.stored != sending.image;
    if (sending.isAllTold || isOther)
        m_lamp.noteStored(sending.stored);
    else
        m_lamp.noteStoredUntold();
    QString difference;
    if (isOther) {
        const ProgramComparison comparison(sending.contents, sending.image, sending.stored);
        difference = comparison.differences().value(0);
        SPDLOG_ERROR(fmt::format("the controller stored something else: {} differences",
                                 comparison.differences().size()));
    }
    Q_EMIT sent(TransferResult::ok{}, difference);
    if (const auto done = isSending() ? nullptr : std::exchange(m_afterSends, nullptr))
        done();
}

void Transfers::dropLoads() {
    ++m_droppings;
    m_loads = 0;
    std::erase_if(m_waiting, [](const Waiting& each) { return each.kind == Kind::Reading; });
    setReadings(0);
}

void Transfers::setReadings(int count) {
    m_readings = count;
    Q_EMIT readingChanged(isReading());
}

void Transfers::afterSends(std::function<void()> done) {
    if (isSending())
        m_afterSends = std::move(done);
    else
        done();
}

void Transfers::linkWasLost() {
    dropLoads();
    ++m_links;
    m_readingsOnLine = 0;
    m_waiting.clear();
    m_progress.stop();
    if (std::exchange(m_sends, 0) > 0)
        m_lamp.noteBrokenSend(m_sentLast);
    m_afterSends = nullptr;
}

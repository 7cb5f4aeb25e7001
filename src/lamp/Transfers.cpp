#include "lamp/Transfers.h"

#include "data/DeviceProgramImage.h"
#include "yprotocoll/link/YMessageController.h"

#include <utility>

Transfers::Transfers(AQDataSource& data, YMessageController& controller, QObject* parent)
    : QObject(parent), m_data(data), m_controller(controller) {}

void Transfers::load() {
    const auto& device = m_controller.device();
    const TransferResult check = DeviceProgramImage::checkLoad(device);
    if (!check.isOk()) {
        Q_EMIT loaded(check, false);
        return;
    }
    if (m_loads++ == 0)
        m_undisturbed = m_data.contents();
    m_controller.sendCommands(
        DeviceProgramImage::loadCommands(*device),
        [this, loadedFrom = *device, droppings = m_droppings](const Answers& answers) {
            if (droppings == m_droppings)
                onAnswers(answers, loadedFrom);
        });
}

void Transfers::onAnswers(const Answers& answers, const DeviceInfo& device) {
    if (--m_loads > 0)
        return;
    m_answers = answers;
    m_device = device;
    Q_EMIT arrived();
    // The dirty mark does not tell: it may stand from before, and have been asked about.
    if (m_data.contents() == m_undisturbed)
        replaceDocument();
    else
        Q_EMIT disturbed();
}

void Transfers::replaceDocument() {
    const auto before = m_data.contents();
    const TransferResult result =
        DeviceProgramImage::apply(std::exchange(m_answers, {}), m_device, m_data);
    if (result.isOk()) {
        m_data.noteStep(QStringLiteral("Load from Device"));
        m_data.markLoaded();
        m_data.announceReplacement(this);
    }
    Q_EMIT loaded(result, m_data.contents() != before);
}

void Transfers::send() {
    const auto& device = m_controller.device();
    const TransferResult check = DeviceProgramImage::checkSend(m_data, device);
    if (!check.isOk()) {
        Q_EMIT sent(check);
        return;
    }
    auto commands = DeviceProgramImage::sendCommands(m_data, *device);
    // The controller answers in order, so the last answer, the task mode's, stands for all.
    YCommand last = std::move(commands.back());
    commands.pop_back();
    for (YCommand& command : commands)
        m_controller.send(std::move(command));
    ++m_sends;
    m_controller.send(std::move(last), [this](const YAnswer&) { onSent(); });
}

void Transfers::onSent() {
    --m_sends;
    Q_EMIT sent(TransferResult::ok{});
    if (const auto done = isSending() ? nullptr : std::exchange(m_afterSends, nullptr))
        done();
}

void Transfers::dropLoads() {
    ++m_droppings;
    m_loads = 0;
}

void Transfers::afterSends(std::function<void()> done) {
    if (isSending())
        m_afterSends = std::move(done);
    else
        done();
}

void Transfers::linkWasLost() {
    dropLoads();
    m_sends = 0;
    m_afterSends = nullptr;
}

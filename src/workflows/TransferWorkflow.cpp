#include "workflows/TransferWorkflow.h"

#include "data/DeviceProgramImage.h"
#include "data/TransferResult.h"
#include "workflows/DocumentCommands.h"
#include "workflows/Prompts.h"
#include "yprotocoll/link/YMessageController.h"

TransferWorkflow::TransferWorkflow(AQDataSource& data, YMessageController& controller,
                                   DocumentCommands& documents, Prompts& prompts, QObject* parent)
    : QObject(parent), m_data(data), m_controller(controller), m_documents(documents),
      m_prompts(prompts) {}

void TransferWorkflow::onBttnLoadFromDevice() {
    m_documents.askAboutChanges(QStringLiteral("Save changes before loading settings"),
                                [this] { load(); });
}

void TransferWorkflow::load() {
    const auto& device = m_controller.device();
    const TransferResult check = DeviceProgramImage::checkLoad(device);
    if (!check.isOk()) {
        loadResult(check);
        return;
    }
    m_controller.sendCommands(
        DeviceProgramImage::loadCommands(*device),
        [this, loadedFrom = *device, before = m_data.contents()](const Answers& answers) {
            onLoaded(answers, loadedFrom, before);
        });
}

void TransferWorkflow::onLoaded(const Answers& answers, const DeviceInfo& device,
                                const AQDataSource::Contents& before) {
    // What the person did while the answers were on their way is not thrown away unasked. The dirty
    // mark does not tell: it may stand from before, and have been asked about.
    if (m_data.contents() != before)
        m_documents.askAboutChanges(QStringLiteral("Save changes before loading settings"),
                                    [this, answers, device] { apply(answers, device); });
    else
        apply(answers, device);
}

void TransferWorkflow::apply(const Answers& answers, const DeviceInfo& device) {
    const auto before = m_data.contents();
    const TransferResult result = DeviceProgramImage::apply(answers, device, m_data);
    // What came from the controller stands in no file yet.
    if (result.isOk() && m_data.contents() != before)
        m_data.setIsDirty(true);
    loadResult(result);
}

void TransferWorkflow::loadResult(const TransferResult& result) {
    if (result.isOk()) {
        m_data.sequence().notifySelectionChange(-1, this);
        m_data.sequence().notifyDataChange(this, false);
        Q_EMIT m_data.notifications().dataLoaded(this);
        return;
    }
    m_prompts.alert(QStringLiteral("Could not load settings from device!"),
                    QString::fromStdString(result.description()), Prompts::Severity::Critical);
}

void TransferWorkflow::onBttnSaveToDevice() {
    m_prompts.confirm(QStringLiteral("The device settings will be overwritten!"),
                      QStringLiteral("Are you sure you want to continue?"), Prompts::Answer::Yes,
                      [this](bool yes) {
                          if (yes)
                              send();
                      });
}

void TransferWorkflow::send() {
    const auto& device = m_controller.device();
    const TransferResult check = DeviceProgramImage::checkSend(m_data, device);
    if (!check.isOk()) {
        sendResult(check);
        return;
    }
    auto commands = DeviceProgramImage::sendCommands(m_data, *device);
    // The controller answers in order, so the last answer, the task mode's, stands for all.
    YCommand last = std::move(commands.back());
    commands.pop_back();
    for (YCommand& command : commands)
        m_controller.send(std::move(command));
    m_controller.send(std::move(last),
                      [this](const YAnswer&) { sendResult(TransferResult::ok{}); });
}

void TransferWorkflow::sendResult(const TransferResult& result) {
    if (result.isOk())
        m_prompts.alert(QStringLiteral("Upload was successfull!"),
                        QStringLiteral("Your settings have been applied to the device."),
                        Prompts::Severity::Information);
    else
        m_prompts.alert(QStringLiteral("Could not send settings to device!"),
                        QString::fromStdString(result.description()), Prompts::Severity::Critical);
}

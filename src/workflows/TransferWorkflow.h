#pragma once

#include "data/AQDataSource.h"

#include <QObject>

#include <memory>
#include <vector>

class DocumentCommands;
class Prompts;
class TransferResult;
class YAnswer;
class YMessageController;
struct DeviceInfo;

/// Loading the light program and the task light from the controller, and sending them to it.
///
/// A link that fails on the way shows no result here: the connection workflow alone reports it.
class TransferWorkflow : public QObject {
    Q_OBJECT

public:
    /// All must outlive this.
    TransferWorkflow(AQDataSource& data, YMessageController& controller,
                     DocumentCommands& documents, Prompts& prompts, QObject* parent = nullptr);

    void onBttnLoadFromDevice();
    void onBttnSaveToDevice();

private:
    using Answers = std::vector<std::shared_ptr<const YAnswer>>;

    void load();
    /// `before` is what the document held when the load began.
    void onLoaded(const Answers& answers, const DeviceInfo& device,
                  const AQDataSource::Contents& before);
    void apply(const Answers& answers, const DeviceInfo& device);
    void send();
    void loadResult(const TransferResult& result);
    void sendResult(const TransferResult& result);

    AQDataSource& m_data;
    YMessageController& m_controller;
    DocumentCommands& m_documents;
    Prompts& m_prompts;
};

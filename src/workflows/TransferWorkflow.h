#pragma once

#include <QObject>

class DocumentCommands;
class LampContents;
class Prompts;
class TransferResult;
class Transfers;

/// The two transfers as the person sees them: the questions before them and the alerts after them.
///
/// A link that fails on the way shows no result here: the connection workflow alone reports it.
class TransferWorkflow : public QObject {
    Q_OBJECT

public:
    /// All must outlive this.
    TransferWorkflow(Transfers& transfers, const LampContents& lamp, DocumentCommands& documents,
                     Prompts& prompts, QObject* parent = nullptr);

    void onBttnLoadFromDevice();
    void onBttnSaveToDevice();
    /// For the end of the program: a send that succeeds is not told any more.
    void setQuiet(bool isQuiet) { m_isQuiet = isQuiet; }

private:
    void onDisturbed();
    void loadResult(const TransferResult& result, bool isOther);
    void sendResult(const TransferResult& result, const QString& difference);

    Transfers& m_transfers;
    const LampContents& m_lamp;
    DocumentCommands& m_documents;
    Prompts& m_prompts;
    bool m_isQuiet = false;
};

#pragma once

#include <QObject>

#include <functional>

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
    /// What is told of a send that is complete.
    enum class Tell {
        Everything,
        WrongStoring, ///< alone, when the person has asked for the end of the program
        Nothing       ///< nobody is there to read it
    };
    void setTelling(Tell what) { m_telling = what; }

private:
    void onDisturbed();
    /// About unsaved changes, and about an acclimation that would end.
    void askBeforeLoad(const std::function<void()>& goOn);
    void loadResult(const TransferResult& result, bool isOther);
    void sendResult(const TransferResult& result, const QString& difference);

    Transfers& m_transfers;
    const LampContents& m_lamp;
    DocumentCommands& m_documents;
    Prompts& m_prompts;
    Tell m_telling = Tell::Everything;
};

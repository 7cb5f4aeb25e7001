#pragma once

#include "data/RecoveryCopy.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>
#include <vector>

class AQDataSource;
class DocumentCommands;
class Prompts;

/// Nothing is lost when the program or the computer dies: while there are unsaved changes, a copy
/// holds what the document held at most two seconds ago, and the next start offers it.
///
/// The copy goes when the changes are saved, undone or given up by an answer. A copy that cannot be
/// written is told once and tried again with the next change.
class Recovery : public QObject {
    Q_OBJECT

public:
    /// From a change to the copy that holds it, with time for writing within the two seconds.
    static constexpr std::chrono::milliseconds delay{1800};

    /// `folder` is where the copies are; with an empty one there are none. The others must outlive
    /// this.
    Recovery(AQDataSource& data, DocumentCommands& documents, Prompts& prompts,
             const QString& folder, QObject* parent = nullptr);

    /// Asks about the copies that other runs have left, one after another, the newest first; with a
    /// `file`, only about copies that belong to it. What is recovered is opened here while nothing
    /// else is open here, else by a process of its own, which asks nothing.
    void offerCopies(const QString& file);

    /// The program ends without asking: the copy is written at once, and stays.
    void keepForNextStart();
    /// The changes are given up.
    void giveUp();

    /// For `recoversElsewhere`.
    static void startProcessFor(const QString& copy, Prompts& prompts);

Q_SIGNALS:
    /// The copy of this name is free to be opened by `startProcessFor`.
    void recoversElsewhere(const QString& copy);

private:
    void onChanged();
    void write(bool isEnding);
    void askAboutNext();
    void recover(std::unique_ptr<RecoveryCopy> copy);

    AQDataSource& m_data;
    DocumentCommands& m_documents;
    Prompts& m_prompts;
    QString m_folder;
    QTimer m_timer; ///< runs while there is a change that the copy does not hold
    std::unique_ptr<RecoveryCopy> m_copy; ///< null until there is something to write
    std::vector<std::unique_ptr<RecoveryCopy>> m_offered; ///< the next one first
    bool m_wasFaultTold = false;
};

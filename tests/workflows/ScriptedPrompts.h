#pragma once

#include "workflows/Prompts.h"

#include <QStringList>

#include <deque>

/// Answers the program's questions from lists and writes down what was asked and told.
///
/// Answers at once; a question without an answer left is treated like "Cancel".
class ScriptedPrompts : public Prompts {
public:
    std::deque<SaveAnswer> saveAnswers;
    std::deque<bool> confirmations;
    std::deque<std::optional<QString>> filesToOpen;
    std::deque<std::optional<QString>> placesToSave;
    /// "message|informative text", in order.
    QStringList asked;
    QStringList told;

    void askToSave(const QString& message, const QString& informative,
                   std::function<void(SaveAnswer)> done) override {
        asked << message + u'|' + informative;
        done(take(saveAnswers, SaveAnswer::Cancel));
    }
    void confirm(const QString& message, const QString& informative, Answer /*usual*/,
                 std::function<void(bool)> done) override {
        asked << message + u'|' + informative;
        done(take(confirmations, false));
    }
    void offer(const QString& message, const QString& informative, const QString& button,
               std::function<void(bool)> done) override {
        asked << message + u'|' + informative + u'|' + button;
        done(take(confirmations, false));
    }
    void confirmWithNote(const QString& message, const QString& informative, const QString& note,
                         Answer usual, std::function<void(bool)> done) override {
        confirm(message, informative + u'|' + note, usual, std::move(done));
    }
    /// Without an answer left it stays open.
    void askToRecover(const QString& message, const QString& informative,
                      std::function<void(bool)> done) override {
        asked << message + u'|' + informative;
        if (!confirmations.empty())
            done(take(confirmations, false));
    }
    void alert(const QString& message, const QString& informative, Severity /*severity*/) override {
        told << message + u'|' + informative;
    }
    void askForFileToOpen(std::function<void(std::optional<QString>)> done) override {
        asked << QStringLiteral("open");
        done(take(filesToOpen, std::optional<QString>{}));
    }
    void askWhereToSave(const QString& suggested,
                        std::function<void(std::optional<QString>)> done) override {
        asked << QStringLiteral("save as ") + suggested;
        done(take(placesToSave, std::optional<QString>{}));
    }
    /// Takes the first type.
    void askWhereToExport(
        const QString& suggested, const std::vector<FileType>& types,
        std::function<void(std::optional<QString>, const QString& ending)> done) override {
        asked << QStringLiteral("export as ") + suggested;
        done(take(placesToSave, std::optional<QString>{}), types.front().ending);
    }

private:
    template <class T>
    T take(std::deque<T>& answers, T otherwise) {
        if (answers.empty())
            return otherwise;
        T answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <vector>

/// Everything the program asks or tells in a dialog. Behind an interface so that the whole program
/// can run inside a test that answers from a list.
///
/// No call blocks: the answer comes later through `done`, from the event loop, exactly once unless
/// the program ends first. Dialogs are modal for the whole program, but for one.
class Prompts {
public:
    enum class SaveAnswer { Save, Discard, Cancel };
    enum class Answer { Yes, No };
    enum class Severity { Information, Critical };

    /// "png", and what people call it.
    struct FileType {
        QString ending;
        QString name;
    };

    virtual ~Prompts() = default;

    /// "Yes" (save first), "No" (go on without saving), "Cancel".
    virtual void askToSave(const QString& message, const QString& informative,
                           std::function<void(SaveAnswer)> done) = 0;
    /// Yes or no, `usual` being what Enter answers; `done` gets true for yes only.
    virtual void confirm(const QString& message, const QString& informative, Answer usual,
                         std::function<void(bool)> done) = 0;
    /// `button` beside "Cancel", which is what Enter answers; `done` gets true for the button only.
    virtual void offer(const QString& message, const QString& informative, const QString& button,
                       std::function<void(bool)> done) = 0;
    /// As `confirm`, with one more line below the two texts.
    virtual void confirmWithNote(const QString& message, const QString& informative,
                                 const QString& note, Answer usual,
                                 std::function<void(bool)> done) = 0;
    /// "Recover", which is what Enter answers, and "Discard"; `done` gets true for Recover. The
    /// only question that is not modal: work and the connection do not wait for it.
    virtual void askToRecover(const QString& message, const QString& informative,
                              std::function<void(bool)> done) = 0;
    /// One "OK" button. While one is shown, the next ones wait until it is closed.
    virtual void alert(const QString& message, const QString& informative, Severity severity) = 0;
    /// Asks for an existing settings file; none when cancelled.
    virtual void askForFileToOpen(std::function<void(std::optional<QString>)> done) = 0;
    /// Asks where to save; `suggested` presets folder and name. None when cancelled. The name is
    /// as the person typed it, and replacing a file of that very name has been agreed to.
    virtual void askWhereToSave(const QString& suggested,
                                std::function<void(std::optional<QString>)> done) = 0;
    /// As `askWhereToSave`, for a file of one of `types`; `suggested` has no ending. `done` gets
    /// the ending of the type that was chosen besides, which the name need not have.
    virtual void
    askWhereToExport(const QString& suggested, const std::vector<FileType>& types,
                     std::function<void(std::optional<QString>, const QString& ending)> done) = 0;
};

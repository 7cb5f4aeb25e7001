#pragma once

#include "workflows/Prompts.h"

#include <QCoreApplication>
#include <QPointer>

class QMessageBox;
class QWidget;

/// The real dialogs, shown over the main window.
class DialogPrompts : public Prompts {
public:
    /// The dialogs belong to `parent`; null until the window exists.
    void setParent(QWidget* parent) { m_parent = parent; }

    void askToSave(const QString& message, const QString& informative,
                   std::function<void(SaveAnswer)> done) override;
    void confirm(const QString& message, const QString& informative, Answer usual,
                 std::function<void(bool)> done) override;
    void offer(const QString& message, const QString& informative, const QString& button,
               std::function<void(bool)> done) override;
    void confirmWithNote(const QString& message, const QString& informative, const QString& note,
                         Answer usual, std::function<void(bool)> done) override;
    void askToRecover(const QString& message, const QString& informative,
                      std::function<void(bool)> done) override;
    void alert(const QString& message, const QString& informative, Severity severity) override;
    void askForFileToOpen(std::function<void(std::optional<QString>)> done) override;
    void askWhereToSave(const QString& suggested,
                        std::function<void(std::optional<QString>)> done) override;
    void askWhereToExport(
        const QString& suggested, const std::vector<FileType>& types,
        std::function<void(std::optional<QString>, const QString& ending)> done) override;

private:
    QMessageBox* makeBox(const QString& message, const QString& informative) const;
    QMessageBox* makeQuestion(const QString& message, const QString& informative, Answer usual,
                              std::function<void(bool)> done) const;

    QPointer<QWidget> m_parent;
    QPointer<QMessageBox> m_lastAlert; ///< shown, or waiting for the one before it

    Q_DECLARE_TR_FUNCTIONS(DialogPrompts)
};

#include "workflows/DialogPrompts.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace {

QString fileTypeFilter() {
    return QStringLiteral("Aquelon light programs (*.sq)");
}

/// Shows a file dialog and hands on the one chosen file, or none.
void runFileDialog(QFileDialog* dialog, std::function<void(std::optional<QString>)> done) {
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->setNameFilter(fileTypeFilter());
    QObject::connect(dialog, &QDialog::finished, dialog, [dialog, done](int result) {
        const QStringList files = dialog->selectedFiles();
        if (result == QDialog::Accepted && files.size() == 1)
            done(files.first());
        else
            done(std::nullopt);
    });
    dialog->show();
}

} // namespace

QMessageBox* DialogPrompts::makeBox(const QString& message, const QString& informative) const {
    auto* box = new QMessageBox(m_parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::ApplicationModal);
    box->setWindowTitle(QStringLiteral("Aquelon"));
    // Texts hold file names and the system's words, which must not be taken for markup.
    box->setTextFormat(Qt::PlainText);
    box->setText(message);
    box->setInformativeText(informative);
    return box;
}

void DialogPrompts::askToSave(const QString& message, const QString& informative,
                              std::function<void(SaveAnswer)> done) {
    QMessageBox* box = makeBox(message, informative);
    box->setIcon(QMessageBox::Warning);
    // ActionRole keeps the three buttons in the order in which they are added, on every desktop.
    auto* yes = box->addButton(QStringLiteral("&Yes"), QMessageBox::ActionRole);
    auto* no = box->addButton(QStringLiteral("&No"), QMessageBox::ActionRole);
    auto* cancel = box->addButton(QStringLiteral("&Cancel"), QMessageBox::ActionRole);
    box->setDefaultButton(yes);
    box->setEscapeButton(cancel);
    QObject::connect(box, &QDialog::finished, box, [box, yes, no, done] {
        const auto* clicked = box->clickedButton();
        done(clicked == yes  ? SaveAnswer::Save
             : clicked == no ? SaveAnswer::Discard
                             : SaveAnswer::Cancel);
    });
    box->show();
}

void DialogPrompts::confirm(const QString& message, const QString& informative, Answer usual,
                            std::function<void(bool)> done) {
    QMessageBox* box = makeBox(message, informative);
    box->setIcon(QMessageBox::Question);
    box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(usual == Answer::Yes ? QMessageBox::Yes : QMessageBox::No);
    box->setEscapeButton(QMessageBox::No);
    QObject::connect(box, &QDialog::finished, box,
                     [done](int result) { done(result == QMessageBox::Yes); });
    box->show();
}

void DialogPrompts::offer(const QString& message, const QString& informative, const QString& button,
                          std::function<void(bool)> done) {
    QMessageBox* box = makeBox(message, informative);
    box->setIcon(QMessageBox::Question);
    const auto* offered = box->addButton(button, QMessageBox::AcceptRole);
    auto* cancel = box->addButton(QStringLiteral("&Cancel"), QMessageBox::RejectRole);
    box->setDefaultButton(cancel);
    box->setEscapeButton(cancel);
    QObject::connect(box, &QDialog::finished, box,
                     [box, offered, done] { done(box->clickedButton() == offered); });
    box->show();
}

void DialogPrompts::alert(const QString& message, const QString& informative, Severity severity) {
    QMessageBox* box = makeBox(message, informative);
    box->setIcon(severity == Severity::Critical ? QMessageBox::Critical : QMessageBox::Information);
    box->setStandardButtons(QMessageBox::Ok);
    box->setEscapeButton(QMessageBox::Ok);
    box->show();
}

void DialogPrompts::askForFileToOpen(std::function<void(std::optional<QString>)> done) {
    auto* dialog = new QFileDialog(m_parent, QStringLiteral("Open Light Program"));
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setDefaultSuffix(QStringLiteral("sq"));
    runFileDialog(dialog, std::move(done));
}

void DialogPrompts::askWhereToSave(const QString& suggested,
                                   std::function<void(std::optional<QString>)> done) {
    auto* dialog = new QFileDialog(m_parent, QStringLiteral("Save Light Program"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    const QFileInfo file(suggested);
    if (file.isAbsolute())
        dialog->setDirectory(file.absolutePath());
    dialog->selectFile(file.fileName());
    runFileDialog(dialog, std::move(done));
}

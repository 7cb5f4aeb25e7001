#include "workflows/DialogPrompts.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace {

QString fileTypeFilter() {
    return DialogPrompts::tr("Aquelon light programs (*.sq)");
}

/// Shows a file dialog and hands on the one chosen file, or none.
void runFileDialog(QFileDialog* dialog, std::function<void(std::optional<QString>)> done) {
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::ApplicationModal);
    QObject::connect(dialog, &QDialog::finished, dialog,
                     [dialog, done = std::move(done)](int result) {
                         const QStringList files = dialog->selectedFiles();
                         if (result == QDialog::Accepted && files.size() == 1)
                             done(files.first());
                         else
                             done(std::nullopt);
                     });
    dialog->show();
}

/// Shows the folder and the name of `suggested`.
void presetFile(QFileDialog& dialog, const QString& suggested) {
    const QFileInfo file(suggested);
    if (file.isAbsolute())
        dialog.setDirectory(file.absolutePath());
    dialog.selectFile(file.fileName());
}

/// Puts one more text between those of the box and its buttons.
void addLine(QMessageBox& box, const QString& text) {
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    auto* buttons = box.findChild<QDialogButtonBox*>();
    const auto* informative = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
    if (!grid || !buttons || !informative)
        return;
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(grid->indexOf(informative), &row, &column, &rows, &columns);
    auto* line = new QLabel(text, &box);
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    line->setContentsMargins(informative->contentsMargins());
    grid->removeWidget(buttons);
    grid->addWidget(line, row + 1, column);
    grid->addWidget(buttons, row + 2, 0, 1, grid->columnCount());
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
    auto* yes = box->addButton(DialogPrompts::tr("&Yes"), QMessageBox::ActionRole);
    auto* no = box->addButton(DialogPrompts::tr("&No"), QMessageBox::ActionRole);
    auto* cancel = box->addButton(DialogPrompts::tr("&Cancel"), QMessageBox::ActionRole);
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

QMessageBox* DialogPrompts::makeQuestion(const QString& message, const QString& informative,
                                         Answer usual, std::function<void(bool)> done) const {
    QMessageBox* box = makeBox(message, informative);
    box->setIcon(QMessageBox::Question);
    box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(usual == Answer::Yes ? QMessageBox::Yes : QMessageBox::No);
    box->setEscapeButton(QMessageBox::No);
    QObject::connect(box, &QDialog::finished, box,
                     [done = std::move(done)](int result) { done(result == QMessageBox::Yes); });
    return box;
}

void DialogPrompts::confirm(const QString& message, const QString& informative, Answer usual,
                            std::function<void(bool)> done) {
    makeQuestion(message, informative, usual, std::move(done))->show();
}

void DialogPrompts::confirmWithNote(const QString& message, const QString& informative,
                                    const QString& note, Answer usual,
                                    std::function<void(bool)> done) {
    QMessageBox* box = makeQuestion(message, informative, usual, std::move(done));
    addLine(*box, note);
    box->show();
}

void DialogPrompts::offer(const QString& message, const QString& informative, const QString& button,
                          std::function<void(bool)> done) {
    QMessageBox* box = makeBox(message, informative);
    box->setIcon(QMessageBox::Question);
    const auto* offered = box->addButton(button, QMessageBox::AcceptRole);
    auto* cancel = box->addButton(DialogPrompts::tr("&Cancel"), QMessageBox::RejectRole);
    box->setDefaultButton(cancel);
    box->setEscapeButton(cancel);
    QObject::connect(box, &QDialog::finished, box,
                     [box, offered, done] { done(box->clickedButton() == offered); });
    box->show();
}

void DialogPrompts::askToRecover(const QString& message, const QString& informative,
                                 std::function<void(bool)> done) {
    QMessageBox* box = makeBox(message, informative);
    box->setWindowModality(Qt::NonModal);
    box->setIcon(QMessageBox::Question);
    auto* recover = box->addButton(DialogPrompts::tr("&Recover"), QMessageBox::AcceptRole);
    box->addButton(DialogPrompts::tr("&Discard"), QMessageBox::DestructiveRole);
    // Neither button is what Escape or closing could mean.
    box->setDefaultButton(recover);
    QObject::connect(box, &QDialog::finished, box,
                     [box, recover, done] { done(box->clickedButton() == recover); });
    box->show();
}

void DialogPrompts::alert(const QString& message, const QString& informative, Severity severity) {
    QMessageBox* box = makeBox(message, informative);
    box->setIcon(severity == Severity::Critical ? QMessageBox::Critical : QMessageBox::Information);
    box->setStandardButtons(QMessageBox::Ok);
    box->setEscapeButton(QMessageBox::Ok);
    if (m_lastAlert)
        QObject::connect(m_lastAlert, &QDialog::finished, box, &QWidget::show);
    else
        box->show();
    m_lastAlert = box;
    QObject::connect(box, &QDialog::finished, box, [this, box] {
        if (m_lastAlert == box)
            m_lastAlert = nullptr;
    });
}

void DialogPrompts::askForFileToOpen(std::function<void(std::optional<QString>)> done) {
    auto* dialog = new QFileDialog(m_parent, DialogPrompts::tr("Open Light Program"));
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilter(fileTypeFilter());
    dialog->setDefaultSuffix(QStringLiteral("sq"));
    runFileDialog(dialog, std::move(done));
}

void DialogPrompts::askWhereToSave(const QString& suggested,
                                   std::function<void(std::optional<QString>)> done) {
    auto* dialog = new QFileDialog(m_parent, DialogPrompts::tr("Save Light Program"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setNameFilter(fileTypeFilter());
    presetFile(*dialog, suggested);
    runFileDialog(dialog, std::move(done));
}

void DialogPrompts::askWhereToExport(
    const QString& suggested, const std::vector<FileType>& types,
    std::function<void(std::optional<QString>, const QString& ending)> done) {
    auto* dialog = new QFileDialog(m_parent, tr("Export Light Program"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    QStringList filters;
    QStringList endings;
    for (const FileType& type : types) {
        filters += QStringLiteral("%1 (*.%2)").arg(type.name, type.ending);
        endings += type.ending;
    }
    dialog->setNameFilters(filters);
    presetFile(*dialog, suggested + u'.' + endings.front());
    const auto chosen = [dialog, filters, endings] {
        return endings.value(filters.indexOf(dialog->selectedNameFilter()), endings.front());
    };
    // The name follows the type, unless it has an ending of its own.
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, [dialog, endings, chosen] {
        const QFileInfo file(dialog->selectedFiles().value(0));
        if (endings.contains(file.suffix()))
            dialog->selectFile(file.completeBaseName() + u'.' + chosen());
    });
    runFileDialog(dialog, [chosen, done = std::move(done)](const std::optional<QString>& path) {
        done(path, chosen());
    });
}

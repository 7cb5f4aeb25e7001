#include "workflows/ProtocolLogWindow.h"

#include "data/AtomicFile.h"
#include "workflows/SessionTrace.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

ProtocolLogWindow::ProtocolLogWindow(SessionTrace& trace, QWidget* parent)
    : QDialog(parent), m_text(new QPlainTextEdit(this)) {
    setObjectName(QStringLiteral("windowProtocolLog"));
    setWindowTitle(tr("Protocol Log"));
    setAttribute(Qt::WA_DeleteOnClose);
    resize(800, 480);
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setMaximumBlockCount(mostLines);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setAccessibleName(tr("Protocol log"));
    auto* pause = new QCheckBox(tr("&Pause"), this);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->addButton(pause, QDialogButtonBox::ActionRole);
    auto* saveButton = buttons->addButton(tr("&Save..."), QDialogButtonBox::ActionRole);
    // Enter would close the window.
    for (QAbstractButton* button : buttons->buttons())
        if (auto* pushButton = qobject_cast<QPushButton*>(button))
            pushButton->setAutoDefault(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    layout->addWidget(buttons);
    connect(pause, &QCheckBox::toggled, this, &ProtocolLogWindow::setPaused);
    connect(saveButton, &QPushButton::clicked, this, &ProtocolLogWindow::askWhereToSave);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    m_text->setPlainText(trace.lines().join(u'\n'));
    m_text->moveCursor(QTextCursor::End);
    connect(&trace, &SessionTrace::added, this, &ProtocolLogWindow::add);
}

void ProtocolLogWindow::add(const QString& line) {
    if (!m_isPaused) {
        m_text->appendPlainText(line); // and stays at the end if it was there
        return;
    }
    m_waiting += line;
    if (m_waiting.size() > mostLines)
        m_waiting.removeFirst();
}

void ProtocolLogWindow::setPaused(bool isPaused) {
    m_isPaused = isPaused;
    if (!isPaused && !m_waiting.isEmpty())
        m_text->appendPlainText(m_waiting.join(u'\n'));
    m_waiting.clear();
}

void ProtocolLogWindow::askWhereToSave() {
    auto* dialog = new QFileDialog(this, tr("Save Protocol Log"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->selectFile(QStringLiteral("aquelon-protocol.txt"));
    connect(dialog, &QFileDialog::fileSelected, this, &ProtocolLogWindow::save);
    dialog->show();
}

void ProtocolLogWindow::save(const QString& path) {
    const QString reason = AtomicFile::replace(path, m_text->toPlainText().toUtf8() + '\n');
    if (!reason.isEmpty())
        Q_EMIT saveFailed(path, reason);
}

#include "workflows/DiagnosticsPanel.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

DiagnosticsPanel::DiagnosticsPanel(QWidget* parent)
    : QDialog(parent), m_text(new QPlainTextEdit(this)) {
    setObjectName(QStringLiteral("panelDiagnostics"));
    setWindowTitle(tr("Diagnostics"));
    setWindowModality(Qt::ApplicationModal);
    resize(800, 480);
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setAccessibleName(tr("Diagnostics"));
    auto* label = new QLabel(tr("This is what is copied, for those who help you. It holds no "
                                "more than is shown here."),
                             this);
    label->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* copyButton = buttons->addButton(tr("&Copy"), QDialogButtonBox::AcceptRole);
    copyButton->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &DiagnosticsPanel::copy);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_text);
    layout->addWidget(buttons);
}

void DiagnosticsPanel::run(const QString& text) {
    m_text->setPlainText(text);
    show();
    m_text->setFocus();
}

void DiagnosticsPanel::copy() {
    QGuiApplication::clipboard()->setText(m_text->toPlainText());
    accept();
}

#include "workflows/PortHelpPanel.h"

#include "workflows/LinkTexts.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <memory>

PortHelpPanel::PortHelpPanel(QWidget* parent)
    : QDialog(parent), m_lblHelp(new QLabel(this)), m_layout(new QVBoxLayout(this)) {
    setObjectName(QStringLiteral("panelPortHelp"));
    setWindowTitle(QStringLiteral("Aquelon"));
    m_lblHelp->setTextFormat(Qt::PlainText);
    m_lblHelp->setWordWrap(true);
    m_lblHelp->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_lblHelp->setMinimumWidth(fontMetrics().averageCharWidth() * 90);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_layout->setSpacing(8);
    m_layout->setContentsMargins(16, 16, 16, 16);
    m_layout->addWidget(m_lblHelp);
    m_layout->addSpacing(8);
    m_layout->addWidget(buttons);
}

void PortHelpPanel::setProblem(const QString& help,
                               const std::vector<YMessageError::PortRemedy>& remedies) {
    // What is told again would lose what the person has selected.
    if (help == m_help && remedies == m_shown)
        return;
    m_help = help;
    m_shown = remedies;
    m_lblHelp->setText(help + u'.');
    delete m_remedies;
    m_remedies = new QWidget(this);
    auto* grid = new QGridLayout(m_remedies);
    grid->setContentsMargins(0, 8, 0, 0);
    grid->setSpacing(8);
    for (const auto& remedy : remedies)
        addRemedy(remedy);
    m_layout->insertWidget(1, m_remedies);
    if (remedies.empty())
        close();
}

void PortHelpPanel::addRemedy(const YMessageError::PortRemedy& remedy) {
    auto* grid = static_cast<QGridLayout*>(m_remedies->layout());
    const QString command = QString::fromStdString(remedy.command);
    auto* caption = new QLabel(LinkTexts::shown(remedy.what), m_remedies);
    auto* field = new QLineEdit(command, m_remedies);
    field->setReadOnly(true);
    field->setCursorPosition(0);
    caption->setBuddy(field);
    auto* copy = new QPushButton(tr("Copy"), m_remedies);
    copy->setAccessibleName(tr("Copy: %1").arg(command));
    copy->setAutoDefault(false);
    connect(copy, &QPushButton::clicked, copy,
            [command] { QApplication::clipboard()->setText(command); });
    const int row = grid->rowCount();
    grid->addWidget(caption, row, 0, 1, 2);
    grid->addWidget(field, row + 1, 0);
    grid->addWidget(copy, row + 1, 1);
}

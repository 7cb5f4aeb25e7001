#include "workflows/ComparePanel.h"

#include "workflows/ControlStates.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int titleBarHeight = 32; ///< about; not known before the window is shown

} // namespace

ComparePanel::ComparePanel(QWidget* parent)
    : QDialog(parent), m_lblHeadline(new QLabel(this)), m_txtDifferences(new QPlainTextEdit(this)),
      m_lblNotes(new QLabel(this)), m_bttnTake(new QPushButton(tr("&Take the Lamp's"), this)),
      m_bttnSend(new QPushButton(tr("&Send Mine"), this)),
      m_bttnClose(new QPushButton(tr("&Close"), this)) {
    setObjectName(QStringLiteral("panelCompare"));
    setWindowTitle(QStringLiteral("Aquelon"));
    setWindowModality(Qt::ApplicationModal);
    m_txtDifferences->setObjectName(QStringLiteral("txtDifferences"));
    m_txtDifferences->setAccessibleName(tr("Differences"));
    m_txtDifferences->setReadOnly(true);
    m_txtDifferences->setTextInteractionFlags(Qt::TextSelectableByMouse |
                                              Qt::TextSelectableByKeyboard);
    m_txtDifferences->setTabChangesFocus(true);
    m_txtDifferences->setMinimumSize(fontMetrics().averageCharWidth() * 56,
                                     fontMetrics().lineSpacing() * 9);
    m_lblNotes->setObjectName(QStringLiteral("lblNotes"));
    m_lblNotes->setWordWrap(true);
    makeButtons();
}

void ComparePanel::makeButtons() {
    m_bttnTake->setObjectName(QStringLiteral("bttnTakeLamps"));
    m_bttnSend->setObjectName(QStringLiteral("bttnSendMine"));
    m_bttnClose->setObjectName(QStringLiteral("bttnCloseCompare"));
    m_bttnClose->setDefault(true);
    for (QPushButton* button : {m_bttnTake, m_bttnSend})
        button->setAutoDefault(false);
    m_bttnTake->setMinimumWidth(m_bttnTake->sizeHint().width() + 16);
    connect(m_bttnTake, &QPushButton::clicked, this, [this] {
        accept();
        Q_EMIT takeRequested();
    });
    connect(m_bttnSend, &QPushButton::clicked, this, [this] {
        accept();
        Q_EMIT sendRequested();
    });
    connect(m_bttnClose, &QPushButton::clicked, this, &QDialog::reject);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addWidget(m_bttnTake);
    buttons->addWidget(m_bttnSend);
    buttons->addStretch(1);
    buttons->addSpacing(24);
    buttons->addWidget(m_bttnClose);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(8);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->addWidget(m_lblHeadline);
    layout->addWidget(m_txtDifferences, 1);
    layout->addWidget(m_lblNotes);
    layout->addSpacing(8);
    layout->addLayout(buttons);
}

void ComparePanel::run(const QStringList& differences, const QStringList& notes, Lamps lamps) {
    m_isEqual = differences.isEmpty();
    m_lamps = lamps;
    m_lblHeadline->setText(m_isEqual ? tr("The lamp holds this program.")
                           : lamps == Lamps::Whole
                               ? tr("The program here and the lamp's differ:")
                               : tr("The lamp's program is incomplete or damaged:"));
    m_txtDifferences->setPlainText(m_isEqual ? tr("Nothing differs.") : differences.join(u'\n'));
    m_lblNotes->setText(notes.join(u'\n'));
    m_lblNotes->setVisible(!notes.isEmpty());
    setConnected(true);
    // Below the curve, as far as there is room, in which the lamp's lies beneath this one's.
    adjustSize();
    const QRect window = parentWidget()->frameGeometry();
    move(window.center().x() - width() / 2, window.bottom() - height() - titleBarHeight);
    show();
    m_bttnClose->setFocus();
}

void ComparePanel::setConnected(bool isConnected) {
    m_isConnected = isConnected;
    refreshButtons();
}

void ComparePanel::refreshButtons() {
    const QString nothing = tr("Nothing differs");
    const ControlState take =
        m_isEqual ? ControlState{false, nothing}
        : m_lamps == Lamps::Incomplete
            ? ControlState{false, tr("The lamp's program is incomplete or damaged")}
            : ControlState{true, tr("Replace the program here by the lamp's; can be undone")};
    const ControlState send =
        m_isEqual ? ControlState{false, nothing}
        : m_isConnected
            ? ControlStates::send({.isConnected = true})
            // No controller is looked for behind a window that wants an answer.
            : ControlState{false,
                           tr("No controller is connected; close this window to look for it")};
    take.applyTo(*m_bttnTake);
    send.applyTo(*m_bttnSend);
}

#include "workflows/ProgramChangePanel.h"

#include "data/AQDataSource.h"
#include "workflows/PanelPlace.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int margin = 16;
constexpr int leastWidth = 260; ///< for the whole title

} // namespace

ProgramChangePanel::ProgramChangePanel(AQDataSource& document, const QWidget& uncovered,
                                       QWidget* parent)
    : QDialog(parent), m_data(document), m_uncovered(uncovered), m_form(new QFormLayout) {
    setWindowModality(Qt::WindowModal);
    m_form->setHorizontalSpacing(margin);
    m_form->setVerticalSpacing(8);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("OK"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    buttons->setMinimumWidth(leastWidth);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &ProgramChangePanel::onFinished);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(margin);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addLayout(m_form);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    // Nobody edits under the dialog, but the link may bring what it was asked for before.
    const NotificationCenter& center = document.notifications();
    connect(&center, &NotificationCenter::dataChanged, this, &ProgramChangePanel::refreshPreview);
    connect(&center, &NotificationCenter::cellChanged, this, &ProgramChangePanel::refreshPreview);
}

void ProgramChangePanel::run() {
    if (isVisible())
        return;
    reset();
    placeBelow(*this, m_uncovered);
    show();
    refreshPreview();
}

void ProgramChangePanel::refreshPreview() {
    if (isVisible())
        m_data.preview().show(changed(m_data.sequence().points()));
}

void ProgramChangePanel::onFinished(int result) {
    const auto points = changed(m_data.sequence().points());
    const bool isWanted = result == Accepted && points != m_data.sequence().points();
    // Behind the change, so that nothing shows the old program in between.
    if (isWanted)
        m_data.sequence().replaceAll(points, stepName(), this);
    m_data.preview().end();
}

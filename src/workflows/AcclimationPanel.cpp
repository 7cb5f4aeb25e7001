#include "workflows/AcclimationPanel.h"

#include "data/AQDataSource.h"
#include "workflows/PanelPlace.h"

#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

constexpr int margin = 16;

/// The short form of the person's locale in digits, with all four of the year.
QString dateFormat() {
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    if (format.contains(QLatin1String("MMM")))
        return QStringLiteral("yyyy-MM-dd");
    if (!format.contains(QLatin1String("yyyy")))
        format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return format;
}

} // namespace

AcclimationPanel::AcclimationPanel(AQDataSource& document, const QWidget& uncovered,
                                   QWidget* parent)
    : QDialog(parent), m_data(document), m_uncovered(uncovered), m_spinStart(new QSpinBox(this)),
      m_spinDays(new QSpinBox(this)), m_pickerFirstDay(new QDateEdit(this)),
      m_lblToday(new QLabel(this)), m_bttnEnd(new QPushButton(tr("&End Acclimation"), this)) {
    setObjectName(QStringLiteral("panelAcclimation"));
    setWindowTitle(tr("Acclimate"));
    setWindowModality(Qt::WindowModal);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(margin);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    makeFields();
    makeButtons();

    connect(this, &QDialog::finished, this, [this] { Q_EMIT ghostChanged(std::nullopt); });
    // Nobody edits under the dialog, but the link may bring what it was asked for before.
    const NotificationCenter& center = document.notifications();
    connect(&center, &NotificationCenter::dataChanged, this, &AcclimationPanel::refresh);
    connect(&center, &NotificationCenter::dayChanged, this, &AcclimationPanel::refresh);
    // What the fields say was about another program.
    connect(&center, &NotificationCenter::dataLoaded, this, &QDialog::reject);
}

void AcclimationPanel::makeFields() {
    m_spinStart->setObjectName(QStringLiteral("spinStart"));
    m_spinStart->setRange(Acclimation::leastStart, Acclimation::mostStart);
    m_spinStart->setSuffix(QStringLiteral(" %"));
    m_spinStart->setToolTip(tr("The intensity on the first day; on the last one it is 100 %"));
    m_spinDays->setObjectName(QStringLiteral("spinDays"));
    m_spinDays->setRange(Acclimation::leastDays, Acclimation::mostDays);
    m_pickerFirstDay->setObjectName(QStringLiteral("pickerFirstDay"));
    m_pickerFirstDay->setCalendarPopup(true);
    m_pickerFirstDay->setDisplayFormat(dateFormat());
    m_lblToday->setObjectName(QStringLiteral("lblToday"));

    auto* form = new QFormLayout;
    form->setHorizontalSpacing(margin);
    form->setVerticalSpacing(8);
    form->addRow(tr("&Start at"), m_spinStart);
    form->addRow(tr("&Days"), m_spinDays);
    form->addRow(tr("&First day"), m_pickerFirstDay);
    form->addRow(tr("Today"), m_lblToday);
    static_cast<QVBoxLayout*>(layout())->addLayout(form);
    connect(m_spinStart, &QSpinBox::valueChanged, this, &AcclimationPanel::refresh);
    connect(m_spinDays, &QSpinBox::valueChanged, this, &AcclimationPanel::refresh);
    connect(m_pickerFirstDay, &QDateEdit::dateChanged, this, &AcclimationPanel::refresh);
}

void AcclimationPanel::makeButtons() {
    m_bttnEnd->setObjectName(QStringLiteral("bttnEndAcclimation"));
    m_bttnEnd->setAutoDefault(false);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("OK"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    buttons->addButton(m_bttnEnd, QDialogButtonBox::ResetRole);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        accept();
        Q_EMIT chosen(wanted());
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_bttnEnd, &QPushButton::clicked, this, [this] {
        accept();
        Q_EMIT chosen(std::nullopt);
    });
    layout()->addWidget(buttons);
}

void AcclimationPanel::run() {
    if (isVisible())
        return;
    const auto& present = m_data.acclimation();
    const Acclimation shown = present ? *present : Acclimation{.firstDay = m_data.today()};
    m_spinStart->setValue(shown.start);
    m_spinDays->setValue(shown.days);
    m_pickerFirstDay->setDate(shown.firstDay);
    m_bttnEnd->setVisible(present.has_value());
    m_spinStart->setFocus();
    m_spinStart->selectAll();
    placeBelow(*this, m_uncovered);
    show();
    refresh();
}

Acclimation AcclimationPanel::wanted() const {
    return {m_spinStart->value(), m_spinDays->value(), m_pickerFirstDay->date()};
}

void AcclimationPanel::refresh() {
    const Acclimation acclimation = wanted();
    m_lblToday->setText(acclimation.isOverOn(m_data.today()) ? tr("over: 100 %")
                                                             : acclimation.textOn(m_data.today()));
    if (isVisible())
        Q_EMIT ghostChanged(lightOn(m_data.today(), m_data.sequence().points(), acclimation));
}

#include "workflows/NewDayPanel.h"

#include "controls/curve/AQCurveView.h"
#include "controls/time/TimeField.h"
#include "controls/window/AQScrollArea.h"
#include "controls/window/AQStatisticsLine.h"
#include "data/ProgramStatistics.h"
#include "workflows/DayShapeFields.h"
#include "workflows/DocumentCommands.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace {

constexpr int margin = 16;
constexpr QSize leastOfFields{320, 120}; ///< they scroll where a screen is small
constexpr QSize usualSize{960, 680};
constexpr QSize frameRoom{8, 40}; ///< what a desktop puts around a window

} // namespace

NewDayPanel::NewDayPanel(const AQDataSource& document, DocumentCommands& documents, QWidget* parent)
    : QDialog(parent), m_document(document), m_documents(documents),
      m_curve(new AQCurveView(m_day.sequence(), m_day.selection(), this)),
      m_statistics(new AQStatisticsLine(this)), m_fields(new DayShapeFields(this)) {
    setObjectName(QStringLiteral("panelNewDay"));
    setWindowTitle(tr("New Day"));
    setWindowModality(Qt::WindowModal);
    // To be looked at only: the fields are what shapes it.
    m_curve->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_curve->setFocusPolicy(Qt::NoFocus);
    m_curve->setAccessibleDescription(tr("The day as the fields describe it"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    m_ok->setText(tr("OK"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &NewDayPanel::onOk);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* scroll = new AQScrollArea(this);
    scroll->setWidget(m_fields);
    scroll->setMinimumSize(leastOfFields);
    auto* lower = new QVBoxLayout;
    lower->setContentsMargins(margin, margin / 2, margin, margin);
    lower->setSpacing(margin);
    lower->addWidget(scroll, 1);
    lower->addWidget(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_curve, 1);
    layout->addWidget(m_statistics);
    layout->addLayout(lower);
    connect(m_fields, &DayShapeFields::changed, this, &NewDayPanel::refresh);
    refresh();
}

void NewDayPanel::run() {
    if (!isVisible()) {
        m_fields->reset();
        resize(minimumSizeHint().expandedTo(usualSize).boundedTo(screen()->availableSize() -
                                                                 frameRoom));
    }
    refresh(); // the controller may be another one
    m_fields->setFocus();
    show();
    raise();
    activateWindow();
}

void NewDayPanel::refresh() {
    const int limit = m_document.sequence().pointLimit();
    const DayShape shape = m_fields->shape();
    const auto fault = shape.fault(limit);
    m_fields->showFault(fault, std::min(limit, DayShape::mostPoints));
    m_ok->setEnabled(!fault);
    m_curve->setEnabled(!fault);
    if (fault)
        return; // the last day that could be, in grey
    m_day.sequence().replacePoints(shape.points(limit));
    m_day.sequence().notifyDataChange(this, false);
    m_statistics->setStatistics(statisticsOf(m_day.sequence().points()));
}

void NewDayPanel::onOk() {
    // What was typed and refused at this very press is to be read first.
    for (const TimeField* field : m_fields->findChildren<TimeField*>())
        if (field->showsRefusal())
            return;
    refresh();
    if (m_ok->isEnabled())
        m_documents.newDay(m_day.sequence().points(), [this] { accept(); });
}

#include "workflows/ShiftDayPanel.h"

#include "data/ProgramChanges.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QTimeEdit>

namespace {

int minutesOf(const QTime& time) {
    return time.hour() * AQTime::minutesPerHour + time.minute();
}

} // namespace

ShiftDayPanel::ShiftDayPanel(AQDataSource& document, const QWidget& uncovered, QWidget* parent)
    : ProgramChangePanel(document, uncovered, parent), m_pickerShift(new QTimeEdit(this)),
      m_radioLater(new QRadioButton(tr("&Later"), this)),
      m_radioEarlier(new QRadioButton(tr("&Earlier"), this)) {
    setObjectName(QStringLiteral("panelShiftDay"));
    setWindowTitle(tr("Shift Day"));
    m_pickerShift->setObjectName(QStringLiteral("pickerShift"));
    m_pickerShift->setAccessibleName(tr("Hours and minutes"));
    m_pickerShift->setLocale(QLocale::c());
    m_pickerShift->setDisplayFormat(QStringLiteral("h:mm"));
    m_radioLater->setObjectName(QStringLiteral("radioLater"));
    m_radioEarlier->setObjectName(QStringLiteral("radioEarlier"));
    auto* fields = new QHBoxLayout;
    fields->setSpacing(12);
    fields->addWidget(m_pickerShift);
    fields->addWidget(m_radioLater);
    fields->addWidget(m_radioEarlier);
    form().addRow(tr("&Shift by"), fields);
    qobject_cast<QLabel*>(form().labelForField(fields))->setBuddy(m_pickerShift);

    connect(m_pickerShift, &QTimeEdit::timeChanged, this, &ShiftDayPanel::refreshPreview);
    connect(m_radioLater, &QRadioButton::toggled, this, &ShiftDayPanel::refreshPreview);
}

void ShiftDayPanel::reset() {
    m_pickerShift->setTime(QTime(0, 0));
    m_radioLater->setChecked(true);
    m_pickerShift->setFocus();
    m_pickerShift->setSelectedSection(QTimeEdit::HourSection);
}

std::vector<AQTimePoint> ShiftDayPanel::changed(const std::vector<AQTimePoint>& points) const {
    const int minutes = minutesOf(m_pickerShift->time());
    return ProgramChanges::shiftedDay(points, m_radioLater->isChecked() ? minutes : -minutes);
}

QString ShiftDayPanel::stepName() const {
    return tr("Shift Day by %1%2")
        .arg(m_radioLater->isChecked() ? QStringLiteral("+") : QStringLiteral("−"),
             m_pickerShift->text());
}

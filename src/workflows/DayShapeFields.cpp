#include "workflows/DayShapeFields.h"

#include "controls/AccentColor.h"
#include "controls/Announcement.h"
#include "controls/Percent.h"
#include "controls/sliders/AQSliderColorTemp.h"
#include "controls/time/ClockFormat.h"
#include "controls/time/TimeField.h"
#include "controls/window/AQGroupHeader.h"
#include "data/TimeText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPointer>
#include <QScopedValueRollback>
#include <QSpinBox>

namespace {

constexpr int gap = 8;
constexpr int columnGap = 24;
constexpr int leastBreak = 10;
constexpr int longestBreak = 720; ///< minutes
constexpr int linesOfFault = 3;

QString clockText(int minuteOfDay) {
    return timeText(minuteOfDay / AQTime::minutesPerHour, minuteOfDay % AQTime::minutesPerHour);
}

/// Red words, readable in the palette at hand.
QColor faultColor(const QPalette& palette) {
    return AccentColor::isDark(palette) ? QColor(255, 128, 134) : QColor(176, 32, 48);
}

QFormLayout* makeColumn(QWidget& column) {
    auto* form = new QFormLayout(&column);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(gap);
    form->setVerticalSpacing(gap);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return form;
}

} // namespace

DayShapeFields::DayShapeFields(QWidget* parent) : QWidget(parent) {
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(columnGap);
    for (QWidget* column : {makeDay(), makeLight(), makeNight()})
        columns->addWidget(column, 1, Qt::AlignTop);
    const std::vector<std::pair<QString, DayShape>> usual{
        {tr("Reef"), UsualDays::reef()},
        {tr("Planted"), UsualDays::planted()},
        {tr("Low Light"), UsualDays::lowLight()},
        {tr("Siesta"), UsualDays::siesta()},
        {tr("Long Summer Day"), UsualDays::longSummerDay()}};
    for (const auto& [name, shape] : usual)
        m_comboShape->addItem(name);
    // Also the one that is chosen already: it is wanted back as it was.
    connect(m_comboShape, &QComboBox::activated, this,
            [this, usual](int index) { setShape(usual[static_cast<std::size_t>(index)].second); });
    m_isFilling = false;
    setShape(usual.front().second);
}

QWidget* DayShapeFields::makeDay() {
    auto* column = new QWidget(this);
    QFormLayout& form = *makeColumn(*column);
    auto* header = new AQGroupHeader(column);
    header->setTitle(tr("Day"));
    form.addRow(header);
    m_comboShape = new QComboBox(column);
    m_comboShape->setObjectName(QStringLiteral("comboShape"));
    m_comboShape->setPlaceholderText(tr("Own day"));
    setFocusProxy(m_comboShape);
    form.addRow(tr("Begin &with"), m_comboShape);
    m_pickerStart = addTime(form, tr("&Start"), "pickerStart");
    m_pickerEnd = addTime(form, tr("&End"), "pickerEnd");
    m_spinSunrise =
        addNumber(form, tr("Sun&rise"), "spinSunrise", DayShape::longestRamp, tr(" min"));
    m_spinSunset = addNumber(form, tr("S&unset"), "spinSunset", DayShape::longestRamp, tr(" min"));
    m_chkSoft = new QCheckBox(tr("So&ft ramps"), column);
    m_chkSoft->setObjectName(QStringLiteral("chkSoft"));
    m_chkSoft->setToolTip(tr("Begin and end slowly, which takes more points"));
    connect(m_chkSoft, &QCheckBox::toggled, this, &DayShapeFields::onEdited);
    form.addRow(QString(), m_chkSoft);
    m_lblDayFault = addNote(form, "lblDayFault");
    return column;
}

QWidget* DayShapeFields::makeLight() {
    auto* column = new QWidget(this);
    QFormLayout& form = *makeColumn(*column);
    auto* header = new AQGroupHeader(column);
    header->setTitle(tr("Light"));
    form.addRow(header);
    m_spinNoon = addNumber(form, tr("Noon &level"), "spinNoon", 100, tr(" %"));
    m_spinNoon->setMinimum(1);
    m_sliderDawn = addColor(form, tr("D&awn"), "sliderDawn", tr("Colour temperature at dawn"));
    m_sliderNoon = addColor(form, tr("&Noon"), "sliderNoon", tr("Colour temperature at noon"));
    m_sliderDusk = addColor(form, tr("&Dusk"), "sliderDusk", tr("Colour temperature at dusk"));
    return column;
}

QWidget* DayShapeFields::makeNight() {
    auto* column = new QWidget(this);
    QFormLayout& form = *makeColumn(*column);
    const auto addSwitch = [&](const QString& text, const char* name) {
        auto* box = new QCheckBox(text, column);
        box->setObjectName(QLatin1String(name));
        QFont bold = box->font();
        bold.setWeight(QFont::Bold);
        box->setFont(bold);
        box->setMinimumHeight(AQGroupHeader(column).minimumHeight());
        form.addRow(box);
        connect(box, &QCheckBox::toggled, this, &DayShapeFields::onEdited);
        return box;
    };
    m_chkBreak = addSwitch(tr("&Midday break"), "chkBreak");
    m_pickerBreak = addTime(form, tr("S&tart"), "pickerBreak");
    m_spinBreak = addNumber(form, tr("Len&gth"), "spinBreak", longestBreak, tr(" min"));
    m_spinBreak->setMinimum(leastBreak);
    m_spinBreakLevel = addNumber(form, tr("Le&vel"), "spinBreakLevel", 100, tr(" %"));
    m_lblBreakFault = addNote(form, "lblBreakFault");
    m_chkMoonlight = addSwitch(tr("Moonl&ight"), "chkMoonlight");
    m_spinMoonlight = addNumber(form, tr("Level"), "spinMoonlight", 100, tr(" %"));
    m_sliderMoonlight =
        addColor(form, tr("&Colour"), "sliderMoonlight", tr("Colour temperature of the moonlight"));
    return column;
}

TimeField* DayShapeFields::addTime(QFormLayout& form, const QString& caption, const char* name) {
    // A field that is left while all of this is being deleted has nobody to tell.
    const auto stored = [fields = QPointer(this), name = QLatin1String(name)](const AQTime& time) {
        if (!fields)
            return false;
        fields->findChild<TimeField*>(name)->setTime(time);
        fields->onEdited();
        return true;
    };
    auto* picker = new TimeField(std::make_unique<ClockFormat>(), stored, form.parentWidget());
    picker->setFixedHeight(QSpinBox().sizeHint().height()); // that of the numbers below
    picker->setObjectName(QLatin1String(name));
    picker->setAccessibleName(QString(caption).remove(u'&'));
    picker->setAlignment(Qt::AlignLeft);
    form.addRow(caption, picker);
    return picker;
}

QSpinBox* DayShapeFields::addNumber(QFormLayout& form, const QString& caption, const char* name,
                                    int most, const QString& unit) {
    auto* spin = new QSpinBox(form.parentWidget());
    spin->setObjectName(QLatin1String(name));
    spin->setRange(0, most);
    spin->setSingleStep(most == 100 ? 1 : 5);
    spin->setSuffix(unit);
    form.addRow(caption, spin);
    connect(spin, &QSpinBox::valueChanged, this, &DayShapeFields::onEdited);
    return spin;
}

AQSliderColorTemp* DayShapeFields::addColor(QFormLayout& form, const QString& caption,
                                            const char* name, const QString& accessibleName) {
    auto* slider = new AQSliderColorTemp(form.parentWidget());
    slider->setObjectName(QLatin1String(name));
    slider->setAccessibleName(accessibleName);
    form.addRow(caption, slider);
    form.labelForField(slider)->setMinimumHeight(slider->minimumSizeHint().height());
    connect(slider, &AQSlider::edited, this, &DayShapeFields::onEdited);
    return slider;
}

QLabel* DayShapeFields::addNote(QFormLayout& form, const char* name) {
    auto* note = new QLabel(form.parentWidget());
    note->setObjectName(QLatin1String(name));
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    note->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Room that is always there, so that nothing jumps.
    note->setFixedHeight(linesOfFault * fontMetrics().lineSpacing());
    form.addRow(note);
    return note;
}

DayShape DayShapeFields::shape() const {
    DayShape shape{.start = m_pickerStart->time().minuteOfDay(),
                   .end = m_pickerEnd->time().minuteOfDay(),
                   .sunrise = m_spinSunrise->value(),
                   .sunset = m_spinSunset->value(),
                   .isSoft = m_chkSoft->isChecked(),
                   .noonLevel = m_spinNoon->value() / 100.0,
                   .dawnColorTemp = m_sliderDawn->value(),
                   .noonColorTemp = m_sliderNoon->value(),
                   .duskColorTemp = m_sliderDusk->value()};
    if (m_chkBreak->isChecked())
        shape.middayBreak = DayShape::Break{.start = m_pickerBreak->time().minuteOfDay(),
                                            .length = m_spinBreak->value(),
                                            .level = m_spinBreakLevel->value() / 100.0};
    if (m_chkMoonlight->isChecked())
        shape.moonlight = DayShape::Moonlight{.level = m_spinMoonlight->value() / 100.0,
                                              .colorTemp = m_sliderMoonlight->value()};
    return shape;
}

void DayShapeFields::setShape(const DayShape& shape) {
    {
        const QScopedValueRollback guard(m_isFilling, true);
        m_pickerStart->setTime(AQTime::fromMinuteOfDay(shape.start));
        m_pickerEnd->setTime(AQTime::fromMinuteOfDay(shape.end));
        m_spinSunrise->setValue(shape.sunrise);
        m_spinSunset->setValue(shape.sunset);
        m_chkSoft->setChecked(shape.isSoft);
        m_spinNoon->setValue(percent(shape.noonLevel));
        m_sliderDawn->setValue(shape.dawnColorTemp);
        m_sliderNoon->setValue(shape.noonColorTemp);
        m_sliderDusk->setValue(shape.duskColorTemp);
        // What is off stays ready with usual values.
        const DayShape::Break middayBreak = shape.middayBreak.value_or(DayShape::Break{});
        m_chkBreak->setChecked(shape.middayBreak.has_value());
        m_pickerBreak->setTime(AQTime::fromMinuteOfDay(middayBreak.start));
        m_spinBreak->setValue(middayBreak.length);
        m_spinBreakLevel->setValue(percent(middayBreak.level));
        const DayShape::Moonlight moonlight = shape.moonlight.value_or(DayShape::Moonlight{});
        m_chkMoonlight->setChecked(shape.moonlight.has_value());
        m_spinMoonlight->setValue(percent(moonlight.level));
        m_sliderMoonlight->setValue(moonlight.colorTemp);
    }
    refresh();
}

void DayShapeFields::reset() {
    m_comboShape->setCurrentIndex(0);
    Q_EMIT m_comboShape->activated(0);
}

void DayShapeFields::onEdited() {
    if (m_isFilling)
        return;
    m_comboShape->setCurrentIndex(-1);
    refresh();
}

void DayShapeFields::refresh() {
    for (QWidget* field : {static_cast<QWidget*>(m_pickerBreak), static_cast<QWidget*>(m_spinBreak),
                           static_cast<QWidget*>(m_spinBreakLevel)})
        field->setEnabled(m_chkBreak->isChecked());
    m_spinMoonlight->setEnabled(m_chkMoonlight->isChecked());
    m_sliderMoonlight->setEnabled(m_chkMoonlight->isChecked());
    Q_EMIT changed();
}

void DayShapeFields::showFault(std::optional<DayShape::Fault> fault, int pointLimit) {
    using Fault = DayShape::Fault;
    const QString text = fault ? faultText(*fault, pointLimit) : QString();
    const bool isOfDay = fault == Fault::endsAtItsStart || fault == Fault::rampsOverlap;
    for (const auto& [label, said] : {std::pair(m_lblDayFault, isOfDay ? text : QString()),
                                      std::pair(m_lblBreakFault, isOfDay ? QString() : text)}) {
        QPalette red = palette();
        red.setColor(QPalette::WindowText, faultColor(red));
        label->setPalette(red);
        const bool isNews = said != label->text() && !said.isEmpty();
        label->setText(said);
        if (isNews)
            Announcement::make(*this, said);
    }
}

QString DayShapeFields::faultText(DayShape::Fault fault, int pointLimit) const {
    using Fault = DayShape::Fault;
    const DayShape day = shape();
    const auto duration = [](int minutes) {
        return tr("%1 h %2 min")
            .arg(minutes / AQTime::minutesPerHour)
            .arg(minutes % AQTime::minutesPerHour, 2, 10, QLatin1Char('0'))
            .replace(u' ', QChar::Nbsp);
    };
    switch (fault) {
    case Fault::endsAtItsStart:
        return tr("The day must not end at its start.");
    case Fault::rampsOverlap:
        return tr("Sunrise and sunset overlap: the day lasts only %1.").arg(duration(day.length()));
    case Fault::breakLongerThanDay:
        return tr("The break is longer than the day, which lasts %1.").arg(duration(day.length()));
    case Fault::breakBeyondNoon:
        return tr("The break must lie between the end of the sunrise at %1 and the begin of the "
                  "sunset at %2.")
            .arg(clockText(day.noonStart()), clockText(day.noonEnd()));
    case Fault::tooManyPoints:
        return tr("This day needs more than the %1 points that there is room for.").arg(pointLimit);
    }
    return {};
}

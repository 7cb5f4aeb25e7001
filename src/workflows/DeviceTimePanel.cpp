#include "workflows/DeviceTimePanel.h"

#include "controls/time/AQDateTimeEdit.h"
#include "lamp/TimeZones.h"
#include "lamp/WallTime.h"
#include "yprotocoll/YAnswers.h"
#include "yprotocoll/YCommands.h"
#include "yprotocoll/link/YMessageController.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

namespace {

constexpr double msecsPerSecond = 1000.0;

/// What the controller's calendar can hold.
QDateTime earliestTime() {
    return QDateTime(QDate(2000, 1, 1), QTime(0, 0), Qt::UTC);
}
QDateTime latestTime() {
    return QDateTime(QDate(2255, 12, 31), QTime(23, 59, 59), Qt::UTC);
}

QString dateAsTold(const AnswerRTC& answer) {
    return QStringLiteral("%1/%2/%3, %4:%5:%6")
        .arg(answer.month, 2, 10, QLatin1Char('0'))
        .arg(answer.day, 2, 10, QLatin1Char('0'))
        .arg(answer.year)
        .arg(answer.hour, 2, 10, QLatin1Char('0'))
        .arg(answer.minute, 2, 10, QLatin1Char('0'))
        .arg(answer.second, 2, 10, QLatin1Char('0'));
}

QLabel* caption(const QString& text, QWidget* buddy, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setBuddy(buddy);
    return label;
}

} // namespace

DeviceTimePanel::DeviceTimePanel(YMessageController& controller, QWidget* parent,
                                 ComputerClock clock, Intervals intervals)
    : QDialog(parent), m_controller(controller), m_clock(std::move(clock)), m_intervals(intervals),
      m_lblDeviceTime(new QLabel(this)), m_lblComputerTime(new QLabel(this)),
      m_lblDifference(new QLabel(this)),
      m_radioComputerTime(new QRadioButton(tr("C&omputer's time"), this)),
      m_radioCustomTime(new QRadioButton(tr("C&ustom time"), this)),
      m_pickerCustomTime(new AQDateTimeEdit(this)), m_comboTimezone(new QComboBox(this)),
      m_chkDaylightSaving(new QCheckBox(tr("&Daylight saving"), this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this)),
      m_updateTimeTimer(new QTimer(this)) {
    setObjectName(QStringLiteral("panelSetDeviceTime"));
    setWindowTitle(QStringLiteral("Aquelon"));
    setWindowModality(Qt::ApplicationModal);
    setUpControls();
    setUpLayout();

    connect(m_updateTimeTimer, &QTimer::timeout, this, &DeviceTimePanel::onUpdateTime);
    connect(m_radioComputerTime, &QRadioButton::toggled, m_pickerCustomTime,
            &QDateTimeEdit::setDisabled);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &DeviceTimePanel::onPanelSetDeviceTime);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::finished, m_updateTimeTimer, &QTimer::stop);
}

void DeviceTimePanel::setUpControls() {
    m_lblDeviceTime->setObjectName(QStringLiteral("lblDeviceTime"));
    m_lblComputerTime->setObjectName(QStringLiteral("lblComputerTime"));
    m_lblDifference->setObjectName(QStringLiteral("lblTimeDifference"));
    m_lblDifference->setWordWrap(true);
    m_lblDifference->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_radioComputerTime->setObjectName(QStringLiteral("radioComputerTime"));
    m_radioComputerTime->setChecked(true);
    m_radioCustomTime->setObjectName(QStringLiteral("radioCustomTime"));
    m_pickerCustomTime->setObjectName(QStringLiteral("pickerCustomTime"));
    m_pickerCustomTime->setAccessibleName(tr("Custom time"));
    m_pickerCustomTime->setTimeSpec(Qt::UTC);
    m_pickerCustomTime->setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    m_pickerCustomTime->setDisplayFormat(QStringLiteral("MM/dd/yyyy, hh:mm:ss AP"));
    m_pickerCustomTime->setDateTimeRange(earliestTime(), latestTime());
    m_pickerCustomTime->setCalendarPopup(true);
    m_pickerCustomTime->setEnabled(false);
    m_comboTimezone->setObjectName(QStringLiteral("comboTimezone"));
    m_comboTimezone->addItems(TimeZones::names());
    m_chkDaylightSaving->setObjectName(QStringLiteral("chkDaylightSaving"));
    m_buttons->button(QDialogButtonBox::Ok)->setText(tr("OK"));
    m_buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
}

void DeviceTimePanel::setUpLayout() {
    auto* layout = new QGridLayout(this);
    layout->setHorizontalSpacing(16);
    layout->setVerticalSpacing(8);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    int row = 0;
    layout->addWidget(new QLabel(tr("Controller's clock"), this), row, 0);
    layout->addWidget(m_lblDeviceTime, row++, 1);
    layout->addWidget(new QLabel(tr("Computer's clock"), this), row, 0);
    layout->addWidget(m_lblComputerTime, row++, 1);
    layout->addWidget(m_lblDifference, row++, 0, 1, 2);
    layout->setRowMinimumHeight(row++, 8);
    layout->addWidget(m_radioComputerTime, row++, 0);
    layout->addWidget(m_radioCustomTime, row, 0);
    layout->addWidget(m_pickerCustomTime, row++, 1);
    layout->addWidget(caption(tr("&Time zone"), m_comboTimezone, this), row, 0);
    layout->addWidget(m_comboTimezone, row++, 1);
    layout->addWidget(m_chkDaylightSaving, row++, 1);
    layout->setRowMinimumHeight(row++, 8);
    layout->addWidget(m_buttons, row, 0, 1, 2);

    // Room for the longest texts, so that nothing jumps while the clocks run.
    const QFontMetrics metrics(font());
    m_lblDifference->setMinimumWidth(48 * metrics.averageCharWidth());
    m_lblDifference->setMinimumHeight(2 * metrics.lineSpacing());
    m_lblDeviceTime->setMinimumWidth(
        metrics.horizontalAdvance(QStringLiteral("00/00/0000, 00:00:00 AM ")));
}

void DeviceTimePanel::menuSetDeviceTime() {
    if (isVisible())
        return;
    const QDateTime now = m_clock.now();
    askDevice(now);
    preset(now);
    setConnected(m_controller.isConnected());
    onUpdateTime();
    m_updateTimeTimer->start(m_intervals.update);
    show();
    (m_radioComputerTime->isChecked() ? m_radioComputerTime : m_radioCustomTime)->setFocus();
}

void DeviceTimePanel::preset(const QDateTime& now) {
    const QTimeZone zone = m_clock.zone();
    m_offsetAtOpening = zone.offsetFromUtc(now);
    m_preselectedZone = TimeZones::indexOfOffset(m_offsetAtOpening);
    m_pickerCustomTime->setDateTime(WallTime::at(now, m_offsetAtOpening));
    m_comboTimezone->setCurrentIndex(m_preselectedZone);
    m_chkDaylightSaving->setChecked(TimeZones::observesDaylightSaving(zone, now));
}

void DeviceTimePanel::askDevice(const QDateTime& now) {
    m_deviceTime = DeviceTime::Unknown;
    m_controller.send(CmdGetRTC(), [panel = QPointer(this), now](const YAnswer& answer) {
        if (panel)
            panel->onAnswer(answer, now);
    });
}

void DeviceTimePanel::onAnswer(const YAnswer& answer, const QDateTime& askedAt) {
    const auto* rtc = dynamic_cast<const AnswerRTC*>(&answer);
    if (!rtc)
        return;
    if (const auto deviceTime = WallTime::fromAnswer(*rtc)) {
        const QDateTime computerTime = WallTime::at(askedAt, m_offsetAtOpening);
        m_deltaTime = static_cast<double>(computerTime.msecsTo(*deviceTime)) / msecsPerSecond;
        m_deviceTime = DeviceTime::Known;
    } else {
        m_invalidDate = dateAsTold(*rtc);
        m_deviceTime = DeviceTime::Invalid;
    }
    onUpdateTime();
}

void DeviceTimePanel::onUpdateTime() {
    const QDateTime now = m_clock.now();
    m_lblComputerTime->setText(WallTime::text(WallTime::at(now, m_clock.zone())));
    if (m_deviceTime == DeviceTime::Invalid) {
        m_lblDeviceTime->setText(tr("invalid date from the controller"));
    } else {
        const auto delta = static_cast<qint64>(std::llround(m_deltaTime * msecsPerSecond));
        m_lblDeviceTime->setText(
            WallTime::text(WallTime::at(now, m_offsetAtOpening).addMSecs(delta)));
    }
    updateDifference();
}

void DeviceTimePanel::updateDifference() {
    switch (m_deviceTime) {
    case DeviceTime::Unknown:
        m_lblDifference->setText(
            m_isConnected ? tr("The controller has not told the time of its clock yet.")
                          : tr("The controller is not connected; its clock cannot be set."));
        break;
    case DeviceTime::Invalid:
        m_lblDifference->setText(tr("There is no such date as the controller's: %1. "
                                    "\"OK\" sets its clock.")
                                     .arg(m_invalidDate));
        break;
    case DeviceTime::Known: {
        const QDateTime now = m_clock.now();
        const int jump = m_clock.zone().offsetFromUtc(now) - m_offsetAtOpening;
        m_lblDifference->setText(WallTime::differenceText(m_deltaTime - jump));
        break;
    }
    }
}

void DeviceTimePanel::setConnected(bool isConnected) {
    const bool isBack = isConnected && !m_isConnected && isVisible();
    m_isConnected = isConnected;
    QPushButton* ok = m_buttons->button(QDialogButtonBox::Ok);
    ok->setEnabled(isConnected);
    ok->setToolTip(isConnected ? tr("Set the controller's clock")
                               : tr("The controller is not connected"));
    if (!isConnected)
        m_deviceTime = DeviceTime::Unknown;
    else if (isBack)
        askDevice(m_clock.now());
    updateDifference();
}

QDateTime DeviceTimePanel::chosenTime() const {
    if (!m_radioComputerTime->isChecked()) {
        m_pickerCustomTime->interpretText();
        return m_pickerCustomTime->dateTime();
    }
    constexpr qint64 secondsPerHour = 3600;
    const int hours = m_comboTimezone->currentIndex() - m_preselectedZone;
    return WallTime::at(m_clock.now(), m_clock.zone()).addSecs(hours * secondsPerHour);
}

void DeviceTimePanel::onPanelSetDeviceTime() {
    const QDateTime chosen = chosenTime();
    const QDate date = chosen.date();
    const QTime time = chosen.time();
    const int utcOffset = TimeZones::hoursAt(m_comboTimezone->currentIndex());
    accept();
    m_controller.send(CmdSetRTC(time.hour(), time.minute(), time.second(), date.day(), date.month(),
                                date.year()));
    m_controller.send(
        CmdSetDaylightInfo(m_chkDaylightSaving->isChecked(), static_cast<std::int8_t>(utcOffset)));
}

#include "workflows/DeviceTimePanel.h"
#include "workflows/SimulatedLink.h"
#include "workflows/TimeZones.h"
#include "workflows/WallTime.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace {

QDateTime utc(const char* text) {
    return QDateTime::fromString(QLatin1String(text) + u'Z', Qt::ISODate);
}

class DeviceTimePanelTest : public testing::Test {
protected:
    void SetUp() override {
        link.connectedChanged = [this](bool isConnected) { panel.setConnected(isConnected); };
        ASSERT_TRUE(link.connect());
    }
    void open() {
        panel.menuSetDeviceTime();
        ASSERT_TRUE(link.receives({"CmdGetRTC"}));
        link.ignoreSoFar();
    }
    /// Opens it and waits for the controller's clock.
    void openWithClock() {
        open();
        ASSERT_TRUE(link.waitFor(
            [this] { return !difference().contains(QStringLiteral("has not told")); }));
    }
    template <class Control>
    Control& control(const char* name) const {
        return *panel.findChild<Control*>(QLatin1String(name));
    }
    QString deviceTime() const { return control<QLabel>("lblDeviceTime").text(); }
    QString computerTime() const { return control<QLabel>("lblComputerTime").text(); }
    QString difference() const { return control<QLabel>("lblTimeDifference").text(); }
    QPushButton& ok() const {
        return *panel.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    }
    QTimer& updateTimer() const {
        return *panel.findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    }

    SimulatedLink link{[] { return std::chrono::nanoseconds(0); }};
    QDateTime now = utc("2017-12-24T07:15:30");
    QTimeZone zone{QByteArrayLiteral("Europe/Berlin")};
    DeviceTimePanel panel{link.controller, nullptr,
                          ComputerClock{[this] { return now; }, [this] { return zone; }},
                          DeviceTimePanel::Intervals{.update = std::chrono::milliseconds(1)}};
};

TEST(TimeZones, listAndPreselection) {
    const QStringList names = TimeZones::names();
    ASSERT_EQ(names.size(), 25);
    EXPECT_EQ(names.at(0), QStringLiteral("UTC -12:00"));
    EXPECT_EQ(names.at(11), QStringLiteral("UTC -1:00"));
    EXPECT_EQ(names.at(12), QStringLiteral("UTC"));
    EXPECT_EQ(names.at(13), QStringLiteral("UTC +1:00"));
    EXPECT_EQ(names.at(24), QStringLiteral("UTC +12:00"));

    struct Case {
        const char* zone;
        const char* instant;
        int index;
        bool daylightSaving;
    };
    const Case cases[] = {
        {"UTC", "2024-01-01T00:00:00", 12, false},
        {"Europe/Berlin", "2024-01-15T12:00:00", 13, true},
        {"Europe/Berlin", "2024-07-15T12:00:00", 14, true},
        {"America/New_York", "2024-01-15T12:00:00", 7, true},
        {"America/St_Johns", "2024-01-15T12:00:00", 9, true}, // -3:30
        {"Asia/Kolkata", "2024-07-15T12:00:00", 17, false},   // +5:30
        {"Australia/Adelaide", "2024-01-15T12:00:00", 22, true},
        {"Europe/Moscow", "2024-07-15T12:00:00", 15, false}, // until 2011
        {"America/Sao_Paulo", "2024-01-15T12:00:00", 9, false},
        {"Pacific/Kiritimati", "2024-01-15T12:00:00", 24, false}, // +14:00
        {"Etc/GMT+12", "2024-01-15T12:00:00", 0, false},
        {"Europe/Berlin", "2060-01-15T12:00:00", 13, true},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.zone);
        const QTimeZone zone{QByteArray(test.zone)};
        const QDateTime instant = utc(test.instant);
        EXPECT_EQ(TimeZones::indexOfOffset(zone.offsetFromUtc(instant)), test.index);
        EXPECT_EQ(TimeZones::observesDaylightSaving(zone, instant), test.daylightSaving);
    }
}

TEST(WallTime, differenceInWords) {
    const std::pair<double, const char*> cases[] = {
        {0.0, "shows the same time as the computer's."},
        {-0.98, "shows the same time as the computer's."},
        {1.2, "shows the same time as the computer's."},
        {2.0, "is 2 seconds ahead of the computer's."},
        {-192.4, "is 3 minutes 12 seconds behind the computer's."},
        {60.0, "is 1 minute ahead of the computer's."},
        {3601.0, "is 1 hour ahead of the computer's."},
        {-86400.0 - 7260.0, "is 1 day 2 hours behind the computer's."},
    };
    for (const auto& [seconds, text] : cases)
        EXPECT_EQ(WallTime::differenceText(seconds),
                  QStringLiteral("The controller's clock ") + QLatin1String(text));
}

TEST_F(DeviceTimePanelTest, showsBothClocksAndHowFarTheyAreApart) {
    link.device.setClock({.second = 18, .minute = 12, .hour = 8, .day = 24, .month = 12});
    openWithClock();
    EXPECT_EQ(panel.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(computerTime(), QStringLiteral("12/24/2017, 08:15:30 AM"));
    EXPECT_EQ(deviceTime(), QStringLiteral("12/24/2017, 08:12:18 AM"));
    EXPECT_EQ(
        difference(),
        QStringLiteral("The controller's clock is 3 minutes 12 seconds behind the computer's."));
    EXPECT_DOUBLE_EQ(panel.deltaTime(), -192.0);
    EXPECT_EQ(control<QComboBox>("comboTimezone").currentIndex(), 13);
    EXPECT_TRUE(control<QCheckBox>("chkDaylightSaving").isChecked());
    EXPECT_EQ(control<QDateTimeEdit>("pickerCustomTime").text(), computerTime());

    // Past noon, while the window is modal and the link's own timers wait.
    link.pause.setActive(true);
    now = now.addSecs(4 * 3600);
    EXPECT_TRUE(link.waitFor(
        [this] { return computerTime() == QStringLiteral("12/24/2017, 12:15:30 PM"); }));
    EXPECT_EQ(deviceTime(), QStringLiteral("12/24/2017, 12:12:18 PM"));

    panel.reject();
    EXPECT_FALSE(updateTimer().isActive());
    EXPECT_TRUE(link.commands().empty());
    // Unanswered, the next opening shows what is known from this one, and says that it is not sure.
    link.faults.add(*Fault::parse("silence"));
    panel.menuSetDeviceTime();
    EXPECT_TRUE(updateTimer().isActive());
    EXPECT_EQ(deviceTime(), QStringLiteral("12/24/2017, 12:12:18 PM"));
    EXPECT_EQ(difference(),
              QStringLiteral("The controller has not told the time of its clock yet."));
}

TEST_F(DeviceTimePanelTest, onlyTheComputersClockJumpsToDaylightSaving) {
    now = utc("2024-03-31T00:59:59");
    link.device.setClock(
        {.second = 59, .minute = 59, .hour = 1, .day = 31, .month = 3, .year = 24});
    openWithClock();
    EXPECT_EQ(deviceTime(), computerTime());
    now = now.addSecs(1801);
    EXPECT_TRUE(link.waitFor(
        [this] { return computerTime() == QStringLiteral("03/31/2024, 03:30:00 AM"); }));
    EXPECT_EQ(deviceTime(), QStringLiteral("03/31/2024, 02:30:00 AM"));
    EXPECT_EQ(difference(),
              QStringLiteral("The controller's clock is 1 hour behind the computer's."));
}

TEST_F(DeviceTimePanelTest, impossibleDatesAreShownAsSuchAndChangeNothing) {
    link.device.setClock({.second = 30, .minute = 15, .hour = 9, .day = 24, .month = 12});
    openWithClock();
    panel.reject();
    ASSERT_DOUBLE_EQ(panel.deltaTime(), 3600.0);

    struct Case {
        ClockFields fields;
        const char* text;
    };
    const Case cases[] = {
        {{.day = 1, .month = 13}, "13/01/2017, 00:00:00"},
        {{.day = 31, .month = 2, .year = 24}, "02/31/2024, 00:00:00"},
        {{.day = 29, .month = 2, .year = 23}, "02/29/2023, 00:00:00"},
        {{.day = 0, .month = 0, .year = 0}, "00/00/2000, 00:00:00"},
        {{.second = 61, .minute = 60, .hour = 25}, "01/01/2017, 25:60:61"},
        {{.second = 165, .minute = 165, .hour = 165, .day = 165, .month = 165, .year = 165},
         "165/165/2165, 165:165:165"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.text);
        link.ignoreSoFar();
        link.device.setClock(test.fields);
        openWithClock();
        EXPECT_EQ(deviceTime(), QStringLiteral("invalid date from the controller"));
        EXPECT_TRUE(difference().contains(QLatin1String(test.text))) << difference().toStdString();
        EXPECT_TRUE(ok().isEnabled());
        EXPECT_DOUBLE_EQ(panel.deltaTime(), 3600.0);
        panel.reject();
    }
}

TEST_F(DeviceTimePanelTest, whatOkSends) {
    struct Case {
        const char* zone;
        const char* instant;    ///< UTC
        int zoneSteps;          ///< away from the preselected zone
        const char* customTime; ///< none: the computer's
        const char* setRTC;     ///< second, minute, hour, day, month, year
        const char* daylight;
    };
    const Case cases[] = {
        {"Europe/Berlin", "2017-12-24T07:15:30", 0, nullptr, "30 15 8 24 12 17", "128 1"},
        // The last second before and the first of daylight saving, and its end.
        {"Europe/Berlin", "2024-03-31T00:59:59", 0, nullptr, "59 59 1 31 3 24", "128 1"},
        {"Europe/Berlin", "2024-03-31T01:00:00", 0, nullptr, "0 0 3 31 3 24", "128 2"},
        {"Europe/Berlin", "2024-10-27T00:59:59", 0, nullptr, "59 59 2 27 10 24", "128 2"},
        {"Europe/Berlin", "2024-10-27T01:00:00", 0, nullptr, "0 0 2 27 10 24", "128 1"},
        // 02:30 exists that night for the controller, if not for the computer.
        {"Europe/Berlin", "2024-03-31T00:30:00", 1, nullptr, "0 30 2 31 3 24", "128 2"},
        {"Europe/Berlin", "2024-03-31T00:30:00", 0, "2024-03-31T02:30:00", "0 30 2 31 3 24",
         "128 1"},
        // Half hours, also where the truncated zone lies on the other side.
        {"Asia/Kolkata", "2024-12-31T18:29:59", 0, nullptr, "59 59 23 31 12 24", "0 5"},
        {"Asia/Kolkata", "2024-12-31T18:30:00", 0, nullptr, "0 0 0 1 1 25", "0 5"},
        {"America/St_Johns", "2024-01-15T03:30:00", 0, nullptr, "0 0 0 15 1 24", "128 253"},
        {"America/St_Johns", "2024-01-15T03:30:00", -2, nullptr, "0 0 22 14 1 24", "128 251"},
        // The turn of day, month and year by the zone alone.
        {"UTC", "2024-12-31T23:30:00", 1, nullptr, "0 30 0 1 1 25", "0 1"},
        {"UTC", "2024-03-01T00:30:00", -1, nullptr, "0 30 23 29 2 24", "0 255"},
        {"UTC", "2024-05-05T12:00:00", -12, nullptr, "0 0 0 5 5 24", "0 244"},
        {"UTC", "2024-05-05T12:00:00", 12, nullptr, "0 0 0 6 5 24", "0 12"},
        // The zone is told, not applied to what is typed; years to the ends of a byte.
        {"UTC", "2024-05-05T12:00:00", 5, "2000-01-01T00:00:00", "0 0 0 1 1 0", "0 5"},
        {"UTC", "2024-05-05T12:00:00", 0, "2255-12-31T23:59:59", "59 59 23 31 12 255", "0 0"},
        {"UTC", "2024-05-05T12:00:00", 0, "2256-06-01T12:00:00", "59 59 23 31 12 255", "0 0"},
        {"UTC", "1970-01-01T00:00:07", 0, nullptr, "7 0 0 1 1 0", "0 0"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(testing::Message()
                     << test.zone << ' ' << test.instant << ' ' << test.zoneSteps);
        zone = QTimeZone(QByteArray(test.zone));
        // The panel is opened an hour after the instant, which comes back on pressing the button:
        // that is the time that counts. Only the hours around a change of the clocks stay as they
        // are.
        const QDateTime instant = utc(test.instant);
        now = instant.addSecs(3600);
        if (zone.offsetFromUtc(now) != zone.offsetFromUtc(instant))
            now = instant;
        open();
        now = instant;
        auto& combo = control<QComboBox>("comboTimezone");
        combo.setCurrentIndex(combo.currentIndex() + test.zoneSteps);
        auto& picker = control<QDateTimeEdit>("pickerCustomTime");
        control<QRadioButton>(test.customTime ? "radioCustomTime" : "radioComputerTime").click();
        EXPECT_EQ(picker.isEnabled(), test.customTime != nullptr);
        if (test.customTime)
            picker.setDateTime(utc(test.customTime));
        ok().click();
        EXPECT_FALSE(panel.isVisible());
        EXPECT_FALSE(updateTimer().isActive());
        EXPECT_TRUE(link.receives({std::string("CmdSetRTC ") + test.setRTC,
                                   std::string("CmdSetDaylightInfo ") + test.daylight}));
        link.ignoreSoFar();
    }
}

TEST_F(DeviceTimePanelTest, aLostLinkLeavesTheClocksRunningAndNothingToSet) {
    openWithClock();
    EXPECT_TRUE(ok().isEnabled());
    ASSERT_TRUE(link.disconnect());
    EXPECT_TRUE(panel.isVisible());
    EXPECT_FALSE(ok().isEnabled());
    EXPECT_EQ(ok().toolTip(), QStringLiteral("The controller is not connected"));
    EXPECT_EQ(difference(),
              QStringLiteral("The controller is not connected; its clock cannot be set."));
    now = now.addSecs(60);
    EXPECT_TRUE(link.waitFor(
        [this] { return computerTime() == QStringLiteral("12/24/2017, 08:16:30 AM"); }));

    // Another controller may have come: it is asked anew.
    link.device.setClock({.second = 30, .minute = 16, .hour = 8, .day = 24, .month = 12});
    link.ignoreSoFar();
    link.ports.plug("ttyUSB0", link.device, link.faults);
    EXPECT_TRUE(link.receives({"CmdGetRTC"}));
    EXPECT_TRUE(ok().isEnabled());
    EXPECT_TRUE(link.waitFor([this] {
        return difference() ==
               QStringLiteral("The controller's clock shows the same time as the computer's.");
    }));
}

} // namespace

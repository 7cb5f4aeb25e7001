#include "workflows/DeviceTimePanel.h"
#include "workflows/SimulatedLink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
    template <class Control>
    Control& control(const char* name) const {
        return *panel.findChild<Control*>(QLatin1String(name));
    }
    std::string text(const char* label) const {
        return control<QLabel>(label).text().toStdString();
    }
    std::string difference() const { return text("lblTimeDifference"); }

    SimulatedLink link{[] { return std::chrono::nanoseconds(0); }};
    QDateTime now = utc("2017-12-24T07:15:30");
    QTimeZone zone{QByteArrayLiteral("Europe/Berlin")};
    DeviceTimePanel panel{link.controller, nullptr,
                          ComputerClock{[this] { return now; }, [this] { return zone; }},
                          DeviceTimePanel::Intervals{.update = std::chrono::milliseconds(1)}};
};

TEST_F(DeviceTimePanelTest, clocksGoOnOverTheTurnOfAnHourByLawAndBehindModalWindows) {
    link.device.setClock({.second = 18, .minute = 12, .hour = 8, .day = 24, .month = 12});
    open();
    const std::string behind =
        "The controller's clock is 3 minutes 12 seconds behind the computer's.";
    EXPECT_TRUE(link.waitFor([&] { return difference() == behind; })) << difference();
    link.pause.setActive(true);
    now = utc("2018-03-25T12:15:30");
    EXPECT_TRUE(
        link.waitFor([this] { return text("lblComputerTime") == "03/25/2018, 02:15:30 PM"; }));
    EXPECT_EQ(text("lblDeviceTime"), "03/25/2018, 01:12:18 PM");
    EXPECT_EQ(difference(), "The controller's clock is 1 hour 3 minutes behind the computer's.");
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
        {"Europe/Berlin", "2024-10-27T01:00:00", 0, nullptr, "0 0 2 27 10 24", "128 1"},
        // 02:30 exists that night for the controller, if not for the computer.
        {"Europe/Berlin", "2024-03-31T00:30:00", 0, "2024-03-31T02:30:00", "0 30 2 31 3 24",
         "128 1"},
        // Half hours, more than 12 hours, and what was given up in 2011.
        {"Asia/Kolkata", "2024-12-31T18:30:00", 0, nullptr, "0 0 0 1 1 25", "0 5"},
        {"Pacific/Kiritimati", "2024-01-15T12:00:00", 0, nullptr, "0 0 2 16 1 24", "0 12"},
        // The turn of day, month and year by the zone alone.
        {"UTC", "2024-03-01T00:30:00", -1, nullptr, "0 30 23 29 2 24", "0 255"},
        // The zone is told, not applied to what is typed; years to the ends of a byte.
        {"UTC", "2024-05-05T12:00:00", 0, "2255-12-31T23:59:59", "59 59 23 31 12 255", "0 0"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(testing::Message()
                     << test.zone << ' ' << test.instant << ' ' << test.zoneSteps);
        zone = QTimeZone(QByteArray(test.zone));
        // The time of pressing the button counts, a second after the opening; in the hours around
        // a change of the clocks the zone is that of the opening.
        now = utc(test.instant);
        if (zone.offsetFromUtc(now.addSecs(-1)) == zone.offsetFromUtc(now))
            now = now.addSecs(-1);
        open();
        now = utc(test.instant);
        auto& combo = control<QComboBox>("comboTimezone");
        combo.setCurrentIndex(combo.currentIndex() + test.zoneSteps);
        auto& picker = control<QDateTimeEdit>("pickerCustomTime");
        control<QRadioButton>(test.customTime ? "radioCustomTime" : "radioComputerTime").click();
        EXPECT_EQ(picker.isEnabled(), test.customTime != nullptr);
        if (test.customTime)
            picker.setDateTime(utc(test.customTime));
        panel.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        EXPECT_FALSE(panel.isVisible());
        EXPECT_TRUE(link.receives({std::string("CmdSetRTC ") + test.setRTC,
                                   std::string("CmdSetDaylightInfo ") + test.daylight}));
        link.ignoreSoFar();
    }
}

} // namespace

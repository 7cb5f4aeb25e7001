#include "SimulatedProgram.h"
#include "controls/curve/AQCurveView.h"
#include "data/ColorMapping.h"
#include "data/DeviceProgramImage.h"
#include "workflows/DayWatch.h"
#include "workflows/ScriptedPrompts.h"

#include <gtest/gtest.h>

#include <QDateEdit>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

namespace {

using namespace std::chrono_literals;

/// The whole program with a full light at noon, in an acclimation of ten days from 55 %.
class AcclimationProgramTest : public testing::Test, public SimulatedProgram<ScriptedPrompts> {
protected:
    AcclimationProgramTest()
        : SimulatedProgram({.scan = 20ms, .answer = 50ms, .arrival = 1ms, .maxTimeouts = 3}) {
        start();
        data.sequence().replaceAll({{{8, 0}, 0.5, 0.0}, {{12, 0}, 0.5, 1.0}}, {}, nullptr);
        data.markSaved();
    }
    QDialog* panel() {
        ui().menuitemAcclimate->trigger();
        return delegate.window().findChild<QDialog*>(QStringLiteral("panelAcclimation"));
    }
    void acclimate() {
        QDialog* dialog = panel();
        dialog->findChild<QSpinBox*>(QStringLiteral("spinStart"))->setValue(55);
        dialog->findChild<QSpinBox*>(QStringLiteral("spinDays"))->setValue(10);
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    }
    void becomeTomorrow() {
        today = today.addDays(1);
        Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationActive);
    }
    std::string sign() {
        return ui().bttnAcclimation->isVisible() ? ui().bttnAcclimation->text().toStdString() : "";
    }
    std::string lampState() { return ui().lblLampState->text().toStdString(); }
    void send() {
        prompts.told.clear();
        prompts.confirmations = {true};
        ui().bttnSend->click();
        EXPECT_TRUE(runUntil([&] { return prompts.told.size() == 1; }));
    }
    /// What the controller would store of the program at this intensity.
    bool isStoredAt(double intensity) {
        auto contents = data.contents();
        contents.points.back().brightness = intensity;
        const auto image = DeviceProgramImage::imageOf(contents, 2);
        return device.state().sequence[0] == image.channels[0] &&
               device.state().sequence[1] == image.channels[1];
    }
};

TEST_F(AcclimationProgramTest, givesTheLampTheLightOfTheDay) {
    connect();
    acclimate();
    EXPECT_EQ(sign(), "Acclimation day 1 of 10: 55 %");
    EXPECT_TRUE(data.isDirty());
    send();
    EXPECT_TRUE(prompts.asked.last().endsWith(u"Acclimation day 1 of 10: 55 % is sent"));
    EXPECT_TRUE(isStoredAt(0.55));
    EXPECT_EQ(data.sequence().points().back().brightness, 1.0);
    EXPECT_EQ(lampState(), "the lamp runs this program");

    becomeTomorrow();
    EXPECT_EQ(sign(), "Acclimation day 2 of 10: 60 %");
    EXPECT_EQ(lampState(), "the lamp runs another program");
    EXPECT_EQ(ui().lblLampState->toolTip().section(u'\n', 0, 0),
              QStringLiteral("The lamp runs yesterday's 55 %; send it today's 60 %"));
    ui().menuitemBackup->trigger();
    EXPECT_TRUE(runUntil([&] { return prompts.asked.last().startsWith(u"save as"); }));
    EXPECT_EQ(prompts.asked.last(), QStringLiteral("save as Lamp at 55 %.sq"));
    becomeTomorrow();
    EXPECT_EQ(ui().lblLampState->toolTip().section(u'\n', 0, 0),
              QStringLiteral("The lamp runs the 55 % of day 1; send it today's 65 %"));
    send();
    EXPECT_TRUE(isStoredAt(0.65));
    EXPECT_TRUE(ui().lblLampState->toolTip().startsWith(u"If it is in programmed mode"));

    // Live mode and the demo show it too; the task light is as it was.
    const auto shows = [&](double colorTemp, double intensity) {
        const auto levels = levelsFromLight(colorTemp, intensity);
        EXPECT_TRUE(runUntil([&] {
            return device.state().demoLevels[0] == levels.cold &&
                   device.state().demoLevels[1] == levels.warm;
        })) << intensity;
    };
    data.selection().moveTo(data.sequence().points().back().id, true);
    ui().bttnLiveModeSwitch->click();
    shows(0.5, 0.65);
    becomeTomorrow();
    shows(0.5, 0.7);
    ui().sliderTaskBrightness->userSetValue(0.9);
    shows(data.taskLight().colorTemp, 0.9);
    ui().bttnLiveModeSwitch->click();
    ui().bttnRunDemo->click();
    for (const auto key : {Qt::Key_Space, Qt::Key_Right, Qt::Key_Right}) // paused, and on to noon
        QTest::keyClick(&delegate.window().curveView(), key);
    shows(0.5, 0.7);
    becomeTomorrow();
    shows(0.5, 0.75);
    ui().bttnRunDemo->click();

    // Another task light has no part in it.
    send();
    ui().sliderTaskBrightness->userSetValue(0.8);
    EXPECT_EQ(lampState(), "the lamp runs another program");
    EXPECT_FALSE(ui().lblLampState->toolTip().contains(QStringLiteral("75 %")));
    becomeTomorrow();
    EXPECT_TRUE(ui().lblLampState->toolTip().startsWith(u"The lamp runs yesterday's 75 %"));
}

TEST_F(AcclimationProgramTest, endsWithAWordBefore) {
    connect();
    acclimate();
    send();
    data.markSaved();
    ui().bttnLoad->click();
    EXPECT_TRUE(prompts.asked.last().startsWith(u"Loading ends the acclimation!"));
    EXPECT_EQ(received("CmdGetSequenceData"), 0);
    prompts.confirmations = {true};
    ui().bttnLoad->click();
    EXPECT_TRUE(runUntil([&] { return !data.acclimation(); }));
    EXPECT_EQ(sign(), "");
    EXPECT_EQ(lampState(), "the lamp runs this program");
    ui().menuitemUndo->trigger();
    EXPECT_EQ(sign(), "Acclimation day 1 of 10: 55 %");
    EXPECT_EQ(data.sequence().points().back().brightness, 1.0);
    EXPECT_EQ(lampState(), "the lamp runs this program");
    ui().menuitemUndo->trigger();
    EXPECT_EQ(sign(), "");
    ui().menuitemRedo->trigger();

    ui().menuitemCompare->trigger();
    const auto compare = [this] {
        return delegate.window().findChild<QDialog*>(QStringLiteral("panelCompare"));
    };
    ASSERT_TRUE(runUntil([&] { return compare() && compare()->isVisible(); }));
    EXPECT_EQ(compare()->findChild<QPlainTextEdit*>()->toPlainText(),
              QStringLiteral("Nothing differs."));
    EXPECT_TRUE(compare()
                    ->findChild<QLabel*>(QStringLiteral("lblNotes"))
                    ->text()
                    .contains(u"ends the acclimation"));
    compare()->reject();

    panel()->findChild<QPushButton*>(QStringLiteral("bttnEndAcclimation"))->click();
    EXPECT_EQ(sign(), "");
    EXPECT_EQ(data.history().undoName(), QStringLiteral("End Acclimation"));
    data.history().undo();
    today = today.addDays(9);
    becomeTomorrow();
    EXPECT_EQ(sign(), "Acclimation is over: end it");
    ui().bttnAcclimation->click();
    EXPECT_FALSE(data.acclimation());
    data.history().undo();
    prompts.saveAnswers = {Prompts::SaveAnswer::Discard};
    ui().menuitemNew->trigger();
    EXPECT_EQ(sign(), "");
    EXPECT_FALSE(data.isDirty());
}

// By the computer's own clock, in a zone where it is midnight soon.
TEST(DayWatch, wakesAtMidnight) {
    const QByteArray zone = qgetenv("TZ");
    const QTime now = QDateTime::currentDateTimeUtc().time();
    const QTime west =
        QTime(0, 0).addSecs(now.hour() * 3600 + now.minute() * 60 + now.second() + 2);
    qputenv("TZ", "SOON" + west.toString(QStringLiteral("hh:mm:ss")).toLatin1());
    NotificationCenter notifications;
    AQDataSource data(notifications);
    DayWatch watch(data);
    data.setAcclimation(Acclimation{50, 10, data.today()});
    Q_EMIT notifications.acclimationChanged(nullptr);
    std::vector<int> days;
    QObject::connect(&notifications, &NotificationCenter::dayChanged, &watch,
                     [&] { days.push_back(data.acclimation()->dayOn(data.today())); });
    EXPECT_TRUE(runUntil([&] { return !days.empty(); }));
    EXPECT_EQ(days, std::vector{2});
    qputenv("TZ", zone);
}

} // namespace

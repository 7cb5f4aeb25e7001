#include "SimulatedProgram.h"
#include "controls/curve/AQCurveView.h"
#include "controls/sliders/AQSliderBrightness.h"
#include "controls/window/AQPreviewSign.h"
#include "data/AQDataSourceReader.h"
#include "workflows/ScriptedPrompts.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

using namespace std::chrono_literals;

const std::string runsThis = "the lamp runs this program";
const std::string runsAnother = "the lamp runs another program";
const std::string notRead = "What the lamp holds has not been read yet.";

/// The whole program, and what it knows of the lamp.
class LampProgramTest : public testing::Test, public SimulatedProgram<ScriptedPrompts> {
protected:
    LampProgramTest()
        : SimulatedProgram({.scan = 20ms, .answer = 50ms, .arrival = 1ms, .maxTimeouts = 3}) {
        start();
    }
    std::string state() { return ui().lblLampState->text().toStdString(); }
    /// The third text of the question before sending.
    std::string lineAsked() const { return prompts.asked.last().section(u'|', 2).toStdString(); }
    bool becomes(const std::string& text) {
        return runUntil([&] { return state() == text; });
    }
    /// Sends, and waits until this many alerts were shown in all.
    void send(int alerts) {
        prompts.confirmations = {true};
        ui().bttnSend->click();
        EXPECT_TRUE(runUntil([&] { return prompts.told.size() >= alerts; }));
    }
    QDialog* compare() {
        ui().menuitemCompare->trigger();
        const auto panel = [this] {
            return delegate.window().findChild<QDialog*>(QStringLiteral("panelCompare"));
        };
        EXPECT_TRUE(runUntil([&] { return panel() && panel()->isVisible(); }));
        return panel();
    }
    static std::string textOf(QDialog* panel) {
        return panel->findChild<QPlainTextEdit*>()->toPlainText().toStdString();
    }
    static QAbstractButton* button(QDialog* panel, const char* name) {
        return panel->findChild<QAbstractButton*>(QLatin1String(name));
    }
};

TEST_F(LampProgramTest, tellsWhatTheLampHolds) {
    connect();
    EXPECT_EQ(state(), "");
    EXPECT_EQ(ui().lblConnectionStatus->toolTip(), QStringLiteral("not read yet"));
    send(1);
    EXPECT_EQ(lineAsked(), notRead);
    EXPECT_EQ(state(), runsThis);
    EXPECT_EQ(ui().lblConnectionStatus->toolTip(), QString());
    EXPECT_TRUE(ui().lblLampState->toolTip().startsWith(u"If it is in programmed mode"));
    ui().sliderTaskBrightness->userSetValue(0.5);
    EXPECT_EQ(state(), runsAnother);
    ui().bttnSend->click();
    EXPECT_EQ(lineAsked(), "The task light changes");
    ui().menuitemUndo->trigger();
    EXPECT_EQ(state(), runsThis);
    ui().bttnSwitchProgMode->click();
    EXPECT_TRUE(becomes("the lamp follows its analog input"));
    ui().bttnSwitchProgMode->click();
    EXPECT_TRUE(becomes(runsThis));
    EXPECT_TRUE(runUntil([&] { return ui().lblLampState->toolTip().isEmpty(); })) << "told";
    ports.unplug("ttyUSB0");
    EXPECT_TRUE(becomes({}));
    plug();
    EXPECT_TRUE(runUntil([&] { return isConnected(); }));
    EXPECT_EQ(ui().lblConnectionStatus->toolTip(), QStringLiteral("not read yet"));
}

TEST_F(LampProgramTest, aLoadThatCannotBeGivenBackIsThisProgram) {
    connect();
    for (auto& channel : device.editState().sequence)
        channel[0].level = 86;
    ui().bttnLoad->click();
    EXPECT_TRUE(becomes(runsThis));
    EXPECT_FALSE(data.isDirty());
    // Sent over, what was loaded is nowhere any more.
    ui().sliderTaskBrightness->userSetValue(0.5);
    send(1);
    ui().menuitemUndo->trigger();
    EXPECT_TRUE(data.isDirty());
}

// Once a controller is known to name no channels, an answer that comes twice is taken for the
// next channel's.
TEST_F(LampProgramTest, aLateAnswerIsNoOtherProgram) {
    connect();
    fault("channel=0");
    send(1);
    fault("twice#44@1");
    send(2);
    EXPECT_EQ(prompts.told.size(), 2);
    EXPECT_EQ(state(), "") << "what the next channel holds was not told";
}

TEST_F(LampProgramTest, readsBackWhatASendStored) {
    const std::pair<const char*, const char*> cases[] = {
        {"other-levels=1#50", "Task light: 100 % here, 97 % in the lamp"},
        {"fewer-points=1#44", "23:30 only here"},
        {"shorter=21#44", ""}, // not told: the answers name their channel and no more
        {"shorter=1#44", ""},
    };
    for (const auto& [spoilt, difference] : cases) {
        SCOPED_TRACE(spoilt);
        connect();
        fault(spoilt);
        const bool isTold = *difference != '\0';
        prompts.told.clear();
        send(isTold ? 2 : 1);
        EXPECT_TRUE(prompts.told.first().startsWith(u"Upload was successfull!"));
        if (isTold) {
            EXPECT_EQ(prompts.told.last().toStdString(),
                      std::string("The device stored something else!|") + difference);
        }
        EXPECT_EQ(state(), isTold ? runsAnother : "");
        EXPECT_EQ(ui().lblConnectionStatus->toolTip().startsWith(u"sent, but"), !isTold);
        faults.clear();
        ports.unplug("ttyUSB0");
        ASSERT_TRUE(runUntil([&] { return !isConnected(); }));
    }
}

TEST_F(LampProgramTest, aBrokenSendIsRememberedUntilTheLampIsKnown) {
    const std::string part = "the lamp may hold a part of this program";
    connect();
    fault("silence#44@2..");
    prompts.confirmations = {true};
    ui().bttnSend->click();
    EXPECT_TRUE(becomes(part));
    EXPECT_FALSE(isConnected());
    EXPECT_EQ(prompts.told.size(), 1);
    faults.clear();
    ports.unplug("ttyUSB0");
    plug();
    EXPECT_TRUE(becomes(part + ": Send again"));
    EXPECT_NE(ui().lblLampState->palette().color(QPalette::WindowText),
              delegate.window().palette().color(QPalette::WindowText));
    send(2);
    EXPECT_EQ(state(), runsThis);
}

// Behind a window nothing looks at the ports; the bus tells of them all the same.
TEST_F(LampProgramTest, forgetsAControllerThatWasReplacedBehindAWindow) {
    connect();
    send(1);
    ports.hangUp("ttyUSB0");
    ASSERT_TRUE(runUntil([&] { return !isConnected(); }));
    pause.setActive(true);
    ports.unplug("ttyUSB0");
    plug();
    pause.setActive(false);
    ASSERT_TRUE(runUntil([&] { return isConnected(); }));
    EXPECT_EQ(state(), "");
}

// Else what is read would be a program that nobody ever had.
TEST_F(LampProgramTest, aSendWaitsForWhatIsBeingRead) {
    connect();
    fault("delay=10");
    const auto pressBoth = [this] {
        prompts.confirmations = {true};
        ui().bttnLoad->click();
        ui().bttnSend->click();
    };
    pressBoth();
    ui().menuitemBackup->trigger(); // reads what was sent
    EXPECT_TRUE(runUntil([&] { return prompts.asked.last().startsWith(u"save as"); }));
    EXPECT_EQ(data.sequence().count(), 4);
    EXPECT_TRUE(data.isDirty()) << "it was loaded, then sent over";
    EXPECT_EQ(device.state().sequence[1].size(), 7U);
    EXPECT_EQ(state(), runsAnother);
    // Lost before the send began: nothing was spoilt. Quit before: it is sent all the same.
    data.history().undo();
    data.markSaved();
    fault("unplug=10#46@2");
    pressBoth();
    ASSERT_TRUE(runUntil([&] { return !isConnected(); }));
    EXPECT_TRUE(becomes({}));
    ASSERT_TRUE(runUntil([&] { return isConnected(); }));
    device.editState().sequence[1].resize(1);
    QSignalSpy terminated(&delegate, &AppDelegate::terminated);
    pressBoth();
    delegate.applicationShouldTerminate(AppDelegate::Ask::Nothing);
    EXPECT_TRUE(runUntil([&] { return !terminated.isEmpty(); }));
    EXPECT_EQ(device.state().sequence[1].size(), 7U);
}

TEST_F(LampProgramTest, tellsWhatABrokenSendLeft) {
    connect();
    fault("unplug=20#44@2");
    prompts.confirmations = {true};
    ui().bttnSend->click();
    const std::string part = "the lamp may hold a part of this program: Send again";
    EXPECT_TRUE(becomes(part));
    QDialog* panel = compare();
    EXPECT_EQ(textOf(panel), "Channel 2: 7 entries here, 4 in the lamp\n"
                             "Task light: 1 min here, 15 min in the lamp");
    EXPECT_EQ(state(), part) << "now it is certain";
    EXPECT_FALSE(button(panel, "bttnTakeLamps")->isEnabled());
    button(panel, "bttnSendMine")->click();
    EXPECT_EQ(lineAsked(), "The incomplete or damaged program in the lamp is replaced");
}

TEST_F(LampProgramTest, comparesAndMakesEqual) {
    connect({.channels = 6});
    const auto picture = [this] { return delegate.window().curveView().grab().toImage(); };
    const QImage without = picture();
    QDialog* panel = compare();
    const QString first = panel->findChild<QPlainTextEdit*>()->toPlainText().section(u'\n', 0, 1);
    EXPECT_EQ(first, QStringLiteral("08:00 only in the lamp\n08:30 only here"));
    EXPECT_NE(panel->findChild<QLabel*>(QStringLiteral("lblNotes"))->text().indexOf(u"first 4"),
              -1);
    EXPECT_NE(picture(), without) << "the lamp's curve";
    button(panel, "bttnTakeLamps")->click();
    ui().menuitemUndo->trigger();
    EXPECT_EQ(picture(), without);
    ui().menuitemRedo->trigger();
    EXPECT_EQ(data.sequence().count(), 4);
    EXPECT_EQ(data.history().count(), 1);
    EXPECT_FALSE(data.isDirty());
    EXPECT_EQ(state(), runsThis);
    panel = compare();
    EXPECT_EQ(textOf(panel), "Nothing differs.");
    panel->reject();

    // Unsaved work is so at every moment.
    data.history().undo();
    data.markUnsaved();
    panel = compare();
    const QSignalSpy marks(&notifications, &NotificationCenter::dataDirty);
    button(panel, "bttnTakeLamps")->click();
    data.history().undo();
    data.history().redo();
    EXPECT_TRUE(data.isDirty() && marks.isEmpty());

    data.history().undo();
    panel = compare();
    button(panel, "bttnSendMine")->click();
    EXPECT_EQ(prompts.asked.size(), 1);
    EXPECT_FALSE(panel->isVisible());
    // What was read stays of use without the cable.
    panel = compare();
    ports.unplug("ttyUSB0");
    EXPECT_TRUE(runUntil([&] { return !button(panel, "bttnSendMine")->isEnabled(); }));
    button(panel, "bttnTakeLamps")->click();
    EXPECT_EQ(data.sequence().count(), 4);
}

TEST_F(LampProgramTest, refusesToCompareWithAReason) {
    const QAction& menuitem = *ui().menuitemCompare;
    EXPECT_EQ(menuitem.toolTip(), QStringLiteral("No controller is connected"));
    connect();
    for (QAbstractButton* mode : {static_cast<QAbstractButton*>(ui().bttnLiveModeSwitch),
                                  static_cast<QAbstractButton*>(ui().bttnRunDemo)}) {
        mode->click();
        EXPECT_FALSE(menuitem.isEnabled());
        EXPECT_NE(menuitem.toolTip().indexOf(u"has the lamp"), -1);
        mode->click();
    }
    ASSERT_TRUE(runUntil([&] { return received("CmdDisableDemoMode") == 2; }));
    // Two at once.
    fault("delay=10");
    compare()->reject();
    const int reads = received("CmdGetTaskMode");
    fault("channel=7#46@1");
    ui().menuitemCompare->trigger();
    EXPECT_FALSE(menuitem.isEnabled());
    ui().menuitemCompare->trigger();
    EXPECT_TRUE(runUntil([&] { return !prompts.told.isEmpty(); }));
    EXPECT_EQ(prompts.told, QStringList(QStringLiteral(
                                "Could not compare with the device!|Got invalid or unknown data "
                                "format from device.")));
    EXPECT_EQ(received("CmdGetTaskMode"), reads + 1);
    EXPECT_EQ(state(), "") << "what was read before may hold no longer";
    EXPECT_TRUE(menuitem.isEnabled());
    // The cable pulled on the way ends it without a word of its own.
    fault("unplug=30#46@1");
    ui().menuitemCompare->trigger();
    EXPECT_TRUE(runUntil([&] { return prompts.told.size() == 2; }));
    EXPECT_TRUE(runUntil([&] { return isConnected(); }));
    EXPECT_TRUE(menuitem.isEnabled());
}

TEST_F(LampProgramTest, savesWhatTheDeviceHolds) {
    connect();
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("lamp.sq"));
    prompts.placesToSave = {folder.filePath(QStringLiteral("lamp"))};
    const auto before = data.contents();
    pause.setActive(true);
    ui().menuitemBackup->trigger();
    EXPECT_TRUE(becomes(runsAnother));
    EXPECT_FALSE(runUntil([&] { return !prompts.asked.isEmpty(); }, 50ms)) << "another window";
    pause.setActive(false);
    EXPECT_TRUE(runUntil([&] { return QFileInfo::exists(path); }));
    EXPECT_EQ(data.contents(), before);
    EXPECT_FALSE(data.isDirty());
    EXPECT_EQ(state(), runsAnother);
    NotificationCenter center;
    AQDataSource saved(center);
    EXPECT_TRUE(AQDataSourceReader(saved).loadFromFile(path));
    EXPECT_EQ(saved.sequence().count(), 4);
    EXPECT_TRUE(saved.isProgramMode());

    // Over the file that is open, the program in the window would be in none.
    const QString link = folder.filePath(QStringLiteral("link.sq"));
    QFile::link(QStringLiteral("lamp.sq"), link);
    prompts.placesToSave = {path, link};
    ui().menuitemSaveAs->trigger();
    ui().menuitemBackup->trigger();
    EXPECT_TRUE(runUntil([&] { return !prompts.told.isEmpty(); }));
    EXPECT_TRUE(prompts.told.first().startsWith(u"The open file was not replaced!"));
    EXPECT_TRUE(AQDataSourceReader(saved).loadFromFile(path));
    EXPECT_EQ(saved.sequence().count(), 7);

    for (auto& channel : device.editState().sequence)
        channel[0].level = 86;
    ui().menuitemNew->trigger();
    prompts.told.clear();
    prompts.placesToSave = {path};
    ui().menuitemBackup->trigger();
    EXPECT_TRUE(runUntil([&] { return !prompts.told.isEmpty(); }));
    EXPECT_TRUE(prompts.told.first().startsWith(u"Not all levels can be given back exactly!"));
}

TEST_F(LampProgramTest, aSlowTransferShowsItsProgress) {
    connect();
    ui().lblPreview->setSign(QStringLiteral("DEMO 12:00"));
    QCoreApplication::processEvents();
    const QRect sign = ui().lblPreview->geometry();
    send(1);
    EXPECT_EQ(state(), runsThis) << "a quick one shows none";
    data.loadDefaults();
    fault("delay=45");
    for (int i = 0; i < 4; ++i) {
        prompts.confirmations = {true};
        ui().bttnSend->click();
    }
    EXPECT_TRUE(runUntil([&] { return state().starts_with("Sending "); }));
    EXPECT_TRUE(state().ends_with(" of 12")) << state();
    EXPECT_TRUE(ui().bttnSend->isEnabled() && ui().bttnLoad->isEnabled());
    EXPECT_TRUE(becomes(runsThis));
    QCoreApplication::processEvents();
    EXPECT_EQ(ui().lblPreview->geometry().height(), sign.height());
}

} // namespace

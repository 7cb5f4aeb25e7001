#include "AppDelegate.h"
#include "MainWindow.h"
#include "data/AQDataSource.h"
#include "simulator/FaultPlan.h"
#include "simulator/SimulatedController.h"
#include "simulator/SimulatedSerialPortManager.h"
#include "simulator/WireLog.h"
#include "ui_MainWindow.h"
#include "workflows/ScriptedPrompts.h"
#include "yprotocoll/ModalPause.h"
#include "yprotocoll/YMessageController.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

namespace {

using namespace std::chrono_literals;

/// The whole program in this process: its real window on simulated controllers, with the dialogs
/// answered from lists and the intervals shortened.
class ProgramTest : public testing::Test {
protected:
    void start() {
        m_delegate.applicationDidFinishLaunching({});
        ASSERT_TRUE(QTest::qWaitFor([&] { return m_ports.listings() > 0; }, 5000));
    }
    void plug(const ControllerConfig& config) {
        m_controllers.push_back(std::make_unique<SimulatedController>(config));
        m_ports.plug("ttyUSB0", *m_controllers.back(), m_faults);
    }
    void startConnected(const ControllerConfig& config) {
        plug(config);
        start();
        ASSERT_TRUE(becomes(QStringLiteral("CONNECTED")));
    }
    bool becomes(const QString& status) {
        return QTest::qWaitFor([&] { return ui().lblConnectionStatus->text() == status; }, 3000);
    }
    /// The next alert; takes it from the list.
    QString nextAlert() {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !m_prompts.told.isEmpty(); }, 3000));
        return m_prompts.told.isEmpty() ? QString() : m_prompts.told.takeFirst();
    }
    Ui::MainWindow& ui() { return m_delegate.window().outlets(); }
    SimulatedController& device() { return *m_controllers.front(); }

    static constexpr YMessageController::Intervals intervals{
        .scan = 20ms, .open = 400ms, .answer = 20ms};

    WireLog m_log;
    FaultPlan m_faults;
    std::vector<std::unique_ptr<SimulatedController>> m_controllers;
    SimulatedSerialPortManager m_ports{m_log};
    ModalPause m_pause;
    YMessageController m_controller{m_ports, m_pause, intervals};
    NotificationCenter m_notifications;
    AQDataSource m_data{m_notifications, [this] { return m_controller.device(); }};
    ScriptedPrompts m_prompts;
    AppDelegate m_delegate{{m_data, m_controller, m_prompts}};
};

TEST_F(ProgramTest, looksForPortsAfterTheFirstPaintAndEnablesTheDevice) {
    EXPECT_EQ(m_ports.listings(), 0);
    start();
    EXPECT_EQ(m_delegate.window().windowTitle(), QStringLiteral("Aquelon - Untitled"));
    EXPECT_EQ(ui().lblConnectionStatus->text(), QStringLiteral("NOT CONNECTED"));
    const std::initializer_list<QWidget*> controls{ui().bttnLoad, ui().bttnSend, ui().bttnRunDemo,
                                                   ui().bttnLiveModeSwitch};
    for (const QWidget* control : controls) {
        EXPECT_FALSE(control->isEnabled());
        EXPECT_FALSE(control->toolTip().isEmpty()) << "disabled unexplained";
    }
    EXPECT_FALSE(ui().menuitemSetDeviceTime->isEnabled());
    plug({});
    ASSERT_TRUE(becomes(QStringLiteral("CONNECTED")));
    for (const QWidget* control : controls)
        EXPECT_TRUE(control->isEnabled());
    EXPECT_TRUE(ui().menuitemSetDeviceTime->isEnabled());
    ui().bttnRunDemo->click();
    EXPECT_FALSE(ui().bttnLiveModeSwitch->isEnabled()) << "the demo has the lamp";
    EXPECT_TRUE(ui().bttnRunDemo->isEnabled());
}

TEST_F(ProgramTest, sentAndLoadedBackIsTheSameProgram) {
    for (const int channels : {2, 4, 6}) {
        SCOPED_TRACE(channels);
        plug({.channels = channels});
        if (channels == 2)
            start();
        ASSERT_TRUE(becomes(QStringLiteral("CONNECTED")));
        m_data.loadDefaults();
        m_data.setIsDirty(false);

        m_prompts.confirmations = {false};
        ui().bttnSend->click();
        m_prompts.confirmations = {true};
        ui().bttnSend->click();
        EXPECT_EQ(m_prompts.asked.last(),
                  QStringLiteral("The device settings will be overwritten!|Are you sure you want "
                                 "to continue?"));
        EXPECT_EQ(nextAlert(), QStringLiteral("Upload was successfull!|Your settings have been "
                                              "applied to the device."));
        const auto stored = m_controllers.back()->state().sequence;
        EXPECT_EQ(m_controllers.back()->commandCounts().at("CmdSetSequenceData"), channels);

        m_data.sequence().replacePoints({});
        QSignalSpy loaded(&m_notifications, &NotificationCenter::dataLoaded);
        ui().bttnLoad->click();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !loaded.isEmpty(); }, 3000));
        EXPECT_EQ(m_data.sequence().count(), 7);
        EXPECT_TRUE(m_data.isDirty()) << "what came from the controller stands in no file yet";

        m_prompts.confirmations = {true};
        ui().bttnSend->click();
        nextAlert();
        EXPECT_EQ(m_controllers.back()->state().sequence, stored);
        m_ports.unplug("ttyUSB0");
        nextAlert();
    }
}

TEST_F(ProgramTest, loadAsksAboutUnsavedChangesBeforeAndAfter) {
    startConnected({});
    ui().sliderTaskBrightness->userSetValue(0.5);
    m_prompts.saveAnswers = {Prompts::SaveAnswer::Cancel};
    ui().bttnLoad->click();
    EXPECT_EQ(m_prompts.asked.last(),
              QStringLiteral("Save changes before loading settings|There are unsaved changes. Do "
                             "you want to save them first?"));
    // A person goes on working while the answers are on their way: that work is asked about, too.
    m_faults.add(*Fault::parse("delay=10"));
    m_prompts.saveAnswers = {Prompts::SaveAnswer::Discard, Prompts::SaveAnswer::Cancel};
    ui().bttnLoad->click();
    ui().sliderTaskBrightness->userSetValue(0.125);
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_prompts.asked.size() == 3; }, 3000));
    EXPECT_EQ(m_data.taskLight().brightness, 0.125);
    EXPECT_EQ(device().commandCounts().at("CmdGetTaskMode"), 1) << "cancelling sent nothing";
}

TEST_F(ProgramTest, programModeSwitchTellsDocumentAndController) {
    startConnected({});
    ui().bttnSwitchProgMode->click();
    EXPECT_FALSE(m_data.isProgramMode());
    EXPECT_TRUE(m_data.isDirty());
    EXPECT_FALSE(ui().bttnTableItemAdd->isEnabled());
    EXPECT_TRUE(ui().sliderTaskTemp->isEnabled());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !device().state().programMode; }, 3000));
    m_data.loadDefaults();
    EXPECT_TRUE(ui().bttnSwitchProgMode->isChecked());
    EXPECT_TRUE(ui().bttnTableItemAdd->isEnabled());
}

TEST_F(ProgramTest, droppedFileIsOpened) {
    start();
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("lamp.sq")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<settings><timeline></timeline></settings>");
    file.close();
    const auto drop = [&](const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&m_delegate.window(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&m_delegate.window(), &event);
        return event.isAccepted();
    };
    const QUrl url = QUrl::fromLocalFile(file.fileName());
    EXPECT_FALSE(drop({QUrl(QStringLiteral("https://example.org/lamp.sq"))}));
    EXPECT_FALSE(drop({url, url}));
    EXPECT_TRUE(drop({url}));
    EXPECT_EQ(m_delegate.window().windowTitle(), QStringLiteral("Aquelon - lamp.sq"));
    EXPECT_EQ(m_data.sequence().count(), 0);
}

TEST_F(ProgramTest, quitAsksOnceAndClosesTheLink) {
    startConnected({});
    QSignalSpy terminated(&m_delegate, &AppDelegate::terminated);
    ui().sliderTaskBrightness->userSetValue(0.5);
    m_prompts.saveAnswers = {Prompts::SaveAnswer::Cancel};
    m_delegate.window().close();
    EXPECT_TRUE(m_delegate.window().isVisible());
    EXPECT_TRUE(terminated.isEmpty());
    EXPECT_EQ(m_prompts.asked.size(), 1);
    m_prompts.saveAnswers = {Prompts::SaveAnswer::Discard};
    ui().menuitemQuit->trigger();
    EXPECT_EQ(terminated.size(), 1);
    EXPECT_FALSE(m_controller.isConnected());
    // A signal of the system asks nothing.
    m_delegate.applicationShouldTerminate(AppDelegate::Ask::Nothing);
    EXPECT_EQ(terminated.size(), 2);
    EXPECT_EQ(m_prompts.asked.size(), 2);
}

TEST_F(ProgramTest, deletingByKeyboardGoesOn) {
    start();
    ui().tableView->selectRow(5);
    ui().bttnTableItemDelete->setFocus();
    for (int count = 6; count > 0; --count) {
        QTest::keyClick(m_delegate.window().focusWidget(), Qt::Key_Space);
        EXPECT_EQ(m_data.sequence().count(), count);
    }
}

// A shortcut and the window's own close button leave the focus in the field that is typed into.
TEST_F(ProgramTest, whatIsBeingTypedIsNotLost) {
    start();
    ui().pickerTaskTime->setFocus();
    auto* field = m_delegate.window().focusWidget();
    ASSERT_TRUE(field);
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, QStringLiteral("2:30"));
    m_prompts.placesToSave = {std::nullopt};
    ui().menuitemSave->trigger();
    EXPECT_EQ(m_data.taskLight().time, (AQTime{0, 2, 30}));

    m_data.setIsDirty(false);
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, QStringLiteral("3"));
    m_prompts.saveAnswers = {Prompts::SaveAnswer::Cancel};
    m_prompts.asked.clear();
    m_delegate.window().close();
    EXPECT_EQ(m_prompts.asked.size(), 1) << "closing asks about what was typed";
}

} // namespace

#include "AppDelegate.h"
#include "MainWindow.h"
#include "controls/points/AQPointList.h"
#include "controls/sliders/AQSliderBrightness.h"
#include "controls/sliders/AQSliderColorTemp.h"
#include "data/AQDataSource.h"
#include "data/AQDataSourceWriter.h"
#include "data/ColorMapping.h"
#include "simulator/FaultPlan.h"
#include "simulator/SimulatedController.h"
#include "simulator/SimulatedSerialPortManager.h"
#include "simulator/WireLog.h"
#include "ui_MainWindow.h"
#include "workflows/ScriptedPrompts.h"
#include "workflows/SelectDevicePanel.h"
#include "yprotocoll/link/ModalPause.h"
#include "yprotocoll/link/YMessageController.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
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
        EXPECT_EQ(m_ports.listings(), 0) << "before the first paint";
        ASSERT_TRUE(QTest::qWaitFor([&] { return m_ports.listings() > 0; }, 5000));
    }
    void connect() {
        m_ports.plug("ttyUSB0", m_device, m_faults);
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return ui().lblConnectionStatus->text() == QStringLiteral("CONNECTED"); }, 3000));
    }
    Ui::MainWindow& ui() { return m_delegate.window().outlets(); }

    WireLog m_log;
    FaultPlan m_faults;
    SimulatedController m_device{{}};
    SimulatedSerialPortManager m_ports{m_log};
    ModalPause m_pause;
    YMessageController m_controller{m_ports, m_pause, {.scan = 20ms, .arrival = 1ms}};
    NotificationCenter m_notifications;
    AQDataSource m_data{m_notifications, [this] { return m_controller.device(); }};
    ScriptedPrompts m_prompts;
    AppDelegate m_delegate{{m_data, m_controller, m_prompts}};
};

TEST_F(ProgramTest, looksForPortsAfterTheFirstPaintAndEnablesTheDevice) {
    start();
    const std::initializer_list<QWidget*> controls{ui().bttnLoad, ui().bttnSend, ui().bttnRunDemo,
                                                   ui().bttnLiveModeSwitch};
    for (const QWidget* control : controls) {
        EXPECT_FALSE(control->isEnabled());
        EXPECT_FALSE(control->toolTip().isEmpty()) << "disabled unexplained";
    }
    connect();
    for (const QWidget* control : controls)
        EXPECT_TRUE(control->isEnabled());
    ui().bttnRunDemo->click();
    EXPECT_FALSE(ui().bttnLiveModeSwitch->isEnabled()) << "the demo has the lamp";
}

TEST_F(ProgramTest, smallestWindowSqueezesNothingInAnyFont) {
    start();
    QWidget& window = m_delegate.window();
    const auto squeezed = [&window] {
        window.resize(1, 1);
        QStringList names;
        for (const QWidget* control : window.findChildren<QWidget*>()) {
            const bool isControl = qobject_cast<const AQValueView*>(control) ||
                                   qobject_cast<const QAbstractButton*>(control);
            const QSize least = control->minimumSizeHint();
            if (isControl && control->isVisible() &&
                control->size().expandedTo(least) != control->size())
                names += control->objectName();
        }
        return names.join(u' ').toStdString();
    };
    QFont font = window.font();
    for (const int size : {12, 18, 24}) {
        font.setPixelSize(size);
        window.setFont(font);
        EXPECT_TRUE(QTest::qWaitFor([&] { return squeezed().empty(); }, 1000))
            << size << ": " << squeezed();
    }
}

TEST_F(ProgramTest, aControllerLetGoForOneThatFailsIsNotShownAsConnected) {
    start();
    const struct {
        std::uint8_t minorVersion;
        SimulatedSerialDevice::Opening opening;
        const char* problem;
    } cases[] = {
        {4, SimulatedSerialDevice::Opening::Fails, "port error: Permission denied"},
        {0, SimulatedSerialDevice::Opening::Succeeds, "unsupported device version 1.0"},
    };
    for (const auto& test : cases) {
        m_controller.openWithPath("/dev/ttyUSB0");
        connect();
        SimulatedController other{{.versionMinor = test.minorVersion}};
        m_ports.plug("ttyUSB1", other, m_faults).opening = test.opening;
        Q_EMIT m_delegate.window().findChild<SelectDevicePanel*>()->chosen("/dev/ttyUSB1");
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return ui().lblPortProblem->text() == QLatin1String(test.problem); }));
        EXPECT_EQ(ui().lblConnectionStatus->text(), QStringLiteral("NOT CONNECTED"));
        EXPECT_FALSE(ui().bttnSend->isEnabled());
        m_ports.unplug("ttyUSB1");
        EXPECT_TRUE(QTest::qWaitFor([&] { return !ui().lblPortProblem->isVisible(); }));
        m_ports.unplug("ttyUSB0");
    }
    // A choice starts anew the search that the refusal has ended.
    Q_EMIT m_delegate.window().findChild<SelectDevicePanel*>()->chosen("/dev/ttyUSB0");
    connect();
}

TEST_F(ProgramTest, theReasonWhyAPortCannotBeUsedGoesWithThePort) {
    start();
    for (const char* chosen : {"", "/dev/ttyUSB0"}) {
        m_controller.openWithPath(chosen);
        m_ports.plug("ttyUSB0", m_device, m_faults).opening = SimulatedSerialDevice::Opening::Fails;
        EXPECT_TRUE(QTest::qWaitFor([&] { return ui().lblPortProblem->isVisible(); }));
        m_ports.unplug("ttyUSB0");
        EXPECT_TRUE(QTest::qWaitFor([&] { return !ui().lblPortProblem->isVisible(); }, 1000))
            << chosen;
    }
}

// Behind 23:59 there is no room: the new point takes the row of the one that is selected.
TEST_F(ProgramTest, liveModeShowsTheNewPointAlsoWhenItsRowWasSelected) {
    m_data.sequence().replacePoints({{{23, 59}, 0.5, 1.0}});
    start();
    connect();
    m_delegate.window().tableView().setSelectedRow(0);
    ui().bttnLiveModeSwitch->click();
    const auto lampShows = [&](std::uint8_t level) {
        return QTest::qWaitFor(
            [&] {
                return m_device.lampLevels() == std::array{level, level};
            },
            3000);
    };
    EXPECT_TRUE(lampShows(254));
    ui().bttnTableItemAdd->click();
    EXPECT_TRUE(lampShows(levelsFromLight(0.5, 0.5).cold));
}

TEST_F(ProgramTest, aLampInPreviewIsGivenBackBeforeAnotherIsChosen) {
    start();
    m_controller.openWithPath("/dev/ttyUSB0");
    connect();
    m_delegate.window().tableView().setSelectedRow(0);
    ui().bttnLiveModeSwitch->click();
    const auto waitForCommand = [](SimulatedController& device, const char* command) {
        return QTest::qWaitFor([&] { return device.commandCounts().contains(command); }, 3000);
    };
    ASSERT_TRUE(waitForCommand(m_device, "CmdEnableDemoMode"));
    SimulatedController other{{}};
    m_ports.plug("ttyUSB1", other, m_faults);
    auto* panel = m_delegate.window().findChild<SelectDevicePanel*>();
    Q_EMIT panel->chosen("/dev/ttyUSB1");
    EXPECT_TRUE(waitForCommand(m_device, "CmdDisableDemoMode"));
    EXPECT_TRUE(waitForCommand(other, "CmdEnableDemoMode")) << "live mode goes on there";
    // One that is not there: the preview goes on where it is.
    Q_EMIT panel->chosen("/dev/ttyUSB7");
    EXPECT_TRUE(QTest::qWaitFor([&] { return other.commandCounts().at("CmdEnableDemoMode") > 1; }));
}

TEST_F(ProgramTest, loadAsksAboutUnsavedChangesBeforeAndAfter) {
    start();
    connect();
    ui().sliderTaskBrightness->userSetValue(0.5);
    m_prompts.saveAnswers = {Prompts::SaveAnswer::Cancel};
    ui().bttnLoad->click();
    EXPECT_EQ(m_prompts.asked.size(), 1);
    // A person goes on working while the answers are on their way: that work is asked about, too,
    // once, and at the end.
    m_faults.add(*Fault::parse("delay=10"));
    m_prompts.saveAnswers = {Prompts::SaveAnswer::Discard, Prompts::SaveAnswer::Cancel};
    ui().bttnLoad->click();
    ui().sliderTaskBrightness->userSetValue(0.125);
    ui().bttnLoad->click();
    EXPECT_EQ(m_prompts.asked.size(), 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_prompts.asked.size() == 3; }, 3000));
    EXPECT_EQ(m_data.taskLight().brightness, 0.125);
    EXPECT_EQ(m_device.commandCounts().at("CmdGetTaskMode"), 2) << "cancelling sent nothing";
}

// What was loaded stands in the controller, but not in the file.
TEST_F(ProgramTest, aLoadLeavesTheDocumentCleanAndGuardsItsFile) {
    start();
    connect();
    const QTemporaryDir folder;
    m_prompts.placesToSave = {folder.filePath(QStringLiteral("lamp.sq"))};
    ui().menuitemSave->trigger();
    m_device.editState().taskLight.minutes = 7;
    ui().bttnLoad->click();
    ui().bttnLoad->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_data.taskLight().time.minute == 7; }, 3000));
    EXPECT_FALSE(m_data.isDirty());
    ui().menuitemSave->trigger();
    EXPECT_EQ(m_prompts.asked.size(), 2) << "where to save, and whether to overwrite";
}

TEST_F(ProgramTest, aSendEndsBeforeTheProgram) {
    start();
    connect();
    m_faults.add(*Fault::parse("delay=20"));
    const QSignalSpy terminated(&m_delegate, &AppDelegate::terminated);
    m_prompts.confirmations = {true};
    ui().bttnSend->click();
    ui().bttnLoad->click();
    ui().sliderTaskBrightness->userSetValue(0.5);
    m_prompts.saveAnswers = {Prompts::SaveAnswer::Discard};
    m_delegate.window().close();
    m_delegate.window().close();
    m_delegate.applicationShouldTerminate(AppDelegate::Ask::Nothing);
    EXPECT_TRUE(ui().lblPreview->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !terminated.isEmpty(); }, 3000));
    EXPECT_EQ(m_device.commandCounts().at("CmdSetTaskMode"), 1);
    EXPECT_TRUE(m_prompts.told.isEmpty());
    EXPECT_EQ(m_prompts.asked.size(), 2) << "whether to send, and once whether to save";
}

TEST_F(ProgramTest, whatIsAskedForLastWins) {
    start();
    m_controller.openWithPath("/dev/ttyUSB0");
    connect();
    SimulatedController other{{}};
    FaultPlan sound;
    m_ports.plug("ttyUSB1", other, sound);
    auto* panel = m_delegate.window().findChild<SelectDevicePanel*>();
    const auto turnLiveOn = [this] {
        ui().bttnLiveModeSwitch->setChecked(true);
        return QTest::qWaitFor([&] { return m_device.state().demoActive; });
    };
    ASSERT_TRUE(turnLiveOn());
    const auto events = m_log.events().size();
    Q_EMIT panel->chosen("/dev/ttyUSB0");
    EXPECT_EQ(m_log.events().size(), events) << "chosen already";

    // A silent controller is given up for the chosen one.
    m_faults.add(*Fault::parse("deaf"));
    Q_EMIT panel->chosen("/dev/ttyUSB1");
    EXPECT_TRUE(QTest::qWaitFor([&] { return other.state().demoActive; }, 5000));
    EXPECT_EQ(m_prompts.told.size(), 1);

    // The end wins over a choice that waits for a silent controller.
    const QSignalSpy terminated(&m_delegate, &AppDelegate::terminated);
    sound.add(*Fault::parse("deaf"));
    Q_EMIT panel->chosen("/dev/ttyUSB0");
    m_delegate.window().close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !terminated.isEmpty(); }, 3000));
}

TEST_F(ProgramTest, droppedFileIsOpened) {
    start();
    const QTemporaryDir folder;
    const QUrl url = QUrl::fromLocalFile(folder.filePath(QStringLiteral("lamp.sq")));
    m_data.sequence().replacePoints({});
    ASSERT_TRUE(AQDataSourceWriter(m_data).saveToFile(url.toLocalFile()));
    m_data.loadDefaults();
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
    EXPECT_FALSE(drop({QUrl(QStringLiteral("https://example.org/lamp.sq"))}));
    EXPECT_FALSE(drop({url, url}));
    EXPECT_TRUE(drop({url}));
    EXPECT_EQ(m_delegate.window().windowTitle(), QStringLiteral("Aquelon - lamp.sq"));
    EXPECT_EQ(m_data.sequence().count(), 0);
}

// Values that come from the document are no edits.
TEST_F(ProgramTest, cellsFollowTheDocumentWithoutMarkingItDirty) {
    const auto cell = [&](int column) {
        return m_delegate.window().findChild<AQSlider*>(QStringLiteral("cell_2_%1").arg(column));
    };
    cell(2)->userSetValue(0.25);
    cell(1)->userSetValue(0.75);
    EXPECT_EQ(m_data.sequence().at(2), (AQTimePoint{{15, 0, 0}, 0.75, 0.25}));
    EXPECT_EQ(dynamic_cast<AQSliderColorTemp*>(cell(1))->maxValue(), 0.25);
    EXPECT_TRUE(m_data.isDirty());
    m_data.setIsDirty(false);
    m_data.loadDefaults();
    EXPECT_FALSE(m_data.isDirty());
    EXPECT_EQ(cell(2)->value(), 1.0);
    EXPECT_EQ(m_data.sequence().at(2).brightness, 1.0);
}

TEST_F(ProgramTest, deletingByKeyboardGoesOn) {
    start();
    m_delegate.window().tableView().setSelectedRow(5);
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

    // What is refused is shown, and the window with it.
    m_data.setIsDirty(false);
    const QSignalSpy terminated(&m_delegate, &AppDelegate::terminated);
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, QStringLiteral("later"));
    ui().menuitemQuit->trigger();
    EXPECT_TRUE(terminated.isEmpty());
    ui().menuitemQuit->trigger();
    EXPECT_EQ(terminated.count(), 1);
}

} // namespace

#include "SimulatedProgram.h"
#include "controls/curve/AQCurveView.h"
#include "controls/points/AQPointList.h"
#include "controls/sliders/AQSliderBrightness.h"
#include "data/AQDataSourceWriter.h"
#include "workflows/ScriptedPrompts.h"
#include "workflows/SelectDevicePanel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <cmath>

namespace {

using namespace std::chrono_literals;

/// The whole program with its dialogs answered from lists.
class ProgramTest : public testing::Test, public SimulatedProgram<ScriptedPrompts> {
protected:
    ProgramTest() : SimulatedProgram({.scan = 20ms, .arrival = 1ms}) {}

    void choose(const char* path) {
        Q_EMIT delegate.window().findChild<SelectDevicePanel*>()->chosen(path);
    }
    static bool gets(const SimulatedController& controller, const char* command, int times = 1) {
        return runUntil([&] {
            const auto found = controller.commandCounts().find(command);
            return found != controller.commandCounts().end() && found->second >= times;
        });
    }
};

TEST_F(ProgramTest, looksForPortsAfterTheFirstPaintAndEnablesTheDevice) {
    delegate.applicationDidFinishLaunching({});
    EXPECT_EQ(ports.listings(), 0) << "before the first paint";
    const std::initializer_list<QWidget*> controls{ui().bttnLoad, ui().bttnSend, ui().bttnRunDemo,
                                                   ui().bttnLiveModeSwitch};
    for (const QWidget* control : controls)
        EXPECT_FALSE(control->isEnabled() || control->toolTip().isEmpty()) << "unexplained";
    connect();
    for (const QWidget* control : controls)
        EXPECT_TRUE(control->isEnabled());
    ui().bttnRunDemo->click();
    EXPECT_FALSE(ui().bttnLiveModeSwitch->isEnabled()) << "the demo has the lamp";
}

TEST_F(ProgramTest, smallestWindowSqueezesNothingInAnyFont) {
    start();
    QWidget& window = delegate.window();
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
        EXPECT_TRUE(runUntil([&] { return squeezed().empty(); }, 1s)) << size << ": " << squeezed();
    }
}

// By the picture: the lightest and the darkest place of each text.
TEST_F(ProgramTest, textsStandOutOnLightAndOnDark) {
    start();
    connect();
    const auto luminance = [](QRgb pixel) {
        const auto linear = [](int value) { return std::pow(value / 255.0, 2.2); };
        return 0.2126 * linear(qRed(pixel)) + 0.7152 * linear(qGreen(pixel)) +
               0.0722 * linear(qBlue(pixel));
    };
    for (const QColor& ground : {QColor(240, 240, 240), QColor(40, 42, 46)}) {
        delegate.window().setPalette(QPalette(ground));
        QCoreApplication::processEvents();
        const QImage picture = delegate.window().grab().toImage();
        for (const QWidget* text : delegate.window().findChildren<QWidget*>()) {
            const bool isText =
                qobject_cast<const QLabel*>(text) || qobject_cast<const QPushButton*>(text);
            if (!isText || !text->isVisible() || !text->isEnabled())
                continue;
            double darkest = 1.0;
            double lightest = 0.0;
            const QRect place(text->mapTo(&delegate.window(), QPoint()), text->size());
            for (int y = place.top(); y <= place.bottom(); ++y)
                for (int x = place.left(); x <= place.right(); ++x) {
                    darkest = std::min(darkest, luminance(picture.pixel(x, y)));
                    lightest = std::max(lightest, luminance(picture.pixel(x, y)));
                }
            EXPECT_GE((lightest + 0.05) / (darkest + 0.05), 4.5)
                << text->objectName().toStdString();
        }
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
        controller.openWithPath("/dev/ttyUSB0");
        connect();
        SimulatedController other{{.versionMinor = test.minorVersion}};
        ports.plug("ttyUSB1", other, faults).opening = test.opening;
        choose("/dev/ttyUSB1");
        EXPECT_TRUE(
            runUntil([&] { return ui().lblPortProblem->text() == QLatin1String(test.problem); }));
        EXPECT_EQ(ui().lblConnectionStatus->text(), QStringLiteral("NOT CONNECTED"));
        EXPECT_FALSE(ui().bttnSend->isEnabled());
        ports.unplug("ttyUSB1");
        EXPECT_TRUE(runUntil([&] { return !ui().lblPortProblem->isVisible(); }));
        ports.unplug("ttyUSB0");
    }
    // A choice starts anew the search that the refusal has ended.
    choose("/dev/ttyUSB0");
    connect();
}

TEST_F(ProgramTest, loadAsksAboutUnsavedChangesBeforeAndAfter) {
    start();
    connect();
    ui().sliderTaskBrightness->userSetValue(0.5);
    prompts.saveAnswers = {Prompts::SaveAnswer::Cancel};
    QTest::keyClick(ui().bttnLoad, Qt::Key_Return);
    EXPECT_EQ(prompts.asked.size(), 1);
    // A person goes on working while the answers are on their way: that work is asked about, too,
    // once, and at the end.
    fault("delay=10");
    prompts.saveAnswers = {Prompts::SaveAnswer::Discard, Prompts::SaveAnswer::Cancel};
    ui().bttnLoad->click();
    ui().sliderTaskBrightness->userSetValue(0.125);
    ui().bttnLoad->click();
    EXPECT_EQ(prompts.asked.size(), 2);
    EXPECT_TRUE(runUntil([&] { return prompts.asked.size() == 3; }));
    EXPECT_EQ(data.taskLight().brightness, 0.125);
    EXPECT_EQ(received("CmdGetTaskMode"), 2) << "cancelling sent nothing";
}

// What was loaded stands in the controller, but not in the file.
TEST_F(ProgramTest, aLoadLeavesTheDocumentCleanAndGuardsItsFile) {
    start();
    connect();
    const QTemporaryDir folder;
    prompts.placesToSave = {folder.filePath(QStringLiteral("lamp.sq"))};
    ui().menuitemSave->trigger();
    device.editState().taskLight.minutes = 7;
    ui().bttnLoad->click();
    ui().bttnLoad->click();
    EXPECT_TRUE(runUntil([&] { return data.taskLight().time.minute == 7; }));
    EXPECT_FALSE(data.isDirty());
    ui().menuitemSave->trigger();
    EXPECT_EQ(prompts.asked.size(), 2) << "where to save, and whether to overwrite";
}

TEST_F(ProgramTest, aSendEndsBeforeTheProgram) {
    start();
    connect();
    fault("delay=20");
    const QSignalSpy terminated(&delegate, &AppDelegate::terminated);
    prompts.confirmations = {true};
    ui().bttnSend->click();
    ui().bttnLoad->click();
    ui().sliderTaskBrightness->userSetValue(0.5);
    prompts.saveAnswers = {Prompts::SaveAnswer::Discard};
    delegate.window().close();
    delegate.window().close();
    delegate.applicationShouldTerminate(AppDelegate::Ask::Nothing);
    EXPECT_TRUE(ui().lblPreview->isVisible());
    EXPECT_TRUE(runUntil([&] { return !terminated.isEmpty(); }));
    EXPECT_EQ(received("CmdSetTaskMode"), 1);
    EXPECT_TRUE(prompts.told.isEmpty());
    EXPECT_EQ(prompts.asked.size(), 2) << "whether to send, and once whether to save";
}

TEST_F(ProgramTest, aLampInPreviewIsGivenBackAndWhatIsAskedForLastWins) {
    start();
    controller.openWithPath("/dev/ttyUSB0");
    connect();
    SimulatedController other{{}};
    FaultPlan sound;
    ports.plug("ttyUSB1", other, sound);
    delegate.window().tableView().setSelectedRow(0);
    QTest::keyClick(ui().bttnLiveModeSwitch, Qt::Key_Return);
    ASSERT_TRUE(gets(device, "CmdEnableDemoMode"));
    const auto events = log.events().size();
    choose("/dev/ttyUSB0");
    EXPECT_EQ(log.events().size(), events) << "chosen already";
    choose("/dev/ttyUSB1");
    EXPECT_TRUE(gets(device, "CmdDisableDemoMode"));
    EXPECT_TRUE(gets(other, "CmdEnableDemoMode")) << "live mode goes on there";
    // One that is not there: the preview goes on where it is.
    choose("/dev/ttyUSB7");
    EXPECT_TRUE(gets(other, "CmdEnableDemoMode", 2));
    // A silent controller is given up for the chosen one.
    sound.add(*Fault::parse("deaf"));
    choose("/dev/ttyUSB0");
    EXPECT_TRUE(gets(device, "CmdEnableDemoMode", 2));
    EXPECT_EQ(prompts.told.size(), 1);
    // The end wins over a choice that waits for a silent controller.
    const QSignalSpy terminated(&delegate, &AppDelegate::terminated);
    fault("deaf");
    choose("/dev/ttyUSB1");
    delegate.window().close();
    EXPECT_TRUE(runUntil([&] { return !terminated.isEmpty(); }));
}

TEST_F(ProgramTest, droppedFileIsOpened) {
    start();
    const QTemporaryDir folder;
    const QUrl url = QUrl::fromLocalFile(folder.filePath(QStringLiteral("lamp.sq")));
    data.sequence().replacePoints({});
    ASSERT_TRUE(AQDataSourceWriter(data).saveToFile(url.toLocalFile()));
    data.loadDefaults();
    const auto drop = [&](const QList<QUrl>& urls) {
        QMimeData mime;
        mime.setUrls(urls);
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&delegate.window(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event({9, 9}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        return QApplication::sendEvent(&delegate.window(), &event);
    };
    EXPECT_FALSE(drop({QUrl(QStringLiteral("https://example.org/lamp.sq"))}));
    EXPECT_FALSE(drop({url, url}));
    EXPECT_TRUE(drop({url}));
    EXPECT_EQ(delegate.window().windowTitle(), QStringLiteral("Aquelon - lamp.sq"));
    EXPECT_EQ(data.sequence().count(), 0);
}

TEST_F(ProgramTest, deletingGoesOnToTheEndAndAddingToTheLimit) {
    start();
    delegate.window().tableView().setSelectedRow(5);
    ui().bttnTableItemDelete->setFocus();
    for (int count = 6; count >= 0; --count) {
        QTest::keyClick(delegate.window().focusWidget(), Qt::Key_Space);
        EXPECT_EQ(data.sequence().count(), count);
    }
    EXPECT_FALSE(ui().bttnTableItemDelete->isEnabled());
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Left, Qt::Key_Up, Qt::Key_Insert})
        QTest::keyClick(&delegate.window().curveView(), key);
    EXPECT_EQ(data.sequence().count(), 1);
    connect({.maxPoints = 2});
    ui().bttnTableItemAdd->click();
    EXPECT_EQ(ui().bttnTableItemAdd->toolTip(),
              QStringLiteral("The controller holds no more than 2 points"));
    QTest::keyClick(&delegate.window().curveView(), Qt::Key_Insert);
    EXPECT_EQ(data.sequence().count(), 2);
}

// A shortcut and the window's own close button leave the focus in the field that is typed into.
TEST_F(ProgramTest, whatIsBeingTypedIsNotLost) {
    start();
    ui().pickerTaskTime->setFocus();
    auto* field = delegate.window().focusWidget();
    const auto type = [&](const char* text) {
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field, QLatin1String(text));
    };
    type("2:30");
    prompts.placesToSave = {std::nullopt};
    ui().menuitemSave->trigger();
    EXPECT_EQ(data.taskLight().time, (AQTime{0, 2, 30}));

    data.setIsDirty(false);
    type("3");
    prompts.saveAnswers = {Prompts::SaveAnswer::Cancel};
    prompts.asked.clear();
    delegate.window().close();
    EXPECT_EQ(prompts.asked.size(), 1) << "closing asks about what was typed";

    // What is refused is shown, and the window with it.
    data.setIsDirty(false);
    const QSignalSpy terminated(&delegate, &AppDelegate::terminated);
    type("later");
    ui().menuitemQuit->trigger();
    EXPECT_TRUE(terminated.isEmpty());
    ui().menuitemQuit->trigger();
    EXPECT_EQ(terminated.count(), 1);
}

} // namespace

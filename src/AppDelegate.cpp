#include "AppDelegate.h"

#include "MainWindow.h"
#include "controls/Announcement.h"
#include "controls/curve/AQCurveView.h"
#include "controls/points/AQPointList.h"
#include "controls/popovers/AQHelpPopover.h"
#include "controls/window/AQAboutPanel.h"
#include "data/AQDataSource.h"
#include "data/ProgramStatistics.h"
#include "lamp/Departure.h"
#include "lamp/LampContents.h"
#include "lamp/LampPreview.h"
#include "lamp/Transfers.h"
#include "ui_MainWindow.h"
#include "workflows/AcclimationCommands.h"
#include "workflows/ClipboardCommands.h"
#include "workflows/ConnectionWorkflow.h"
#include "workflows/ControlStates.h"
#include "workflows/CurveMenu.h"
#include "workflows/DemoMode.h"
#include "workflows/DeviceBackup.h"
#include "workflows/DeviceComparison.h"
#include "workflows/DeviceTimePanel.h"
#include "workflows/Diagnostics.h"
#include "workflows/DiagnosticsPanel.h"
#include "workflows/DocumentCommands.h"
#include "workflows/ExportCommands.h"
#include "workflows/LiveMode.h"
#include "workflows/NewDayPanel.h"
#include "workflows/PointTable.h"
#include "workflows/PortHelpPanel.h"
#include "workflows/ProgramChangeCommands.h"
#include "workflows/ProgramMode.h"
#include "workflows/Prompts.h"
#include "workflows/ProtocolLogWindow.h"
#include "workflows/RecentFilesMenu.h"
#include "workflows/Recovery.h"
#include "workflows/SelectDevicePanel.h"
#include "workflows/SessionTrace.h"
#include "workflows/TaskLightEditor.h"
#include "workflows/TransferWorkflow.h"
#include "workflows/UndoCommands.h"
#include "workflows/UserGuide.h"
#include "yprotocoll/link/ModalPause.h"
#include "yprotocoll/link/YMessageController.h"

#include <QApplication>
#include <QFileInfo>
#include <QTimer>

/// One member for each thing a person does; in this order each may use those above it.
struct AppDelegate::Workflows {
    Workflows(const Services& services, MainWindow& window)
        : ui(window.outlets()), trace(services.controller),
          documents(services.data, services.prompts),
          exports({services.data, documents, services.prompts, window}, services.paperModule),
          recovery(services.data, documents, services.prompts, services.recoveryFolder),
          recentFiles(*ui.menuOpenRecent, services.recentFiles),
          undo(services.data.history(), *ui.menuitemUndo, *ui.menuitemRedo), selectDevice(&window),
          connection(services.controller, services.prompts, selectDevice),
          lampContents(services.data), transfers(services.data, services.controller, lampContents),
          transfer(transfers, lampContents, documents, services.prompts),
          comparison({services.data, services.controller, transfers, lampContents, documents,
                      services.prompts, &window}),
          backup(services.data, transfers, documents, services.prompts),
          table(services.data, {window.tableView(), *ui.bttnTableItemAdd, *ui.bttnTableItemDelete,
                                *ui.menuitemAddPoint, *ui.menuitemDeletePoint}),
          clipboard(services.data, services.prompts,
                    {*ui.menuitemCut, *ui.menuitemCopy, *ui.menuitemPaste}),
          programChanges(services.data, {*ui.menuitemShiftDay, *ui.menuitemScaleIntensity,
                                         *ui.lblStatistics, window}),
          acclimation(services.data,
                      {*ui.menuitemAcclimate, *ui.bttnAcclimation, *ui.lblStatistics, window}),
          curveMenu(
              window.curveView(), table,
              {*ui.menuitemCopy, *ui.menuitemPaste, *ui.menuitemAddPoint, *ui.menuitemDeletePoint}),
          taskLight(services.data,
                    {*ui.pickerTaskTime, *ui.sliderTaskTemp, *ui.sliderTaskBrightness}),
          programMode(services.data, services.controller, *ui.bttnSwitchProgMode),
          lamp(services.controller), departure(services.controller, transfers, lamp),
          liveMode(services.data, lamp, *ui.bttnLiveModeSwitch),
          demoMode(services.data, lamp, window.curveView(), *ui.bttnRunDemo) {}

    Ui::MainWindow& ui;
    SessionTrace trace;
    DocumentCommands documents;
    ExportCommands exports;
    Recovery recovery;
    RecentFilesMenu recentFiles;
    UndoCommands undo;
    SelectDevicePanel selectDevice;
    ConnectionWorkflow connection;
    LampContents lampContents;
    Transfers transfers;
    TransferWorkflow transfer;
    DeviceComparison comparison;
    DeviceBackup backup;
    PointTable table;
    ClipboardCommands clipboard;
    ProgramChangeCommands programChanges;
    AcclimationCommands acclimation;
    CurveMenu curveMenu;
    TaskLightEditor taskLight;
    ProgramMode programMode;
    LampPreview lamp;
    Departure departure;
    LiveMode liveMode;
    DemoMode demoMode;
    std::unique_ptr<DeviceTimePanel> deviceTime; ///< null until it is asked for
    std::unique_ptr<PortHelpPanel> portHelp;     ///< null until there are remedies
};

AppDelegate::AppDelegate(const Services& services)
    : m_services(services), m_window(std::make_unique<MainWindow>(services.data)) {
    m_workflows = std::make_unique<Workflows>(services, *m_window);
    connectDocument();
    connectDevice();
    connectLampContents();
    connectComparison();
    connectPreview();
    connectHelp();
    updateControls();
    showStatistics();
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching(const QString& file) {
    showTitle();
    Q_EMIT m_services.data.notifications().dataLoaded(&m_services.data);
    // Looking for the controller and for copies waits for the first picture, but not for a window
    // that is never shown, such as one that starts minimised.
    constexpr int longestWaitForPaint = 1000; // ms
    const auto go = [this, file] { onShown(file); };
    connect(m_window.get(), &MainWindow::firstPainted, this, go);
    QTimer::singleShot(longestWaitForPaint, this, go);
    m_window->show();
    if (!file.isEmpty())
        m_workflows->documents.openPath(file);
}

void AppDelegate::onShown(const QString& file) {
    if (m_wasShown)
        return;
    m_wasShown = true;
    Q_EMIT started();
    m_services.controller.run();
    m_workflows->recovery.offerCopies(file);
}

void AppDelegate::connectDocument() {
    Workflows& w = *m_workflows;
    connect(w.ui.menuitemNew, &QAction::triggered, &w.documents, &DocumentCommands::loadDefaults);
    connect(w.ui.menuitemNewDay, &QAction::triggered, this, &AppDelegate::menuNewDay);
    connect(w.ui.menuitemOpen, &QAction::triggered, &w.documents, &DocumentCommands::open);
    connect(w.ui.menuitemSave, &QAction::triggered, &w.documents, &DocumentCommands::saveDocument);
    connect(w.ui.menuitemSaveAs, &QAction::triggered, &w.documents,
            &DocumentCommands::saveDocumentAs);
    connect(w.ui.menuitemExport, &QAction::triggered, &w.exports, &ExportCommands::menuExport);
    connect(w.ui.menuitemPrint, &QAction::triggered, &w.exports, &ExportCommands::menuPrint);
    connect(&w.exports, &ExportCommands::savedTo, this, &AppDelegate::announceSaved);
    connect(m_window.get(), &MainWindow::closeRequested, this,
            [this] { applicationShouldTerminate(Ask::AboutChanges); });
    connect(m_window.get(), &MainWindow::fileDropped, &w.documents, &DocumentCommands::openPath);
    connect(&w.documents, &DocumentCommands::titleChanged, this, &AppDelegate::showTitle);
    connect(&w.documents, &DocumentCommands::savedTo, this, &AppDelegate::announceSaved);

    connect(&w.documents, &DocumentCommands::opened, &w.recentFiles, &RecentFilesMenu::add);
    connect(&w.documents, &DocumentCommands::savedTo, &w.recentFiles, &RecentFilesMenu::add);
    connect(&w.recentFiles, &RecentFilesMenu::chosen, this, [this](const QString& path) {
        m_window->finishTyping();
        m_workflows->documents.openPath(path);
    });
    connect(&w.recovery, &Recovery::recoversElsewhere, this, &AppDelegate::recoversElsewhere);
    connect(qApp, &QGuiApplication::commitDataRequest, &w.recovery, &Recovery::keepForNextStart);

    connect(&m_window->curveView(), &AQCurveView::addRequested, &w.table,
            &PointTable::onTableItemAdd);
    connect(&m_window->curveView(), &AQCurveView::deleteRequested, &w.table,
            &PointTable::onTableItemDelete);
    connect(&m_window->curveView(), &AQCurveView::addAtRequested, &w.table, &PointTable::addAt);
    connect(&w.table, &PointTable::refused, &m_window->curveView(), &AQCurveView::tell);
    connect(&m_window->tableView(), &AQPointList::deleteRequested, &w.table,
            &PointTable::onTableItemDelete);
    connect(&w.programMode, &ProgramMode::changed, this, &AppDelegate::updateControls);
    connect(&w.acclimation, &AcclimationCommands::ghostChanged, &m_window->curveView(),
            &AQCurveView::setGhost);

    const NotificationCenter& center = m_services.data.notifications();
    connect(&center, &NotificationCenter::dataChanged, this, &AppDelegate::showStatistics);
    connect(&center, &NotificationCenter::cellChanged, this, &AppDelegate::showStatistics);
    connect(&center, &NotificationCenter::previewChanged, this, &AppDelegate::showStatistics);
}

void AppDelegate::connectDevice() {
    Workflows& w = *m_workflows;
    connect(w.ui.menuitemOpenDevice, &QAction::triggered, &w.connection,
            &ConnectionWorkflow::menuOpenDevice);
    connect(w.ui.menuitemLoad, &QAction::triggered, &w.transfer,
            &TransferWorkflow::onBttnLoadFromDevice);
    connect(w.ui.menuitemSend, &QAction::triggered, &w.transfer,
            &TransferWorkflow::onBttnSaveToDevice);
    connect(w.ui.menuitemSetDeviceTime, &QAction::triggered, this, &AppDelegate::menuSetDeviceTime);
    connect(w.ui.bttnLoad, &QAbstractButton::clicked, &w.transfer,
            &TransferWorkflow::onBttnLoadFromDevice);
    connect(w.ui.bttnSend, &QAbstractButton::clicked, &w.transfer,
            &TransferWorkflow::onBttnSaveToDevice);
    connect(m_window.get(), &MainWindow::modalChanged, &m_services.controller.modalPause(),
            &ModalPause::setActive);
    connect(&w.selectDevice, &SelectDevicePanel::chosen, &w.departure, &Departure::leaveFor);
    connect(&w.departure, &Departure::leftFor, this, &AppDelegate::openChosenDevice);
    connect(&w.departure, &Departure::ended, this, &AppDelegate::onDepartureEnded);
    connect(&w.transfers, &Transfers::arrived, m_window.get(), &MainWindow::finishTyping);
    connect(&w.departure, &Departure::changed, this, [this] {
        updateTelling();
        showSign();
    });
    connect(&w.connection, &ConnectionWorkflow::connectedChanged, this,
            &AppDelegate::onConnectedChanged);
    connect(&w.connection, &ConnectionWorkflow::portProblemChanged, this,
            &AppDelegate::showPortProblem);
    connect(w.ui.bttnPortHelp, &QAbstractButton::clicked, this, [this] {
        m_workflows->portHelp->show();
        m_workflows->portHelp->raise();
        m_workflows->portHelp->activateWindow();
    });
}

void AppDelegate::connectLampContents() {
    Workflows& w = *m_workflows;
    connect(&w.lampContents, &LampContents::changed, this, &AppDelegate::showLampState);
    connect(&w.programMode, &ProgramMode::modeSent, &w.lampContents, &LampContents::forgetMode);
    connect(&w.programMode, &ProgramMode::modeTold, &w.lampContents, &LampContents::noteMode);
    connect(&m_services.controller, &YMessageController::portLeft, &w.lampContents,
            &LampContents::portLeft);
    connect(&w.transfers.progress(), &TransferProgress::changed, m_window.get(),
            &MainWindow::showProgress);
}

void AppDelegate::connectComparison() {
    Workflows& w = *m_workflows;
    connect(w.ui.menuitemCompare, &QAction::triggered, &w.comparison,
            &DeviceComparison::menuCompare);
    connect(&w.comparison, &DeviceComparison::arrived, m_window.get(), &MainWindow::finishTyping);
    connect(&w.comparison, &DeviceComparison::ghostChanged, &m_window->curveView(),
            &AQCurveView::setGhost);
    connect(&w.comparison, &DeviceComparison::sendRequested, &w.transfer,
            &TransferWorkflow::onBttnSaveToDevice);
    connect(w.ui.menuitemBackup, &QAction::triggered, &w.backup, &DeviceBackup::menuBackup);
    connect(&w.backup, &DeviceBackup::savedTo, this, &AppDelegate::announceSaved);
    connect(&w.transfers, &Transfers::readingChanged, this, &AppDelegate::updateControls);
    connect(w.ui.bttnLiveModeSwitch, &QAbstractButton::toggled, this, &AppDelegate::updateControls);
}

void AppDelegate::connectPreview() {
    Workflows& w = *m_workflows;
    connect(&w.taskLight, &TaskLightEditor::touched, &w.liveMode, &LiveMode::taskLightTouched);
    connect(w.ui.menuitemLiveMode, &QAction::triggered, w.ui.bttnLiveModeSwitch,
            &QAbstractButton::setChecked);
    connect(w.ui.bttnLiveModeSwitch, &QAbstractButton::toggled, w.ui.menuitemLiveMode,
            &QAction::setChecked);
    connect(w.ui.menuitemRunDemo, &QAction::triggered, &w.demoMode, &DemoMode::onBttnRunDemo);
    connect(&w.demoMode, &DemoMode::runningChanged, &w.liveMode, &LiveMode::setSuspended);
    connect(&w.demoMode, &DemoMode::runningChanged, this, &AppDelegate::updateControls);
    connect(&w.lamp, &LampPreview::signChanged, this, &AppDelegate::showSign);
}

void AppDelegate::connectHelp() {
    Workflows& w = *m_workflows;
    connect(w.ui.menuitemUserGuide, &QAction::triggered, this,
            [this] { UserGuide::show(m_services.prompts); });
    connect(w.ui.bttnStatusHelp, &QAbstractButton::clicked, this,
            &AppDelegate::onBttnHelpDeviceStatus);
    connect(w.ui.menuitemStatusHelp, &QAction::triggered, this,
            &AppDelegate::onBttnHelpDeviceStatus);
    connect(w.ui.headerTask, &AQGroupHeader::helpRequested, this, &AppDelegate::onBttnHelpTask);
    connect(w.ui.menuitemTaskHelp, &QAction::triggered, this, &AppDelegate::onBttnHelpTask);
    connect(w.ui.menuitemDiagnostics, &QAction::triggered, this, &AppDelegate::showDiagnostics);
    connect(w.ui.menuitemProtocolLog, &QAction::triggered, this, &AppDelegate::showProtocolLog);
    connect(w.ui.menuitemAbout, &QAction::triggered, this, [this] {
        auto* about = m_window->findChild<AQAboutPanel*>();
        if (!about)
            about = new AQAboutPanel(m_window.get());
        about->show();
        about->raise();
        about->activateWindow();
    });
}

void AppDelegate::onConnectedChanged(bool isConnected) {
    m_window->showConnected(isConnected);
    if (m_workflows->deviceTime)
        m_workflows->deviceTime->setConnected(isConnected);
    m_workflows->comparison.setConnected(isConnected);
    updateControls();
    if (!isConnected) {
        // First, since what comes of a broken send is told as for a lamp that is away.
        m_workflows->lampContents.linkLost();
        m_workflows->transfers.linkWasLost();
        m_workflows->departure.linkWasLost();
    } else {
        m_workflows->lampContents.linkOpened(m_services.controller.portPath());
    }
    m_workflows->lamp.setConnected(isConnected);
}

void AppDelegate::openChosenDevice(const std::string& path) {
    m_workflows->connection.openDevice(path);
    // The present link goes on when it is the chosen one, or that one was unplugged meanwhile.
    m_workflows->lamp.resume();
}

void AppDelegate::showSign() {
    const QString sign = m_workflows->departure.sign();
    m_window->showPreview(sign.isEmpty() ? m_workflows->lamp.sign() : sign);
}

void AppDelegate::updateTelling() {
    using Tell = TransferWorkflow::Tell;
    m_workflows->transfer.setTelling(!m_workflows->departure.isEnding() ? Tell::Everything
                                     : m_isUnattended                   ? Tell::Nothing
                                                                        : Tell::WrongStoring);
}

void AppDelegate::showStatistics() {
    m_workflows->ui.lblStatistics->setStatistics(statisticsOf(m_services.data.preview().points()));
}

void AppDelegate::showPortProblem(const QString& problem, const QString& help,
                                  const std::vector<YMessageError::PortRemedy>& remedies) {
    auto& panel = m_workflows->portHelp;
    m_window->showPortProblem(problem, help, !remedies.empty());
    if (!panel && !remedies.empty())
        panel = std::make_unique<PortHelpPanel>(m_window.get());
    if (panel)
        panel->setProblem(help, remedies);
}

void AppDelegate::showLampState() {
    const LampContents& lamp = m_workflows->lampContents;
    m_window->showLampState(lamp.text(), lamp.explanation(),
                            lamp.state() == LampContents::State::partOfThisProgram);
}

void AppDelegate::menuNewDay() {
    auto* panel = m_window->findChild<NewDayPanel*>();
    if (!panel)
        panel = new NewDayPanel(m_services.data, m_workflows->documents, m_window.get());
    panel->run();
}

void AppDelegate::menuSetDeviceTime() {
    auto& panel = m_workflows->deviceTime;
    // Not at the start, which it would slow down.
    if (!panel)
        panel = std::make_unique<DeviceTimePanel>(m_services.controller, m_window.get());
    panel->menuSetDeviceTime();
}

void AppDelegate::showDiagnostics() {
    const Workflows& w = *m_workflows;
    auto* panel = m_window->findChild<DiagnosticsPanel*>();
    if (!panel)
        panel = new DiagnosticsPanel(m_window.get());
    panel->run(Diagnostics::text({m_services.data, m_services.controller, w.documents, w.trace,
                                  state(), w.ui.bttnLiveModeSwitch->isChecked()}));
}

void AppDelegate::showProtocolLog() {
    auto* log = m_window->findChild<ProtocolLogWindow*>();
    if (!log) {
        log = new ProtocolLogWindow(m_workflows->trace, m_window.get());
        connect(log, &ProtocolLogWindow::saveFailed, this,
                [this](const QString& path, const QString& reason) {
                    m_services.prompts.alert(
                        tr("Could not save file!"),
                        path + QStringLiteral(": ") +
                            QCoreApplication::translate("File", reason.toUtf8()),
                        Prompts::Severity::Critical);
                });
    }
    log->show();
    log->raise();
    log->activateWindow();
}

WindowState AppDelegate::state() const {
    const Workflows& w = *m_workflows;
    return {w.connection.isConnected(), m_services.data.isProgramMode(), w.demoMode.isRunning(),
            w.ui.bttnLiveModeSwitch->isChecked(), w.transfers.isReading()};
}

void AppDelegate::updateControls() {
    Workflows& w = *m_workflows;
    const WindowState state = this->state();
    ControlStates::load(state).applyTo(*w.ui.bttnLoad);
    ControlStates::load(state).applyTo(*w.ui.menuitemLoad);
    ControlStates::send(state).applyTo(*w.ui.bttnSend);
    ControlStates::send(state).applyTo(*w.ui.menuitemSend);
    ControlStates::compare(state).applyTo(*w.ui.menuitemCompare);
    ControlStates::backup(state).applyTo(*w.ui.menuitemBackup);
    ControlStates::live(state).applyTo(*w.ui.bttnLiveModeSwitch);
    ControlStates::live(state).applyTo(*w.ui.lblLiveMode);
    ControlStates::live(state).applyTo(*w.ui.menuitemLiveMode);
    ControlStates::demo(state).applyTo(*w.ui.bttnRunDemo);
    ControlStates::demo(state).applyTo(*w.ui.menuitemRunDemo);
    w.ui.menuitemRunDemo->setText(state.isDemo ? tr("&Stop Demo") : tr("&Run Demo"));
    ControlStates::deviceTime(state).applyTo(*w.ui.menuitemSetDeviceTime);
    const ControlState editing = ControlStates::editing(state);
    ControlStates::curve(state).applyTo(m_window->curveView());
    w.table.setEditingEnabled(editing.isEnabled);
    w.clipboard.setEditing(editing);
    w.programChanges.setEditing(editing);
    w.acclimation.setEditing(editing);
}

void AppDelegate::announceSaved(const QString& path) const {
    Announcement::make(*m_window, tr("Saved %1").arg(QFileInfo(path).fileName()));
}

void AppDelegate::showTitle() {
    m_window->setWindowTitle(m_workflows->documents.windowTitle());
}

void AppDelegate::applicationShouldTerminate(Ask ask) {
    m_isUnattended = ask == Ask::Nothing;
    updateTelling();
    if (m_isUnattended) {
        m_agreedTo.reset();
        m_workflows->recovery.keepForNextStart();
    }
    if (ask == Ask::AboutChanges && !m_workflows->departure.isEnding())
        m_workflows->documents.askAboutChanges(tr("Save changed before quitting?"), [this] {
            m_agreedTo = m_services.data.contents();
            closeDialogsThenTerminate();
        });
    else
        closeDialogsThenTerminate();
}

void AppDelegate::onDepartureEnded() {
    // What was told of the send is to be read.
    const ModalPause& pause = m_services.controller.modalPause();
    if (pause.isActive() && !m_isUnattended) {
        connect(&pause, &ModalPause::ended, this, &AppDelegate::onDepartureEnded,
                static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection |
                                                Qt::UniqueConnection));
        return;
    }
    // The window can be worked in while the controller is waited for.
    if (m_agreedTo && *m_agreedTo != m_services.data.contents()) {
        m_workflows->departure.stay();
        applicationShouldTerminate(Ask::AboutChanges);
        return;
    }
    if (m_agreedTo)
        m_workflows->recovery.giveUp();
    else
        m_workflows->recovery.keepForNextStart();
    m_services.controller.stop();
    Q_EMIT terminated();
}

void AppDelegate::closeDialogsThenTerminate() {
    // The link's time-outs wait for dialogs, and nobody may be there to close one.
    while (QWidget* dialog = QApplication::activeModalWidget()) {
        if (!dialog->close())
            break;
    }
    // Nobody may be there to ask a second time.
    m_workflows->departure.end(m_isUnattended ? Departure::Loss::Ends : Departure::Loss::CallsOff);
}

void AppDelegate::onBttnHelpDeviceStatus() {
    AQHelpPopover::present(*m_workflows->ui.bttnStatusHelp,
                           tr("Aquelon controller connection status\n\n"
                              "Indicates if the Aquelon controller communication is "
                              "active.\nIf \"NOT CONNECTED\" is displayed, select a controller "
                              "and connect to it by choosing \"Menu | Device | Open Device...\"."),
                           QSize(410, 120));
}

void AppDelegate::onBttnHelpTask() {
    AQHelpPopover::present(*m_workflows->ui.headerTask->helpButton(),
                           tr("Sets time, intensity and color point of the task lighting.\n\n"
                              "Task lighting can be enabled by pressing the button on the "
                              "Aquelon controller. By pressing the button again, the contoller "
                              "will fall back to its previous state and program.\n\n"
                              "Task lighting can be used for tank maintenance or quickly "
                              "checking the inhabitants at night"),
                           QSize(380, 165));
}

#pragma once

#include "AppDelegate.h"
#include "MainWindow.h"
#include "data/AQDataSource.h"
#include "simulator/EventLoop.h"
#include "simulator/FaultPlan.h"
#include "simulator/SimulatedController.h"
#include "simulator/SimulatedSerialPortManager.h"
#include "simulator/WireLog.h"
#include "ui_MainWindow.h"
#include "yprotocoll/link/ModalPause.h"

#include "yprotocoll/link/YMessageController.h"
#include <gtest/gtest.h>

#include <QLabel>

/// The whole program in this process: its real window on simulated controllers, with shortened
/// intervals and with dialogs of the test's choice.
template <class Dialogs>
struct SimulatedProgram {
    explicit SimulatedProgram(YMessageController::Intervals intervals,
                              const QString& recoveryFolder = {}, const QString& recentFiles = {},
                              const QStringList& paperModule = {})
        : controller(ports, pause, intervals),
          delegate({data, controller, prompts, recoveryFolder, recentFiles, paperModule}) {}

    /// Shows the window and looks for controllers; there is none yet.
    void start(const QString& file = {}) {
        delegate.applicationDidFinishLaunching(file);
        runUntil([this] { return ports.listings() > 0; });
    }
    void plug() { ports.plug("ttyUSB0", device, faults); }
    /// Plugs a new controller in and waits until it is connected.
    void connect(const ControllerConfig& config = {}) {
        device = SimulatedController(config);
        plug();
        ASSERT_TRUE(runUntil([this] { return isConnected(); }));
    }
    void fault(const char* text) { faults.add(*Fault::parse(text)); }
    /// In the link and in the window.
    bool isConnected() {
        return controller.isConnected() &&
               ui().lblConnectionStatus->text() == QLatin1String("CONNECTED");
    }
    Ui::MainWindow& ui() { return delegate.window().outlets(); }
    int received(const std::string& command) const {
        const auto& counts = device.commandCounts();
        const auto found = counts.find(command);
        return found == counts.end() ? 0 : found->second;
    }

    WireLog log;
    FaultPlan faults;
    SimulatedController device;
    SimulatedSerialPortManager ports{log};
    ModalPause pause;
    YMessageController controller;
    NotificationCenter notifications;
    QDate today = QDate(2026, 11, 22);
    AQDataSource data{notifications, [this] { return controller.device(); },
                      [this] { return today; }};
    Dialogs prompts;
    AppDelegate delegate;
};

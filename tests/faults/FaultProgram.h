#pragma once

#include "AppDelegate.h"
#include "data/AQDataSource.h"
#include "faults/LoopWatch.h"
#include "faults/RecordingDialogs.h"
#include "simulator/EventLoop.h"
#include "simulator/FaultPlan.h"
#include "simulator/SimulatedController.h"
#include "simulator/SimulatedSerialPortManager.h"
#include "simulator/WireLog.h"
#include "yprotocoll/link/ModalPause.h"
#include "yprotocoll/link/YMessageController.h"

#include <chrono>
#include <string>

namespace Ui {
class MainWindow;
}

/// The whole program with its real window and dialogs, on one simulated controller whose line can
/// be spoilt. The link's time-outs are a fifth of the real ones, its scan comes sooner still.
class FaultProgram {
public:
    static constexpr YMessageController::Intervals intervals{.scan = std::chrono::milliseconds(100),
                                                             .open = std::chrono::milliseconds(800),
                                                             .answer =
                                                                 std::chrono::milliseconds(40),
                                                             .arrival =
                                                                 std::chrono::milliseconds(1)};

    FaultProgram();

    /// Shows the window and looks for controllers; there is none yet.
    void start();
    void plug() { ports.plug("ttyUSB0", device, faults); }
    /// In the link and in the window.
    bool isConnected();
    Ui::MainWindow& ui();
    static int modalWindowCount();

    /// A command sent now is answered.
    bool linkWorks();
    /// Commands that went over the line again, one after another with the same bytes.
    int repeats() const;
    int received(const std::string& command) const;
    /// The bytes of an answer to an imagined command, as these faults make them, come unasked.
    void sayUnasked(const std::vector<Fault>& spoiltBy);

    WireLog log;
    FaultPlan faults;
    SimulatedController device;
    SimulatedSerialPortManager ports{log};
    ModalPause pause;
    YMessageController controller{ports, pause, intervals};
    NotificationCenter notifications;
    AQDataSource data{notifications, [this] { return controller.device(); }};
    RecordingDialogs prompts;
    AppDelegate delegate{{data, controller, prompts}};
    LoopWatch watch;
};

#pragma once

#include "SimulatedProgram.h"
#include "faults/LoopWatch.h"
#include "faults/RecordingDialogs.h"
#include "yprotocoll/YCommands.h"

/// The program with its real dialogs, on one controller whose line can be spoilt. The link's
/// time-outs are a fifth of the real ones, its scan comes sooner still.
class FaultProgram : public SimulatedProgram<RecordingDialogs> {
public:
    static constexpr YMessageController::Intervals intervals{
        .scan = std::chrono::milliseconds(100),
        .open = std::chrono::milliseconds(800),
        .answer = std::chrono::milliseconds(40),
        .arrival = std::chrono::milliseconds(1)};

    FaultProgram() : SimulatedProgram(intervals) { prompts.setParent(&delegate.window()); }

    static int modalWindowCount() {
        const auto windows = QApplication::topLevelWidgets();
        return static_cast<int>(std::ranges::count_if(windows, [](const QWidget* window) {
            return window->isModal() && window->isVisible();
        }));
    }
    /// A command sent now is answered.
    bool linkWorks() {
        const auto isAnswered = std::make_shared<bool>(false); // outlives a callback that is late
        controller.send(CmdGetTime(), [isAnswered](const YAnswer&) { *isAnswered = true; });
        return runUntil([&] { return *isAnswered; });
    }
    /// Commands that went over the line again, one after another with the same bytes.
    int repeats() const {
        int count = 0;
        const WireEvent* last = nullptr;
        for (const WireEvent& event : log.events()) {
            if (event.kind != WireEvent::Kind::Received)
                continue;
            count += last && last->bytes == event.bytes ? 1 : 0;
            last = &event;
        }
        return count;
    }
    /// The bytes of an answer to an imagined command, as these faults make them, come unasked.
    void sayUnasked(const std::vector<Fault>& spoiltBy) {
        const YMessage command("CmdGetTaskMode", 50, {});
        FaultPlan plan;
        for (const LinePiece& piece : plan.apply(spoiltBy, command, device.execute(command)).pieces)
            ports.device("ttyUSB0")->line->send(piece.bytes, piece.label);
    }

    LoopWatch watch;
};

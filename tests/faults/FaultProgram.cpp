#include "faults/FaultProgram.h"

#include "MainWindow.h"
#include "ui_MainWindow.h"
#include "yprotocoll/YCommands.h"

#include <QApplication>

FaultProgram::FaultProgram() {
    prompts.setParent(&delegate.window());
}

void FaultProgram::start() {
    delegate.applicationDidFinishLaunching({});
    runUntil([this] { return ports.listings() > 0; });
}

Ui::MainWindow& FaultProgram::ui() {
    return delegate.window().outlets();
}

bool FaultProgram::isConnected() {
    return controller.isConnected() &&
           ui().lblConnectionStatus->text() == QLatin1String("CONNECTED");
}

int FaultProgram::modalWindowCount() {
    const auto windows = QApplication::topLevelWidgets();
    return static_cast<int>(std::ranges::count_if(
        windows, [](const QWidget* window) { return window->isModal() && window->isVisible(); }));
}

bool FaultProgram::linkWorks() {
    const auto isAnswered = std::make_shared<bool>(false); // outlives a callback that comes late
    controller.send(CmdGetTime(), [isAnswered](const YAnswer&) { *isAnswered = true; });
    return runUntil([&] { return *isAnswered; });
}

int FaultProgram::repeats() const {
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

int FaultProgram::received(const std::string& command) const {
    const auto& counts = device.commandCounts();
    const auto found = counts.find(command);
    return found == counts.end() ? 0 : found->second;
}

void FaultProgram::sayUnasked(const std::vector<Fault>& spoiltBy) {
    const YMessage command("CmdGetTaskMode", 50, {});
    FaultPlan plan;
    for (const LinePiece& piece : plan.apply(spoiltBy, command, device.execute(command)).pieces)
        ports.device("ttyUSB0")->line->send(piece.bytes, piece.label);
}

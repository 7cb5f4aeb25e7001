#pragma once

#include "data/ColorMapping.h"
#include "faults/FaultProgram.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <gtest/gtest.h>

/// Something the program is doing when a fault strikes.
struct FaultMoment {
    const char* name;
    /// Begins it. The faults are in the plan of the device's line already, and strike the answers
    /// to what is sent from now on.
    void (*begin)(FaultProgram& program, const std::vector<Fault>& faults);
    /// What the person wanted has happened.
    bool (*isDone)(FaultProgram& program);
    bool beginsConnected = true;
    /// Taken up again by itself when the link is back.
    bool isResumed = false;
};

namespace {

using Faults = std::vector<Fault>;

/// The link's time-outs wait for modal windows: as long as one is shown, nothing is sent again and
/// nothing is told, whatever is missing.
void nothingHappensBehind(FaultProgram& program, const std::string& command) {
    const auto alerts = program.prompts.alerts;
    const bool wasConnected = program.isConnected();
    program.watch.restart();
    program.watch.turnsDuring(2 * FaultProgram::intervals.answer);
    if (wasConnected && program.isConnected()) {
        EXPECT_EQ(program.prompts.alerts, alerts);
    }
    EXPECT_EQ(program.received(command), 1);
}

void switchProgramMode(FaultProgram& program) {
    program.ui().bttnSwitchProgMode->click();
}

bool programModeIsSwitched(FaultProgram& program) {
    return !program.device.state().programMode;
}

// The moments

void open(FaultProgram& program, const Faults&) {
    program.plug();
}

bool isOpen(FaultProgram& program) {
    return program.isConnected();
}

/// Nothing is asked for when it strikes; the next command meets the same faults again.
void rest(FaultProgram& program, const Faults& faults) {
    program.sayUnasked(faults);
    switchProgramMode(program);
}

void load(FaultProgram& program, const Faults&) {
    program.ui().bttnLoad->click();
}

bool isLoaded(FaultProgram& program) {
    constexpr int storedPoints = 4;
    return program.data.sequence().count() == storedPoints;
}

void send(FaultProgram& program, const Faults&) {
    program.ui().bttnSend->click();
    EXPECT_TRUE(RecordingDialogs::press(QMessageBox::Yes));
}

bool isSent(FaultProgram& program) {
    return program.prompts.alerts.filter(QStringLiteral("Upload was successfull!")).size() == 1;
}

void showLive(FaultProgram& program, const Faults&) {
    program.ui().bttnLiveModeSwitch->click();
    program.ui().sliderTaskBrightness->userSetValue(0.25);
}

bool isShownLive(FaultProgram& program) {
    const AQTimePoint& light = program.data.taskLight();
    const ChannelLevels levels = levelsFromLight(light.colorTemp, light.brightness);
    const ControllerState& state = program.device.state();
    return state.demoActive && state.demoLevels == std::array{levels.cold, levels.warm};
}

void runDemo(FaultProgram& program, const Faults&) {
    program.ui().bttnRunDemo->click();
}

bool isDemoRunning(FaultProgram& program) {
    return program.device.state().demoActive && program.received("CmdSetDemoModeLevels") > 0;
}

void setClock(FaultProgram& program, const Faults&) {
    program.ui().menuitemSetDeviceTime->trigger();
    auto* panel = RecordingDialogs::shown<QDialog>();
    ASSERT_TRUE(panel);
    nothingHappensBehind(program, "CmdGetRTC");
    panel->findChild<QCheckBox*>(QStringLiteral("chkDaylightSaving"))->setChecked(true);
    auto* ok = panel->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    // With the link gone there is nothing to set.
    EXPECT_TRUE(runUntil([&] { return ok->isEnabled() == program.isConnected(); }));
    ok->isEnabled() ? ok->click() : panel->reject();
}

bool isClockSet(FaultProgram& program) {
    constexpr unsigned enabledBit = 0x80;
    return (program.device.state().daylight.flags & enabledBit) != 0;
}

void readAlert(FaultProgram& program, const Faults&) {
    switchProgramMode(program);
    program.prompts.DialogPrompts::alert(QStringLiteral("Could not save file!"), {},
                                         Prompts::Severity::Critical);
    auto* box = RecordingDialogs::shown<QMessageBox>();
    ASSERT_TRUE(box);
    nothingHappensBehind(program, "CmdSetDeviceMode");
    box->button(QMessageBox::Ok)->click();
}

void chooseFile(FaultProgram& program, const Faults&) {
    program.data.setIsDirty(false);
    program.ui().menuitemOpen->trigger();
    auto* panel = RecordingDialogs::shown<QFileDialog>();
    ASSERT_TRUE(panel);
    // The document would be asked about, had the mode been switched before.
    switchProgramMode(program);
    nothingHappensBehind(program, "CmdSetDeviceMode");
    panel->reject();
    // Its end waits for the thread that reads folders, which is not the link's doing.
    const QPointer<QFileDialog> closing(panel);
    EXPECT_TRUE(runUntil([&] { return !closing; }));
    program.watch.restart();
}

constexpr FaultMoment faultMoments[] = {
    {"opening", open, isOpen, false},
    {"idle", rest, programModeIsSwitched},
    {"loading", load, isLoaded},
    {"sending", send, isSent},
    {"live", showLive, isShownLive, true, true},
    {"demo", runDemo, isDemoRunning, true, true},
    {"clockPanel", setClock, isClockSet},
    {"openAlert", readAlert, programModeIsSwitched},
    {"filePanel", chooseFile, programModeIsSwitched},
};

} // namespace

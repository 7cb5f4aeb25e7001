#include "workflows/ControlStates.h"

#include <QAction>
#include <QWidget>

void ControlState::applyTo(QWidget& widget) const {
    widget.setEnabled(isEnabled);
    widget.setToolTip(toolTip);
}

void ControlState::applyTo(QAction& action) const {
    action.setEnabled(isEnabled);
    action.setToolTip(toolTip);
}

namespace {

ControlState whileConnected(const WindowState& state, const QString& purpose) {
    if (!state.isConnected)
        return {false, ControlState::tr("No controller is connected")};
    return {true, purpose};
}

ControlState whileNotReading(const WindowState& state, const QString& purpose) {
    if (state.isConnected && state.isReading)
        return {false, ControlState::tr("The controller is being read already")};
    return whileConnected(state, purpose);
}

} // namespace

ControlState ControlStates::load(const WindowState& state) {
    return whileConnected(
        state, ControlState::tr("Replace the light program by the one in the controller"));
}

ControlState ControlStates::send(const WindowState& state) {
    return whileConnected(state, ControlState::tr("Store the light program in the controller"));
}

ControlState ControlStates::live(const WindowState& state) {
    if (state.isConnected && state.isDemo)
        return {false, ControlState::tr("The demo has the lamp; stop it first")};
    return whileNotReading(state, ControlState::tr("Show on the lamp what is being edited"));
}

ControlState ControlStates::demo(const WindowState& state) {
    if (state.isDemo)
        return whileConnected(state, ControlState::tr("Give the lamp back to its own program"));
    return whileNotReading(state, ControlState::tr("Play the whole day on the lamp"));
}

ControlState ControlStates::deviceTime(const WindowState& state) {
    return whileConnected(state, ControlState::tr("Set the controller's clock"));
}

ControlState ControlStates::compare(const WindowState& state) {
    if (state.isConnected && state.isDemo)
        return {false, ControlState::tr("The demo has the lamp; stop it first")};
    if (state.isConnected && state.isLive)
        return {false, ControlState::tr("Live mode has the lamp; switch it off first")};
    return whileNotReading(state,
                           ControlState::tr("Tell how the light program differs from the one "
                                            "in the controller"));
}

ControlState ControlStates::backup(const WindowState& state) {
    return whileNotReading(state,
                           ControlState::tr("Save what the controller holds, without loading it"));
}

ControlState ControlStates::editing(const WindowState& state) {
    if (!state.isProgramMode)
        return {false, ControlState::tr("The lamp follows its analog 1-10 V input; switch to "
                                        "programmed mode to edit the light program")};
    return {true, ControlState::tr("Double-click to add a point, drag points up or down and their "
                                   "time tag sideways.\nArrow keys select and dim, with Alt they "
                                   "move in time.")};
}

ControlState ControlStates::curve(const WindowState& state) {
    if (state.isDemo)
        return {true, ControlState::tr("Click to go to a time of the day, drag to go through it.\n"
                                       "Space pauses and goes on, Left and Right go to the point "
                                       "before and after.")};
    return editing(state);
}

#pragma once

#include <QCoreApplication>
#include <QString>

class QAction;
class QWidget;

/// What the program is doing, as far as it decides which controls can be used.
struct WindowState {
    bool isConnected = false;
    bool isProgramMode = true;
    bool isDemo = false;
    bool isLive = false;
    bool isReading = false; ///< the controller, for a comparison or a backup
};

/// Whether a control can be used, and if not, why: the reason is its tool tip.
struct ControlState {
    bool isEnabled = true;
    QString toolTip;

    void applyTo(QWidget& widget) const;
    void applyTo(QAction& action) const;
    bool operator==(const ControlState&) const = default;

    Q_DECLARE_TR_FUNCTIONS(ControlState)
};

/// Which controls can be used, as functions of the state alone.
namespace ControlStates {

ControlState load(const WindowState& state);
ControlState send(const WindowState& state);
/// The live switch waits while a demo has the lamp.
ControlState live(const WindowState& state);
ControlState demo(const WindowState& state);
ControlState deviceTime(const WindowState& state);
/// Not while the lamp shows a preview.
ControlState compare(const WindowState& state);
ControlState backup(const WindowState& state);
/// The point table, its buttons, and what else changes the light program.
ControlState editing(const WindowState& state);
/// The curve is edited like the table, but in either mode of the lamp it leads through a demo.
ControlState curve(const WindowState& state);

} // namespace ControlStates

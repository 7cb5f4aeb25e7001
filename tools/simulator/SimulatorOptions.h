#pragma once

#include "simulator/ControllerConfig.h"
#include "simulator/Fault.h"

#include <QStringList>

#include <string>
#include <vector>

/// What a person asked `aquelon-simulator` for.
struct SimulatorOptions {
    ControllerConfig controller;
    int devices = 1;
    bool pluggedAtStart = true; ///< holds for the controllers, not for foreign devices
    bool foreign = false;       ///< another maker's USB serial device is plugged in too
    bool builtin = false;       ///< and a port with no USB device behind it
    std::string name; ///< of the first controller; the others count on from it; empty: a free one
    bool paced = false;
    std::vector<Fault> faults; ///< of every controller
    std::string logFile;       ///< empty: no log; "-": standard output
    std::string controlPath;   ///< empty: no control socket
    QStringList program;       ///< with its arguments

    QStringList tell; ///< not empty: only hand this command to the simulator at `controlPath`

    /// Reads the arguments (the first is the simulator's own name). Prints the help or what is
    /// wrong and ends the process when there is nothing to do.
    static SimulatorOptions parse(const QStringList& arguments);
};

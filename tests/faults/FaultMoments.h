#pragma once

#include "simulator/Fault.h"

#include <span>
#include <vector>

class FaultProgram;

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

std::span<const FaultMoment> faultMoments();

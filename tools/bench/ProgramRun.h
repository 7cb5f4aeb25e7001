#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <sys/types.h>

/// A program with its arguments, and the Qt platform ("offscreen", "xcb") that it is to run on.
struct ProgramCall {
    std::vector<std::string> line;
    std::string platform = "offscreen";
};

// All throw std::runtime_error when the program does not do what it is expected to.

/// Runs a program until it has shown its first picture; ms from the start of its process to the end
/// of that picture.
double runToFirstPaint(const ProgramCall& call);
/// The same under callgrind, whose profile is written to `profile`; the number of instructions.
std::uint64_t instructionsToFirstPaint(const ProgramCall& call, const std::string& profile);

/// A program that runs as long as this lives.
class RunningProgram {
public:
    explicit RunningProgram(const ProgramCall& call);
    /// Asks the program to end, the newest descendant first, and waits for it.
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    /// The process itself, or its child, or the child's child: the program that a wrapper runs.
    pid_t innermost() const;
    /// How often its threads have waited and been woken so far.
    std::uint64_t wakeUps() const;
    double residentMegabytes() const;

private:
    pid_t m_id;
};

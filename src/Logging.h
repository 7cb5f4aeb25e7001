#pragma once

/// Makes the program's log: level debug and above to the system log, and to the terminal when the
/// program was started from one. Written by a thread of its own, so that a slow system log or a
/// stopped terminal never holds up the window; the oldest lines are dropped should it fall 8192
/// behind.
///
/// Lives as long as `main`; the destructor writes what is left.
class Logging {
public:
    Logging();
    ~Logging();
    Logging(const Logging&) = delete;
    Logging& operator=(const Logging&) = delete;
};

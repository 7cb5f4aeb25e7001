#pragma once

/// A control in which typed text waits to be entered.
class Draft {
public:
    virtual ~Draft() = default;

    /// Ends the typing as Enter does. False when what was typed was refused; true when nothing was.
    virtual bool commit() = 0;
};

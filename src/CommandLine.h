#pragma once

#include <QString>
#include <QStringList>

/// What stands on the command line. It is read before there is an application object, so that help,
/// version and mistakes are told without a display.
struct CommandLine {
    QString file;   ///< to be opened; empty: none
    QString answer; ///< not empty: this is printed, and the program ends
    int status = 0; ///< its exit status then: 0 for what was asked for, 2 for a mistake

    /// Reads main()'s arguments, the first of which is the program's own name.
    static CommandLine read(int count, const char* const* arguments);
    static CommandLine read(const QStringList& arguments);

    /// Prints the answer, a mistake on standard error. False: there is none.
    bool print() const;
};

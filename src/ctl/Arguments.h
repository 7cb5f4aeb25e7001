#pragma once

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

/// What stands on the command line.
struct Arguments {
    enum class Command { list, info, load, send, compare, clock, check, demo };

    Command command = Command::list;
    QString name;                         ///< of the command; empty for none
    QString file;                         ///< for the commands that take one
    QString device;                       ///< empty: the only one
    std::chrono::milliseconds timeout{0}; ///< how long to wait for a controller
    int scale = 100;                      ///< percent, 1..100
    bool isJson = false;
    bool isForced = false;
    bool setsClock = false;

    QString help;    ///< not empty: it is printed, and nothing else is done
    QString mistake; ///< not empty: what is wrong

    /// Reads main()'s arguments, the first of which is the program's own name.
    static Arguments read(const QStringList& arguments);
};

#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

/// The exit statuses; one that was ended by a signal exits with 128 and its number.
enum class Exit {
    done = 0,
    refused = 1, ///< something about a file or a program forbids it
    usage = 2,
    noController = 3, ///< or more than one to choose from
    linkFailed = 4,
    different = 5 ///< the lamp holds something else
};

/// How a command ended, and what it has to say.
struct Outcome {
    int status = static_cast<int>(Exit::done);
    QString error = {};      ///< empty unless it failed
    QStringList lines = {};  ///< the result for a person
    QStringList notes = {};  ///< what else is to be known
    QJsonObject result = {}; ///< the result for a program

    static Outcome failure(Exit status, const QString& error, const QStringList& notes = {}) {
        return {static_cast<int>(status), error, {}, notes, {}};
    }

    /// The result goes to the standard output, error and notes to the standard error stream; as
    /// JSON all is one object on the output. False when the output did not take it.
    bool print(const QString& command, bool isJson) const;
    /// Whether all that was printed has gone where the output goes.
    static bool isOutputWritten();
};

#include "ctl/Outcome.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>

bool Outcome::isOutputWritten() {
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

bool Outcome::print(const QString& command, bool isJson) const {
    if (!isJson) {
        for (const QString& line : lines)
            std::fprintf(stdout, "%s\n", qPrintable(line));
        const bool isWritten = isOutputWritten();
        if (!error.isEmpty())
            std::fprintf(stderr, "aquelonctl: %s\n", qPrintable(error));
        for (const QString& note : notes)
            std::fprintf(stderr, "%s\n", qPrintable(note));
        return isWritten;
    }
    QJsonObject object = result;
    object[QStringLiteral("command")] = command;
    object[QStringLiteral("exit")] = status;
    if (!error.isEmpty())
        object[QStringLiteral("error")] = error;
    if (!notes.isEmpty())
        object[QStringLiteral("notes")] = QJsonArray::fromStringList(notes);
    std::fprintf(stdout, "%s\n", QJsonDocument(object).toJson(QJsonDocument::Compact).constData());
    return isOutputWritten();
}

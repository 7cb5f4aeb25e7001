#pragma once

#include "data/NotificationCenter.h"

#include <QObject>

#include <string>
#include <utility>
#include <vector>

/// Keeps what a notification centre posts, one line each, with the sender's class or "nobody":
/// "cellChanged 2 0 from AQCurveView".
class NotificationLog : public QObject {
public:
    explicit NotificationLog(NotificationCenter& center) {
        using Center = NotificationCenter;
        connect(&center, &Center::dataDirty, this, [this](auto* s) { add("dataDirty", s); });
        connect(&center, &Center::dataChanged, this, [this](auto* s) { add("dataChanged", s); });
        connect(&center, &Center::dataLoaded, this, [this](auto* s) { add("dataLoaded", s); });
        connect(&center, &Center::taskLightChanged, this,
                [this](auto* s) { add("taskLightChanged", s); });
        connect(&center, &Center::programModeChanged, this,
                [this](auto* s) { add("programModeChanged", s); });
        connect(&center, &Center::sectionChanged, this,
                [this](int row, auto* s) { add("sectionChanged " + std::to_string(row), s); });
        connect(&center, &Center::cellChanged, this, [this](int row, int column, auto* s) {
            add("cellChanged " + std::to_string(row) + " " + std::to_string(column), s);
        });
    }
    /// The lines since the last call.
    std::vector<std::string> take() { return std::exchange(m_lines, {}); }

private:
    void add(const std::string& what, const QObject* sender) {
        m_lines.push_back(what + " from " +
                          (sender ? sender->metaObject()->className() : "nobody"));
    }

    std::vector<std::string> m_lines;
};

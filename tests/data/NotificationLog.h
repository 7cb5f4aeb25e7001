#pragma once

#include "data/NotificationCenter.h"

#include <QObject>

#include <map>
#include <string>
#include <utility>
#include <vector>

/// Keeps what a notification centre posts, one line each: "cellChanged 2 0 from view". Objects are
/// named beforehand; null is "nobody".
class NotificationLog : public QObject {
public:
    explicit NotificationLog(NotificationCenter& center) {
        connect(&center, &NotificationCenter::dataDirty, this,
                [this](const QObject* sender) { add("dataDirty", sender); });
        connect(&center, &NotificationCenter::dataChanged, this,
                [this](const QObject* sender) { add("dataChanged", sender); });
        connect(&center, &NotificationCenter::dataLoaded, this,
                [this](const QObject* sender) { add("dataLoaded", sender); });
        connect(&center, &NotificationCenter::sectionChanged, this,
                [this](int row, const QObject* sender) {
                    add("sectionChanged " + std::to_string(row), sender);
                });
        connect(&center, &NotificationCenter::cellChanged, this,
                [this](int row, int column, const QObject* sender) {
                    add("cellChanged " + std::to_string(row) + " " + std::to_string(column),
                        sender);
                });
    }

    void name(const QObject& object, const std::string& name) { m_names[&object] = name; }
    /// The lines since the last call.
    std::vector<std::string> take() { return std::exchange(m_lines, {}); }

private:
    void add(const std::string& what, const QObject* sender) {
        m_lines.push_back(what + " from " + (sender ? m_names[sender] : "nobody"));
    }

    std::map<const QObject*, std::string> m_names;
    std::vector<std::string> m_lines;
};

#pragma once

#include <string>

/// A raw pseudo terminal, both ends open; closing the master is a hang-up for whoever has the slave
/// open.
class PtyPair {
public:
    /// Throws std::system_error when the system has none to give.
    PtyPair();
    ~PtyPair();
    PtyPair(const PtyPair&) = delete;
    PtyPair& operator=(const PtyPair&) = delete;

    int master() const { return m_master; } ///< does not block
    int slave() const { return m_slave; }
    const std::string& slavePath() const { return m_slavePath; }
    void close();
    bool isOpen() const { return m_master >= 0; }

private:
    int m_master = -1;
    int m_slave = -1; ///< kept open, so that the master lives on while no program has the port
    std::string m_slavePath;
};

#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <vector>

/// A desktop of its own for the journeys of one test program: a virtual X display with a window
/// manager, a message bus for the accessibility tree, and empty home and runtime folders. They are
/// in this process's environment until the session ends.
class JourneySession {
public:
    /// Throws std::runtime_error with what is missing.
    JourneySession();
    ~JourneySession();
    JourneySession(const JourneySession&) = delete;
    JourneySession& operator=(const JourneySession&) = delete;

private:
    /// Starts a service that writes one line to a descriptor when it is ready, and returns the
    /// line.
    QString startService(const QString& program, const QStringList& arguments,
                         const QString& descriptorOption);
    void startWindowManager();
    void add(std::unique_ptr<QProcess> service);

    QTemporaryDir m_folder;
    std::vector<std::unique_ptr<QProcess>> m_services;
};

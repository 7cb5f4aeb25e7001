#pragma once

#include <QString>
#include <QStringList>

#include <string>

class SimulatedDevices;
struct SimulatedDevice;

/// Executes the commands that a test or a person gives a running simulator, one line of text each.
class ControlCommands {
public:
    /// The devices must outlive it.
    explicit ControlCommands(SimulatedDevices& devices) : m_devices(devices) {}

    /// The reply, one line: "ok", a JSON object, or "error: " and the reason.
    QString execute(const QString& line);
    /// Shown in the status.
    void setProgramId(qint64 pid) { m_programId = pid; }

private:
    /// Each throws std::runtime_error when the arguments are wrong.
    QString run(QStringList words);
    SimulatedDevice& device(const std::string& name);
    void plug(const std::string& name);
    void changeController(const QString& verb, const QStringList& arguments,
                          SimulatedDevice& device);
    QString status() const;

    SimulatedDevices& m_devices;
    qint64 m_programId = 0;
};

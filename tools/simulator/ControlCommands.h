#pragma once

#include <QString>
#include <QStringList>

class SimulatedDevices;
class WireLog;
struct SimulatedDevice;

/// Executes the commands that a test or a person gives a running simulator, one line of text each.
class ControlCommands {
public:
    /// Devices and log must outlive it.
    ControlCommands(SimulatedDevices& devices, WireLog& log) : m_devices(devices), m_log(log) {}

    /// The reply, one line: "ok", a JSON object, or "error: " and the reason.
    QString execute(const QString& line);
    /// Shown in the status.
    void setProgramId(qint64 pid) { m_programId = pid; }

private:
    /// Each throws std::runtime_error when the arguments are wrong.
    QString run(QStringList words);
    QString runOnDevice(const QString& verb, const QStringList& arguments, SimulatedDevice& device);
    void plug(const QStringList& arguments);
    void editController(const QString& verb, const QStringList& arguments, SimulatedDevice& device);
    QString status() const;

    SimulatedDevices& m_devices;
    WireLog& m_log;
    qint64 m_programId = 0;
};

#pragma once

#include <QObject>
#include <QProcess>
#include <QStringList>

/// The program that the simulator was started for. It has the simulator's terminal, receives the
/// signals that the simulator receives, and never outlives it.
class ChildProgram : public QObject {
    Q_OBJECT

public:
    /// Keeps SIGINT, SIGTERM and SIGHUP from ending this process, so that they can be passed on. To
    /// be called while there is only one thread: threads made later inherit it.
    static void holdSignals();

    ChildProgram();
    ~ChildProgram() override;

    void start(const QStringList& commandLine);
    qint64 processId() const { return m_process.processId(); }

Q_SIGNALS:
    /// `exitStatus` as a shell gives it: 128 and the signal's number when one ended the program,
    /// 127 when it could not be started.
    void ended(int exitStatus);

private:
    void passSignalOn();

    QProcess m_process;
    int m_signals = -1;
    int m_signalsPassedOn = 0;
};

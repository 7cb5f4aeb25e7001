#pragma once

#include <QObject>

class QSocketNotifier;

/// Turns SIGTERM, SIGINT and SIGHUP into a signal of the event loop.
///
/// Make it before any thread is started: the signals are blocked in the calling thread and in all
/// that it starts, and read from a descriptor instead.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

    /// Starts the delivery; needs the application object.
    void watch();

Q_SIGNALS:
    /// `number` is that of the signal.
    void received(int number);

private:
    void onReadable();

    int m_descriptor;
    QSocketNotifier* m_notifier = nullptr;
};

#pragma once

#include <QLocalServer>
#include <QObject>

#include <functional>

/// Takes lines of text from a local socket and answers each with one line.
class ControlServer : public QObject {
    Q_OBJECT

public:
    using Execute = std::function<QString(const QString&)>;

    explicit ControlServer(Execute execute);
    /// False when the socket cannot be made; `errorString()` says why. A file left at `path` by an
    /// earlier run is replaced.
    bool listen(const QString& path);
    QString errorString() const { return m_server.errorString(); }

    /// The other end: hands one line to the simulator at `path` and returns the reply, or a line
    /// beginning with "error: ".
    static QString tell(const QString& path, const QString& line);

private:
    void serve();

    QLocalServer m_server;
    Execute m_execute;
};

#include "simulator/ControlServer.h"

#include <QLocalSocket>

namespace {

constexpr int replyTimeout = 10'000; // milliseconds

} // namespace

ControlServer::ControlServer(Execute execute) : m_execute(std::move(execute)) {
    connect(&m_server, &QLocalServer::newConnection, this, &ControlServer::serve);
}

bool ControlServer::listen(const QString& path) {
    QLocalServer::removeServer(path);
    return m_server.listen(path);
}

void ControlServer::serve() {
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            while (socket->canReadLine()) {
                const QString line = QString::fromUtf8(socket->readLine()).trimmed();
                socket->write(m_execute(line).toUtf8() + '\n');
            }
        });
    }
}

QString ControlServer::tell(const QString& path, const QString& line) {
    QLocalSocket socket;
    socket.connectToServer(path);
    socket.write(line.toUtf8() + '\n');
    while (!socket.canReadLine())
        if (!socket.waitForReadyRead(replyTimeout))
            return QStringLiteral("error: ") + socket.errorString();
    return QString::fromUtf8(socket.readLine()).trimmed();
}

#include "ScriptedPeer.h"

#include <QTcpSocket>
#include <sys/socket.h>

using namespace Qt::StringLiterals;

ScriptedPeer::ScriptedPeer(Trigger trigger, Script script, QObject* parent)
    : QObject(parent), m_trigger(trigger), m_script(std::move(script))
{
    connect(&m_server, &QTcpServer::pendingConnectionAvailable, this, &ScriptedPeer::acceptPending);
}

bool ScriptedPeer::listen()
{
    return m_server.listen(QHostAddress::LocalHost);
}

QString ScriptedPeer::baseUrl(const QString& scheme) const
{
    return u"%1://127.0.0.1:%2"_s.arg(scheme).arg(port());
}

void ScriptedPeer::reset(QTcpSocket* socket)
{
    // Linger with a zero time-out turns the close into a reset.
    const linger abortive{1, 0};
    ::setsockopt(static_cast<int>(socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &abortive,
                 sizeof(abortive));
    socket->abort();
}

void ScriptedPeer::acceptPending()
{
    while (m_server.hasPendingConnections()) {
        QTcpSocket* socket = m_server.nextPendingConnection();
        ++m_connectionCount;
        // Owned by the peer, so its scripts may outlive a closed listener.
        socket->setParent(this);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { onReadyRead(socket); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QObject::destroyed, this,
                [this, socket] { m_connections.remove(socket); });
        m_connections.insert(socket, {});
        if (socket->bytesAvailable() > 0)
            onReadyRead(socket);
    }
}

void ScriptedPeer::onReadyRead(QTcpSocket* socket)
{
    const QByteArray bytes = socket->readAll();
    m_received.append(bytes);
    Connection& connection = m_connections[socket];
    if (connection.scripted)
        return;
    connection.head.append(bytes);
    if (m_trigger == Trigger::requestHead && !connection.head.contains("\r\n\r\n"))
        return;
    connection.scripted = true;
    m_script(socket);
}

#include "LabelSink.h"

#include "LabelSinkConnection.h"

#include <QTcpSocket>

LabelSink::LabelSink(QObject* parent) : QObject(parent)
{
    connect(&m_server, &QTcpServer::pendingConnectionAvailable, this, &LabelSink::acceptPending);
}

bool LabelSink::listen(quint16 port, const QHostAddress& address)
{
    return m_server.listen(address, port);
}

void LabelSink::close()
{
    m_server.close();
}

void LabelSink::acceptPending()
{
    while (m_server.hasPendingConnections()) {
        QTcpSocket* socket = m_server.nextPendingConnection();
        ++m_connectionCount;
        // Owned by the sink rather than by the listening socket, so close() does not cut jobs.
        socket->setParent(this);
        auto* connection = new LabelSinkConnection(socket, m_behaviour);
        connect(connection, &LabelSinkConnection::jobComplete, this, &LabelSink::recordJob);
        connection->begin();
    }
}

void LabelSink::recordJob(const QByteArray& job)
{
    m_jobs.append(job);
    emit jobReceived(job);
}

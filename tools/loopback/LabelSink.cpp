#include "LabelSink.h"

#include "LabelSinkConnection.h"

#include <QTcpSocket>

namespace {

constexpr int kListenBacklog = 4096;

} // namespace

LabelSink::LabelSink(QObject* parent) : QObject(parent)
{
    connect(&m_server, &QTcpServer::pendingConnectionAvailable, this, &LabelSink::acceptPending);
}

bool LabelSink::listen(quint16 port, const QHostAddress& address)
{
    // Qt's default of 50 pending connections is too few for a sender that
    // outruns the sink: the kernel drops further connection attempts, and the
    // sender waits a whole second for its retry.
    m_server.setListenBacklogSize(kListenBacklog);
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
        auto* connection =
            new LabelSinkConnection(socket, m_behaviour, m_statusAnswer, m_maxJobBytes);
        connect(connection, &LabelSinkConnection::jobComplete, this, &LabelSink::recordJob);
        connect(connection, &LabelSinkConnection::statusQueried, this, &LabelSink::statusQueried);
        connect(connection, &LabelSinkConnection::jobTooLarge, this, &LabelSink::jobTooLarge);
        connection->begin();
    }
}

void LabelSink::recordJob(const QByteArray& job)
{
    m_jobs.append(job);
    emit jobReceived(job);
}

#include "LabelSink.h"

#include <QTcpSocket>
#include <QTimer>
#include <algorithm>

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#endif

namespace {

constexpr int kListenBacklog = 4096;
constexpr qint64 kSlowChunkBytes = 512;
constexpr std::chrono::milliseconds kSlowInterval{20};
constexpr QByteArrayView kStatusQuery = "~HS";

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
        m_connections.insert(socket, {m_behaviour, m_statusAnswer, m_maxJobBytes, {}});
        connect(socket, &QObject::destroyed, this,
                [this, socket] { m_connections.remove(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] { finish(socket); });
        if (m_behaviour == Behaviour::closeAtOnce) {
            drop(socket);
        } else if (m_behaviour == Behaviour::readSlowly) {
            // A small read buffer stops Qt from draining the kernel's buffer for us.
            socket->setReadBufferSize(kSlowChunkBytes);
            auto* timer = new QTimer(socket);
            connect(timer, &QTimer::timeout, this,
                    [this, socket] { read(socket, kSlowChunkBytes); });
            timer->start(kSlowInterval);
        } else {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket, -1); });
            read(socket, -1);
        }
    }
}

// Everything available, or at most `maxBytes` when reading slowly.
void LabelSink::read(QTcpSocket* socket, qint64 maxBytes)
{
    Connection& connection = m_connections[socket];
    if (connection.dropped)
        return;
    if (!socket->isReadable()) {
        qDeleteAll(socket->findChildren<QTimer*>());
        return;
    }
    const qsizetype known = connection.received.size();
    connection.received.append(maxBytes < 0 ? socket->readAll() : socket->read(maxBytes));
    if (connection.behaviour == Behaviour::resetMidTransfer && !connection.received.isEmpty()) {
        drop(socket, true);
    } else if (connection.received.size() > connection.maxJobBytes) {
        drop(socket);
        emit jobTooLarge();
    } else if (connection.behaviour != Behaviour::readSlowly) {
        answerStatusQueries(socket, connection, known);
    }
}

// Only bytes from `newFrom` on are new; the ones before hold no query.
void LabelSink::answerStatusQueries(QTcpSocket* socket, Connection& connection, qsizetype newFrom)
{
    if (!connection.statusAnswer)
        return;
    // A query may begin in the last bytes before the new ones.
    const auto overlapFrom = [](qsizetype at) {
        return std::max<qsizetype>(0, at - (kStatusQuery.size() - 1));
    };
    // Like a printer, the query is taken out of the stream and answered at once.
    // Taking it out joins the bytes around it, which may make a query of their own.
    QByteArray& received = connection.received;
    for (qsizetype at = received.indexOf(kStatusQuery, overlapFrom(newFrom)); at >= 0;
         at = received.indexOf(kStatusQuery, overlapFrom(at))) {
        received.remove(at, kStatusQuery.size());
        socket->write(*connection.statusAnswer);
        connection.queried = true;
        emit statusQueried();
    }
}

// Closes the connection without a job, with a reset (RST) instead of a FIN if asked.
void LabelSink::drop(QTcpSocket* socket, bool reset)
{
    m_connections[socket].dropped = true;
    m_connections[socket].received.clear();
#ifdef Q_OS_UNIX
    // Linger with a zero time-out turns the close into a reset.
    const linger abortive{1, 0};
    if (reset)
        ::setsockopt(static_cast<int>(socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &abortive,
                     sizeof(abortive));
#endif
    socket->abort();
    socket->deleteLater();
}

void LabelSink::finish(QTcpSocket* socket)
{
    Connection& connection = m_connections[socket];
    if (!connection.dropped && socket->isReadable())
        connection.received.append(socket->readAll());
    // A connection that only asked for the status carries no job; one that was dropped none at all.
    if (!connection.dropped && !(connection.queried && connection.received.isEmpty())) {
        m_jobs.append(connection.received);
        emit jobReceived(connection.received);
    }
    connection.dropped = true;
    socket->deleteLater();
}

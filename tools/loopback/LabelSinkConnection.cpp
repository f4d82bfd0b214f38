#include "LabelSinkConnection.h"

#include <QTcpSocket>

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#endif

namespace {

constexpr qint64 kSlowChunkBytes = 512;
constexpr std::chrono::milliseconds kSlowInterval{20};
constexpr QByteArrayView kStatusQuery = "~HS";

} // namespace

LabelSinkConnection::LabelSinkConnection(QTcpSocket* socket, LabelSink::Behaviour behaviour,
                                         std::optional<QByteArray> statusAnswer)
    : QObject(socket), m_socket(socket), m_behaviour(behaviour),
      m_statusAnswer(std::move(statusAnswer))
{}

void LabelSinkConnection::begin()
{
    using Behaviour = LabelSink::Behaviour;
    connect(m_socket, &QTcpSocket::disconnected, this, &LabelSinkConnection::onDisconnected);
    switch (m_behaviour) {
    case Behaviour::closeAtOnce:
        m_dropped = true;
        m_socket->abort();
        m_socket->deleteLater();
        return;
    case Behaviour::readSlowly:
        // A small read buffer stops Qt from draining the kernel's buffer for us.
        m_socket->setReadBufferSize(kSlowChunkBytes);
        connect(&m_slowTimer, &QTimer::timeout, this, &LabelSinkConnection::readSlowly);
        m_slowTimer.start(kSlowInterval);
        return;
    case Behaviour::normal:
    case Behaviour::resetMidTransfer:
        connect(m_socket, &QTcpSocket::readyRead, this, &LabelSinkConnection::onReadyRead);
        onReadyRead();
        return;
    }
}

void LabelSinkConnection::onReadyRead()
{
    m_received.append(m_socket->readAll());
    if (m_behaviour == LabelSink::Behaviour::resetMidTransfer && !m_received.isEmpty())
        reset();
    else
        answerStatusQueries();
}

void LabelSinkConnection::answerStatusQueries()
{
    if (!m_statusAnswer)
        return;
    // Like a printer, the query is taken out of the stream and answered at once.
    for (qsizetype at = m_received.indexOf(kStatusQuery); at >= 0;
         at = m_received.indexOf(kStatusQuery)) {
        m_received.remove(at, kStatusQuery.size());
        m_socket->write(*m_statusAnswer);
        m_queried = true;
        emit statusQueried();
    }
}

void LabelSinkConnection::readSlowly()
{
    if (!m_socket->isReadable()) {
        m_slowTimer.stop();
        return;
    }
    m_received.append(m_socket->read(kSlowChunkBytes));
}

void LabelSinkConnection::reset()
{
    m_dropped = true;
#ifdef Q_OS_UNIX
    // Linger with a zero time-out turns the close into a reset (RST), not a FIN.
    const linger abortive{1, 0};
    ::setsockopt(static_cast<int>(m_socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &abortive,
                 sizeof(abortive));
#endif
    m_socket->abort();
    m_socket->deleteLater();
}

void LabelSinkConnection::onDisconnected()
{
    m_slowTimer.stop();
    if (!m_dropped && m_socket->isReadable())
        m_received.append(m_socket->readAll());
    // A connection that only asked for the status carries no job.
    if (!m_dropped && !(m_queried && m_received.isEmpty()))
        emit jobComplete(m_received);
    m_socket->deleteLater();
}

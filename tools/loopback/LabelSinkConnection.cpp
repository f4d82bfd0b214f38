#include "LabelSinkConnection.h"

#include <QTcpSocket>
#include <algorithm>

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#endif

namespace {

constexpr qint64 kSlowChunkBytes = 512;
constexpr std::chrono::milliseconds kSlowInterval{20};
constexpr QByteArrayView kStatusQuery = "~HS";

} // namespace

LabelSinkConnection::LabelSinkConnection(QTcpSocket* socket, LabelSink::Behaviour behaviour,
                                         std::optional<QByteArray> statusAnswer, qint64 maxJobBytes)
    : QObject(socket), m_socket(socket), m_behaviour(behaviour),
      m_statusAnswer(std::move(statusAnswer)), m_maxJobBytes(maxJobBytes)
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
    const qsizetype known = m_received.size();
    m_received.append(m_socket->readAll());
    if (m_behaviour == LabelSink::Behaviour::resetMidTransfer && !m_received.isEmpty())
        reset();
    else if (!dropIfTooLarge())
        answerStatusQueries(known);
}

// Only bytes from `newFrom` on are new; the ones before hold no query.
void LabelSinkConnection::answerStatusQueries(qsizetype newFrom)
{
    if (!m_statusAnswer)
        return;
    // A query may begin in the last bytes before the new ones.
    const auto overlapFrom = [](qsizetype at) {
        return std::max<qsizetype>(0, at - (kStatusQuery.size() - 1));
    };
    // Like a printer, the query is taken out of the stream and answered at once.
    // Taking it out joins the bytes around it, which may make a query of their own.
    for (qsizetype at = m_received.indexOf(kStatusQuery, overlapFrom(newFrom)); at >= 0;
         at = m_received.indexOf(kStatusQuery, overlapFrom(at))) {
        m_received.remove(at, kStatusQuery.size());
        m_socket->write(*m_statusAnswer);
        m_queried = true;
        emit statusQueried();
    }
}

bool LabelSinkConnection::dropIfTooLarge()
{
    if (m_received.size() <= m_maxJobBytes)
        return false;
    m_dropped = true;
    m_received.clear();
    m_slowTimer.stop();
    emit jobTooLarge();
    m_socket->abort();
    m_socket->deleteLater();
    return true;
}

void LabelSinkConnection::readSlowly()
{
    if (!m_socket->isReadable()) {
        m_slowTimer.stop();
        return;
    }
    m_received.append(m_socket->read(kSlowChunkBytes));
    dropIfTooLarge();
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

#include "LabelSinkConnection.h"

#include <QTcpSocket>

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#endif

namespace {

constexpr qint64 kSlowChunkBytes = 512;
constexpr std::chrono::milliseconds kSlowInterval{20};

} // namespace

LabelSinkConnection::LabelSinkConnection(QTcpSocket* socket, LabelSink::Behaviour behaviour)
    : QObject(socket), m_socket(socket), m_behaviour(behaviour)
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
    if (!m_dropped) {
        if (m_socket->isReadable())
            m_received.append(m_socket->readAll());
        emit jobComplete(m_received);
    }
    m_socket->deleteLater();
}

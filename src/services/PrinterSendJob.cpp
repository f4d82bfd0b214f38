#include "PrinterSendJob.h"

#include <QNetworkProxy>

PrinterSendJob::PrinterSendJob(QByteArray payload, std::chrono::milliseconds timeout,
                               QObject* parent)
    : QObject(parent), m_payload(std::move(payload))
{
    // A label printer sits on the local network and speaks raw TCP; a proxy
    // from the environment must not reroute labels (and asking for one costs
    // a lookup per label).
    m_socket.setProxy(QNetworkProxy::NoProxy);
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(timeout);
    connect(&m_timer, &QTimer::timeout, this, &PrinterSendJob::onTimeout);
    connect(&m_socket, &QTcpSocket::connected, this, &PrinterSendJob::onConnected);
    connect(&m_socket, &QTcpSocket::bytesWritten, this, &PrinterSendJob::onBytesWritten);
    connect(&m_socket, &QTcpSocket::errorOccurred, this, &PrinterSendJob::onErrorOccurred);
}

void PrinterSendJob::start(const QString& host, quint16 port)
{
    // The time-out counts from the connection attempt, not from "connected".
    m_timer.start();
    m_socket.connectToHost(host, port);
}

void PrinterSendJob::onConnected()
{
    m_connected = true;
    if (m_payload.isEmpty()) {
        endStream();
        return;
    }
    if (m_socket.write(m_payload) != m_payload.size()) {
        finish(PrinterError::sendFailed(m_socket.errorString()));
        return;
    }
    // Hand the bytes to the network stack now rather than on the next pass of
    // the event loop: a label is small and usually fits the socket's buffer,
    // which saves a wake-up per label.
    m_socket.flush();
}

void PrinterSendJob::onBytesWritten(qint64 count)
{
    m_written += count;
    if (m_written >= m_payload.size())
        endStream();
}

void PrinterSendJob::onErrorOccurred(QAbstractSocket::SocketError)
{
    const QString message = m_socket.errorString();
    finish(m_connected ? PrinterError::sendFailed(message)
                       : PrinterError::connectionFailed(message));
}

void PrinterSendJob::onTimeout()
{
    finish(PrinterError::timeout());
}

void PrinterSendJob::endStream()
{
    // Everything has reached the network stack: FIN after the text, then close.
    m_socket.disconnectFromHost();
    finish(std::nullopt);
}

void PrinterSendJob::finish(std::optional<PrinterError> result)
{
    if (m_finished)
        return;
    m_finished = true;
    m_result = std::move(result);
    m_timer.stop();
    m_socket.disconnect(this);
    if (m_result)
        m_socket.abort();
    emit finished();
}

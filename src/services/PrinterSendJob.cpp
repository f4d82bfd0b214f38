#include "services/PrinterSendJob.h"

#include <QNetworkProxy>

PrinterSendJob::PrinterSendJob(QByteArray payload, std::chrono::milliseconds timeout,
                               QObject* parent)
    : QObject(parent), m_payload(std::move(payload))
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(timeout);
    connect(&m_timer, &QTimer::timeout, this, [this] { finish(PrinterError::timeout()); });
    // A printer is spoken to directly, never through a proxy.
    m_socket.setProxy(QNetworkProxy::NoProxy);
    // Signals rather than waitForConnected(): a refusal must end the job at once.
    connect(&m_socket, &QTcpSocket::connected, this, &PrinterSendJob::onConnected);
    connect(&m_socket, &QTcpSocket::bytesWritten, this, &PrinterSendJob::onBytesWritten);
    connect(&m_socket, &QTcpSocket::errorOccurred, this, &PrinterSendJob::onError);
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
        onBytesWritten();
        return;
    }
    m_socket.write(m_payload);
}

void PrinterSendJob::onBytesWritten()
{
    if (m_finished || m_socket.bytesToWrite() > 0)
        return;
    // Everything has reached the network stack: end of stream after the text.
    m_socket.disconnectFromHost();
    finish(std::nullopt);
}

void PrinterSendJob::onError(QAbstractSocket::SocketError)
{
    const QString message = m_socket.errorString();
    finish(m_connected ? PrinterError::sendFailed(message)
                       : PrinterError::connectionFailed(message));
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

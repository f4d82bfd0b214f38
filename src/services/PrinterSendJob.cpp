#include "PrinterSendJob.h"

#include <QHostInfo>

PrinterSendJob::PrinterSendJob(QByteArray payload, std::chrono::milliseconds timeout,
                               QObject* parent)
    : QObject(parent), m_payload(std::move(payload))
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(timeout);
    connect(&m_timer, &QTimer::timeout, this, &PrinterSendJob::onTimeout);
    connect(&m_socket, &PrinterSocket::writable, this, &PrinterSendJob::onWritable);
}

void PrinterSendJob::start(const QString& host, quint16 port)
{
    // The time-out counts from the connection attempt, not from "connected".
    m_timer.start();
    m_port = port;
    QHostAddress literal;
    if (literal.setAddress(host)) {
        m_addresses = {literal};
        connectToNextAddress();
        return;
    }
    QHostInfo::lookupHost(host, this, &PrinterSendJob::onHostLookedUp);
}

void PrinterSendJob::onHostLookedUp(const QHostInfo& info)
{
    if (m_finished)
        return;
    if (info.error() != QHostInfo::NoError || info.addresses().isEmpty()) {
        finish(PrinterError::connectionFailed(info.errorString()));
        return;
    }
    m_addresses = info.addresses();
    connectToNextAddress();
}

void PrinterSendJob::connectToNextAddress()
{
    // Like any client of a name with several addresses: the next one when one
    // refuses, the last refusal as the answer.
    while (m_nextAddress < m_addresses.size()) {
        const PrinterSocket::Progress progress =
            m_socket.connectTo(m_addresses.at(m_nextAddress++), m_port);
        if (progress != PrinterSocket::Progress::failed) {
            onConnectProgress(progress);
            return;
        }
    }
    finish(PrinterError::connectionFailed(m_socket.errorString()));
}

void PrinterSendJob::onWritable()
{
    if (m_stage == Stage::sending)
        sendRest();
    else
        onConnectProgress(m_socket.finishConnecting());
}

void PrinterSendJob::onConnectProgress(PrinterSocket::Progress progress)
{
    switch (progress) {
    case PrinterSocket::Progress::done:
        m_stage = Stage::sending;
        sendRest();
        break;
    case PrinterSocket::Progress::waiting:
        break;
    case PrinterSocket::Progress::failed:
        connectToNextAddress();
        break;
    }
}

void PrinterSendJob::sendRest()
{
    const PrinterSocket::Progress progress =
        m_socket.send(QByteArrayView(m_payload).sliced(m_written), &m_written);
    if (progress == PrinterSocket::Progress::failed) {
        finish(PrinterError::sendFailed(m_socket.errorString()));
    } else if (progress == PrinterSocket::Progress::done) {
        // Everything has reached the network stack: FIN after the text, then close.
        m_socket.close();
        finish(std::nullopt);
    }
}

void PrinterSendJob::onTimeout()
{
    finish(PrinterError::timeout());
}

void PrinterSendJob::finish(std::optional<PrinterError> result)
{
    if (m_finished)
        return;
    m_finished = true;
    m_result = std::move(result);
    m_timer.stop();
    m_socket.close();
    emit finished();
}

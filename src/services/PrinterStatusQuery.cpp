#include "services/PrinterStatusQuery.h"

#include "services/PrinterError.h"

#include <QNetworkProxy>

using namespace Qt::StringLiterals;

PrinterStatusQuery::PrinterStatusQuery(std::chrono::milliseconds connectTimeout,
                                       std::chrono::milliseconds answerDeadline, QObject* parent)
    : QObject(parent), m_answerDeadline(answerDeadline)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(connectTimeout);
    connect(&m_timer, &QTimer::timeout, this, &PrinterStatusQuery::onTimeout);
    m_socket.setProxy(QNetworkProxy::NoProxy);
    connect(&m_socket, &QTcpSocket::connected, this, &PrinterStatusQuery::onConnected);
    connect(&m_socket, &QTcpSocket::readyRead, this, &PrinterStatusQuery::onReadyRead);
    connect(&m_socket, &QTcpSocket::errorOccurred, this, &PrinterStatusQuery::onError);
}

void PrinterStatusQuery::start(const QString& host, quint16 port)
{
    m_timer.start();
    m_socket.connectToHost(host, port);
}

void PrinterStatusQuery::onConnected()
{
    m_connected = true;
    m_timer.start(m_answerDeadline);
    m_socket.write("~HS");
}

void PrinterStatusQuery::onReadyRead()
{
    // One byte past the bound is enough to know the answer is too long.
    m_answer.append(m_socket.read(PrinterStatus::kMaxAnswerBytes + 1 - m_answer.size()));
    if (std::optional<PrinterStatus> status = PrinterStatus::fromReceived(m_answer))
        finish(*std::move(status));
}

void PrinterStatusQuery::onTimeout()
{
    // Printers keep quiet while out of media or ribbon, open or too hot.
    if (m_connected && m_answer.isEmpty())
        finish(PrinterStatus::failed(
            u"Geen antwoord op de statusvraag: papier of lint op, kop open of te warm?"_s));
    else
        finish(m_connected ? PrinterStatus::unknownAnswer()
                           : PrinterStatus::failed(PrinterError::timeout().errorDescription()));
}

void PrinterStatusQuery::onError(QAbstractSocket::SocketError)
{
    // After connecting, any end before the whole answer is an answer cut short.
    if (m_connected) {
        onReadyRead();
        finish(PrinterStatus::unknownAnswer()); // does nothing when the answer was whole
    } else
        finish(PrinterStatus::failed(
            PrinterError::connectionFailed(m_socket.errorString()).errorDescription()));
}

void PrinterStatusQuery::finish(PrinterStatus result)
{
    if (m_result)
        return;
    m_result = std::move(result);
    m_timer.stop();
    m_socket.disconnect(this);
    m_socket.abort();
    emit finished();
}

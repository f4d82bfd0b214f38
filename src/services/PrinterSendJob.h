#pragma once

#include "services/PrinterError.h"

#include <QAbstractSocket>
#include <QByteArray>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>
#include <chrono>
#include <optional>

// One label job: connect, write the bytes, end the stream. Owns its socket and
// time-out and emits finished() exactly once, whatever happens first; that may
// be before start() returns.
class PrinterSendJob : public QObject
{
    Q_OBJECT

public:
    PrinterSendJob(QByteArray payload, std::chrono::milliseconds timeout,
                   QObject* parent = nullptr);

    // host: an IPv4 or IPv6 literal or a host name; every address of a name is
    // tried in turn, and the last refusal is the answer.
    void start(const QString& host, quint16 port);

    bool isFinished() const { return m_finished; }
    // Empty on success; meaningful once finished.
    const std::optional<PrinterError>& result() const { return m_result; }

signals:
    void finished();

private:
    void onConnected();
    void onBytesWritten();
    void onError(QAbstractSocket::SocketError error);
    void finish(std::optional<PrinterError> result);

    QByteArray m_payload;
    QTcpSocket m_socket;
    QTimer m_timer;
    bool m_connected = false;
    bool m_finished = false;
    std::optional<PrinterError> m_result;
};

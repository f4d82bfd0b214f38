#pragma once

#include "PrinterError.h"

#include <QByteArray>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>
#include <chrono>
#include <optional>

// One label job: connect, write the bytes, end the stream. Owns its socket and
// time-out and emits finished() exactly once, whatever happens first.
class PrinterSendJob : public QObject
{
    Q_OBJECT

public:
    PrinterSendJob(QByteArray payload, std::chrono::milliseconds timeout,
                   QObject* parent = nullptr);

    void start(const QString& host, quint16 port);

    bool isFinished() const { return m_finished; }
    // Empty on success; meaningful once finished.
    const std::optional<PrinterError>& result() const { return m_result; }

signals:
    void finished();

private:
    void onConnected();
    void onBytesWritten(qint64 count);
    void onErrorOccurred(QAbstractSocket::SocketError error);
    void onTimeout();
    void endStream();
    void finish(std::optional<PrinterError> result);

    QByteArray m_payload;
    QTcpSocket m_socket;
    QTimer m_timer;
    qint64 m_written = 0;
    bool m_connected = false;
    bool m_finished = false;
    std::optional<PrinterError> m_result;
};

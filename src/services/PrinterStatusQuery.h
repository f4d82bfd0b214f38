#pragma once

#include "services/PrinterStatus.h"

#include <QAbstractSocket>
#include <QByteArray>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>
#include <chrono>
#include <optional>

// One status query: connect, send "~HS", read the three answer strings, close.
// Emits finished() exactly once; that may be before start() returns.
class PrinterStatusQuery : public QObject
{
    Q_OBJECT

public:
    PrinterStatusQuery(std::chrono::milliseconds connectTimeout,
                       std::chrono::milliseconds answerDeadline, QObject* parent = nullptr);

    void start(const QString& host, quint16 port);

    bool isFinished() const { return m_result.has_value(); }
    // Meaningful once finished.
    const PrinterStatus& result() const { return *m_result; }

signals:
    void finished();

private:
    void onConnected();
    void onReadyRead();
    void onTimeout();
    void onError(QAbstractSocket::SocketError error);
    void finish(PrinterStatus result);

    const std::chrono::milliseconds m_answerDeadline;
    QTcpSocket m_socket;
    QTimer m_timer;
    QByteArray m_answer;
    bool m_connected = false;
    std::optional<PrinterStatus> m_result;
};

#pragma once

#include "PrinterError.h"
#include "PrinterSocket.h"

#include <QByteArray>
#include <QHostAddress>
#include <QList>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <optional>

class QHostInfo;

// One label job: connect, write the bytes, end the stream. Owns its socket and
// time-out and emits finished() exactly once, whatever happens first; on a
// nearby printer that may be before start() returns.
class PrinterSendJob : public QObject
{
    Q_OBJECT

public:
    PrinterSendJob(QByteArray payload, std::chrono::milliseconds timeout,
                   QObject* parent = nullptr);

    // host: an IPv4 or IPv6 literal or a host name.
    void start(const QString& host, quint16 port);

    bool isFinished() const { return m_finished; }
    // Empty on success; meaningful once finished.
    const std::optional<PrinterError>& result() const { return m_result; }

signals:
    void finished();

private:
    enum class Stage
    {
        connecting,
        sending,
    };

    void onHostLookedUp(const QHostInfo& info);
    void connectToNextAddress();
    void onWritable();
    void onConnectProgress(PrinterSocket::Progress progress);
    void sendRest();
    void onTimeout();
    void finish(std::optional<PrinterError> result);

    QByteArray m_payload;
    PrinterSocket m_socket;
    QTimer m_timer;
    QList<QHostAddress> m_addresses;
    qsizetype m_nextAddress = 0;
    quint16 m_port = 0;
    Stage m_stage = Stage::connecting;
    qint64 m_written = 0;
    bool m_finished = false;
    std::optional<PrinterError> m_result;
};

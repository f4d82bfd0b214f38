#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QTcpServer>
#include <functional>

class QTcpSocket;

// A raw TCP peer on 127.0.0.1 that does not speak HTTP properly: for every
// connection it runs a script (answer garbage, reset, go silent...) once the
// request head has arrived, or at once when the client speaks first in a
// protocol it does not know (TLS).
class ScriptedPeer : public QObject
{
    Q_OBJECT

public:
    enum class Trigger
    {
        requestHead, // after "\r\n\r\n"
        firstBytes,  // after the first bytes of any kind
    };
    using Script = std::function<void(QTcpSocket*)>;

    ScriptedPeer(Trigger trigger, Script script, QObject* parent = nullptr);

    bool listen();
    quint16 port() const { return m_server.serverPort(); }
    QString baseUrl(const QString& scheme) const;

    // Everything any client sent, in arrival order.
    const QByteArray& received() const { return m_received; }
    int connectionCount() const { return m_connectionCount; }

    // Closes with a reset (RST) instead of an orderly end of stream.
    static void reset(QTcpSocket* socket);

private:
    void acceptPending();
    void onReadyRead(QTcpSocket* socket);

    struct Connection
    {
        QByteArray head; // bytes seen before the script ran
        bool scripted = false;
    };

    QTcpServer m_server;
    QHash<QTcpSocket*, Connection> m_connections;
    const Trigger m_trigger;
    const Script m_script;
    QByteArray m_received;
    int m_connectionCount = 0;
};

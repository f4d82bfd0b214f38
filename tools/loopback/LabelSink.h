#pragma once

#include <QByteArray>
#include <QHash>
#include <QHostAddress>
#include <QList>
#include <QObject>
#include <QTcpServer>
#include <optional>

class QTcpSocket;

// A stand-in for a raw-TCP label printer: every connection is one job, made of
// all bytes that arrived before the peer closed. It can also misbehave the way
// a busy or broken printer does.
class LabelSink : public QObject
{
    Q_OBJECT

public:
    enum class Behaviour
    {
        normal,
        readSlowly,       // a trickle of reading, so a large job stalls the sender
        closeAtOnce,      // accept, then close without reading
        resetMidTransfer, // read the first bytes, then reset the connection
    };
    Q_ENUM(Behaviour)

    explicit LabelSink(QObject* parent = nullptr);

    bool listen(quint16 port = 0, const QHostAddress& address = QHostAddress::LocalHost);
    void close();
    quint16 port() const { return m_server.serverPort(); }

    // Applies to connections accepted from now on.
    void setBehaviour(Behaviour behaviour) { m_behaviour = behaviour; }
    Behaviour behaviour() const { return m_behaviour; }
    // How a host status query ("~HS") is answered on connections accepted from
    // now on: with these bytes, or not at all when they are empty. The query
    // never becomes part of a job. Unset, "~HS" is job data like any other.
    void setStatusAnswer(std::optional<QByteArray> answer) { m_statusAnswer = std::move(answer); }
    // A connection that sends more than this is closed without a job, on
    // connections accepted from now on.
    void setMaxJobBytes(qint64 bytes) { m_maxJobBytes = bytes; }
    qint64 maxJobBytes() const { return m_maxJobBytes; }

    // Jobs from connections the peer closed; the sink's own resets leave none.
    const QList<QByteArray>& jobs() const { return m_jobs; }
    int connectionCount() const { return m_connectionCount; }

signals:
    void jobReceived(const QByteArray& job);
    void statusQueried();
    // A connection passed maxJobBytes() and was closed.
    void jobTooLarge();

private:
    // One accepted connection; the sink's settings at accept time hold for all of it.
    struct Connection
    {
        Behaviour behaviour;
        std::optional<QByteArray> statusAnswer;
        qint64 maxJobBytes;
        QByteArray received;
        bool dropped = false;
        bool queried = false;
    };

    void acceptPending();
    void read(QTcpSocket* socket, qint64 maxBytes);
    void answerStatusQueries(QTcpSocket* socket, Connection& connection, qsizetype newFrom);
    void drop(QTcpSocket* socket, bool reset = false);
    void finish(QTcpSocket* socket);

    QTcpServer m_server;
    Behaviour m_behaviour = Behaviour::normal;
    std::optional<QByteArray> m_statusAnswer;
    // Far above any label the tests send, and still a bound.
    qint64 m_maxJobBytes = qint64(64) * 1024 * 1024;
    QList<QByteArray> m_jobs;
    int m_connectionCount = 0;
    QHash<QTcpSocket*, Connection> m_connections;
};

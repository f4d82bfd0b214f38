#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>
#include <chrono>
#include <functional>
#include <memory>
#include <utility>

class QSslCertificate;
class QSslKey;
class QTcpServer;
class QTcpSocket;

// A minimal HTTP/1.1 server on 127.0.0.1 for tests and the simulator. Every
// connection carries one request and is closed after the answer. Requests are
// recorded as they arrive; a handler decides each answer, including ways of
// misbehaving that a real server may show.
class LoopbackHttpServer : public QObject
{
    Q_OBJECT

public:
    using HeaderList = QList<std::pair<QByteArray, QByteArray>>;

    struct Request
    {
        QByteArray method;
        QByteArray path;
        QByteArray query;   // raw, without the '?', in the order sent
        HeaderList headers; // as sent, in order
        QByteArray body;

        // First header with this name, compared without case; empty when missing.
        QByteArray header(QByteArrayView name) const;
        bool hasHeader(QByteArrayView name) const;
    };

    struct Response
    {
        enum class Mode
        {
            normal,
            neverAnswer, // read the request, then stay silent with the connection open
            trickle,     // announce the whole body, then send it one byte per interval
            truncated,   // announce declaredLength bytes, send the body, close
            stream,      // no Content-Length: streamLength filler bytes, then close
            raw,         // the body as the whole answer, no status or headers, then close
        };

        int status = 200;
        HeaderList headers;
        QByteArray body;
        std::chrono::milliseconds delay{0};
        Mode mode = Mode::normal;
        std::chrono::milliseconds trickleInterval{50};
        qint64 declaredLength = -1;
        qint64 streamLength = 0;

        static Response json(QByteArray body, int status = 200);
        static Response redirect(int status, QByteArray location);
    };

    using Handler = std::function<Response(const Request&)>;

    explicit LoopbackHttpServer(QObject* parent = nullptr);
    ~LoopbackHttpServer() override;

    bool listen(quint16 port = 0);
    // HTTPS with the given identity; the client decides whether to trust it.
    bool listenTls(const QSslCertificate& certificate, const QSslKey& key, quint16 port = 0);
    void close();

    // Without a handler every request gets 404.
    void setHandler(Handler handler);

    quint16 port() const;
    bool isTls() const { return m_tls; }
    // "http://127.0.0.1:PORT" (or https), without a trailing slash.
    QString baseUrl() const;

    const QList<Request>& requests() const { return m_requests; }
    // Accepted TCP connections, including TLS ones whose handshake failed.
    int connectionCount() const { return m_connectionCount; }

signals:
    void requestReceived();

private:
    void acceptPending();
    void adopt(QTcpSocket* socket);
    Response respond(const Request& request);

    std::unique_ptr<QTcpServer> m_server;
    bool m_tls = false;
    Handler m_handler;
    QList<Request> m_requests;
    int m_connectionCount = 0;
};

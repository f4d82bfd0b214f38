#include "LoopbackHttpServer.h"

#include "LoopbackHttpConnection.h"

#include <QHostAddress>
#include <QSslConfiguration>
#include <QSslServer>
#include <QSslSocket>
#include <QTcpServer>
#include <QTcpSocket>
#include <algorithm>

using namespace Qt::StringLiterals;

QByteArray LoopbackHttpServer::Request::header(QByteArrayView name) const
{
    for (const auto& [key, value] : headers) {
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    }
    return {};
}

bool LoopbackHttpServer::Request::hasHeader(QByteArrayView name) const
{
    return std::any_of(headers.cbegin(), headers.cend(), [&](const auto& entry) {
        return entry.first.compare(name, Qt::CaseInsensitive) == 0;
    });
}

LoopbackHttpServer::Response LoopbackHttpServer::Response::json(QByteArray body, int status)
{
    Response response;
    response.status = status;
    response.headers.emplaceBack("Content-Type", "application/json");
    response.body = std::move(body);
    return response;
}

LoopbackHttpServer::Response LoopbackHttpServer::Response::redirect(int status, QByteArray location)
{
    Response response;
    response.status = status;
    response.headers.emplaceBack("Location", std::move(location));
    return response;
}

LoopbackHttpServer::LoopbackHttpServer(QObject* parent) : QObject(parent) {}

LoopbackHttpServer::~LoopbackHttpServer()
{
    // Connections call back into this object; end them while it is still whole.
    qDeleteAll(findChildren<QTcpSocket*>(Qt::FindDirectChildrenOnly));
    close();
}

bool LoopbackHttpServer::listen(quint16 port)
{
    close();
    m_tls = false;
    m_server = std::make_unique<QTcpServer>();
    connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this,
            &LoopbackHttpServer::acceptPending);
    return m_server->listen(QHostAddress::LocalHost, port);
}

bool LoopbackHttpServer::listenTls(const QSslCertificate& certificate, const QSslKey& key,
                                   quint16 port)
{
    close();
    m_tls = true;
    auto server = std::make_unique<QSslServer>();
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(certificate);
    configuration.setPrivateKey(key);
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    server->setSslConfiguration(configuration);
    // Counted at accept time, so a client that refuses the certificate still shows up.
    connect(server.get(), &QSslServer::startedEncryptionHandshake, this,
            [this] { ++m_connectionCount; });
    connect(server.get(), &QTcpServer::pendingConnectionAvailable, this,
            &LoopbackHttpServer::acceptPending);
    m_server = std::move(server);
    return m_server->listen(QHostAddress::LocalHost, port);
}

void LoopbackHttpServer::close()
{
    if (m_server)
        m_server->close();
    m_server.reset();
}

void LoopbackHttpServer::setHandler(Handler handler)
{
    m_handler = std::move(handler);
}

quint16 LoopbackHttpServer::port() const
{
    return m_server ? m_server->serverPort() : 0;
}

QString LoopbackHttpServer::baseUrl() const
{
    return u"%1://127.0.0.1:%2"_s.arg(m_tls ? u"https"_s : u"http"_s).arg(port());
}

void LoopbackHttpServer::acceptPending()
{
    while (m_server && m_server->hasPendingConnections()) {
        QTcpSocket* socket = m_server->nextPendingConnection();
        if (!m_tls)
            ++m_connectionCount;
        adopt(socket);
    }
}

void LoopbackHttpServer::adopt(QTcpSocket* socket)
{
    // Connections belong to this object, not to the listening socket, so that
    // close() stops accepting without cutting answers in progress.
    socket->setParent(this);
    // The connection is a child of its socket and goes with it.
    new LoopbackHttpConnection(socket, [this](const Request& request) { return respond(request); });
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
}

LoopbackHttpServer::Response LoopbackHttpServer::respond(const Request& request)
{
    m_requests.append(request);
    emit requestReceived();
    if (!m_handler) {
        Response notFound;
        notFound.status = 404;
        return notFound;
    }
    return m_handler(request);
}

#pragma once

#include "LoopbackHttpServer.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>
#include <functional>
#include <optional>

class QTcpSocket;

// One request and its answer on one accepted socket. A child of the socket.
class LoopbackHttpConnection : public QObject
{
    Q_OBJECT

public:
    using Request = LoopbackHttpServer::Request;
    using Response = LoopbackHttpServer::Response;
    using Responder = std::function<Response(const Request&)>;

    LoopbackHttpConnection(QTcpSocket* socket, Responder responder);

private:
    void onReadyRead();
    bool readHeader();
    void reject(int status);
    void answer(const Response& response);
    QByteArray headerBlock(const Response& response, qint64 contentLength) const;
    void trickleNext();
    void streamMore();
    void finishAnswer();

    QTcpSocket* m_socket;
    Responder m_responder;
    QByteArray m_buffer;
    qsizetype m_searched = 0;        // bytes of m_buffer searched for the header's end
    std::optional<Request> m_header; // the request without its body, once its header is in
    qsizetype m_bodyStart = 0;
    qint64 m_bodyLength = 0;
    bool m_answered = false;
    QTimer m_trickleTimer;
    QByteArray m_pending; // trickle: bytes still to send
    qint64 m_streamLeft = 0;
};

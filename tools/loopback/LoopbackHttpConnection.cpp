#include "LoopbackHttpConnection.h"

#include <QHash>
#include <QList>
#include <QTcpSocket>
#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype kMaxHeaderBytes = 64 * 1024;
constexpr qint64 kMaxBodyBytes = 1024 * 1024;
constexpr qint64 kStreamChunk = 1024 * 1024;
constexpr QByteArrayView kHeaderEnd = "\r\n\r\n";

const QHash<int, QByteArray> kReasonPhrases{{200, "OK"},
                                            {204, "No Content"},
                                            {301, "Moved Permanently"},
                                            {302, "Found"},
                                            {307, "Temporary Redirect"},
                                            {400, "Bad Request"},
                                            {401, "Unauthorized"},
                                            {403, "Forbidden"},
                                            {404, "Not Found"},
                                            {413, "Payload Too Large"},
                                            {500, "Internal Server Error"}};

} // namespace

LoopbackHttpConnection::LoopbackHttpConnection(QTcpSocket* socket, Responder responder)
    : QObject(socket), m_socket(socket), m_responder(std::move(responder))
{
    connect(socket, &QTcpSocket::readyRead, this, &LoopbackHttpConnection::onReadyRead);
    connect(socket, &QTcpSocket::bytesWritten, this, &LoopbackHttpConnection::streamMore);
    connect(&m_trickleTimer, &QTimer::timeout, this, &LoopbackHttpConnection::trickleNext);
    if (socket->bytesAvailable() > 0)
        onReadyRead();
}

void LoopbackHttpConnection::onReadyRead()
{
    if (m_answered) {
        // Nothing after the request is read, so a client that keeps sending costs no memory.
        m_socket->skip(m_socket->bytesAvailable());
        return;
    }
    m_buffer.append(m_socket->readAll());
    if (!m_header && !readHeader())
        return;
    if (m_buffer.size() - m_bodyStart < m_bodyLength)
        return;
    Request request = *std::exchange(m_header, std::nullopt);
    request.body = m_buffer.mid(m_bodyStart, m_bodyLength);
    m_buffer = QByteArray();
    m_answered = true;
    const Response response = m_responder(request);
    if (response.delay.count() > 0) {
        QTimer::singleShot(response.delay, this, [this, response] { answer(response); });
    } else {
        answer(response);
    }
}

// Parses the header once it is whole; false while it is not, or when the
// request was refused for it.
bool LoopbackHttpConnection::readHeader()
{
    // Only the new bytes, and the last ones before them, can complete the end mark.
    const qsizetype headerEnd =
        m_buffer.indexOf(kHeaderEnd, std::max<qsizetype>(0, m_searched - (kHeaderEnd.size() - 1)));
    m_searched = m_buffer.size();
    if (headerEnd < 0) {
        if (m_buffer.size() > kMaxHeaderBytes)
            m_socket->abort();
        return false;
    }

    const QList<QByteArray> lines = m_buffer.left(headerEnd).split('\n');
    const QList<QByteArray> requestLine = lines.value(0).trimmed().split(' ');
    Request request;
    request.method = requestLine.value(0);
    const QByteArray target = requestLine.value(1);
    const qsizetype question = target.indexOf('?');
    request.path = question < 0 ? target : target.left(question);
    request.query = question < 0 ? QByteArray() : target.mid(question + 1);

    for (qsizetype i = 1; i < lines.size(); ++i) {
        const qsizetype colon = lines.at(i).indexOf(':');
        if (colon > 0)
            request.headers.append(
                {lines.at(i).left(colon).trimmed(), lines.at(i).mid(colon + 1).trimmed()});
    }

    bool isNumber = true;
    const qint64 bodyLength = request.hasHeader("Content-Length")
                                  ? request.header("Content-Length").toLongLong(&isNumber)
                                  : 0;
    if (!isNumber || bodyLength < 0) {
        reject(400);
        return false;
    }
    if (bodyLength > kMaxBodyBytes) {
        reject(413);
        return false;
    }
    m_header = std::move(request);
    m_bodyStart = headerEnd + kHeaderEnd.size();
    m_bodyLength = bodyLength;
    return true;
}

// Answers a request that is never read whole, without asking the responder.
void LoopbackHttpConnection::reject(int status)
{
    m_answered = true;
    m_buffer = QByteArray();
    Response refusal;
    refusal.status = status;
    answer(refusal);
}

QByteArray LoopbackHttpConnection::headerBlock(const Response& response, qint64 contentLength) const
{
    QByteArray block = "HTTP/1.1 " + QByteArray::number(response.status) + ' ' +
                       kReasonPhrases.value(response.status, "Status") + "\r\n";
    for (const auto& [name, value] : response.headers)
        block += name + ": " + value + "\r\n";
    Request declared;
    declared.headers = response.headers;
    if (contentLength >= 0 && !declared.hasHeader("Content-Length"))
        block += "Content-Length: " + QByteArray::number(contentLength) + "\r\n";
    block += "Connection: close\r\n\r\n";
    return block;
}

void LoopbackHttpConnection::answer(const Response& response)
{
    using Mode = Response::Mode;
    switch (response.mode) {
    case Mode::neverAnswer:
        return;
    case Mode::normal:
        m_socket->write(headerBlock(response, response.body.size()) + response.body);
        finishAnswer();
        return;
    case Mode::truncated:
        m_socket->write(headerBlock(response, response.declaredLength) + response.body);
        finishAnswer();
        return;
    case Mode::trickle:
        m_socket->write(headerBlock(response, response.body.size()));
        m_pending = response.body;
        m_trickleTimer.start(response.trickleInterval);
        return;
    case Mode::raw:
        m_socket->write(response.body);
        finishAnswer();
        return;
    case Mode::stream:
        m_socket->write(headerBlock(response, -1));
        m_streamLeft = response.streamLength;
        streamMore();
        return;
    }
}

void LoopbackHttpConnection::trickleNext()
{
    if (m_pending.isEmpty()) {
        m_trickleTimer.stop();
        finishAnswer();
        return;
    }
    m_socket->write(m_pending.left(1));
    m_pending.remove(0, 1);
}

void LoopbackHttpConnection::streamMore()
{
    // Keep about one chunk queued: the body is never held whole in memory.
    if (m_streamLeft <= 0 || m_socket->bytesToWrite() > kStreamChunk)
        return;
    const qint64 size = std::min(m_streamLeft, kStreamChunk);
    m_socket->write(QByteArray(size, ' '));
    m_streamLeft -= size;
    if (m_streamLeft == 0)
        finishAnswer();
}

void LoopbackHttpConnection::finishAnswer()
{
    // Closes once everything queued has been written.
    m_socket->disconnectFromHost();
}

#include "services/ProductReplyReader.h"

#include "services/ProductAPIResponse.h"

#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

constexpr int kStatusOK = 200;
constexpr int kStatusUnauthorized = 401;

QString timeoutDescription(std::chrono::milliseconds timeout)
{
    return u"Time-out: de server antwoordde niet binnen %1 seconden"_s.arg(
        static_cast<double>(timeout.count()) / 1000.0);
}

void logDecodingError(const QString& description)
{
    QTextStream out(stdout);
    out << u"Decoding error: "_s << description << Qt::endl;
}

} // namespace

ProductReplyReader::ProductReplyReader(QNetworkReply* reply, std::chrono::milliseconds timeout,
                                       qint64 maxBodyBytes, QObject* parent)
    : QObject(parent), m_reply(reply), m_timeout(timeout), m_maxBodyBytes(maxBodyBytes)
{
    connect(reply, &QNetworkReply::metaDataChanged, this, &ProductReplyReader::onMetaDataChanged);
    connect(reply, &QNetworkReply::readyRead, this, &ProductReplyReader::onReadyRead);
    connect(reply, &QNetworkReply::finished, this, &ProductReplyReader::onReplyFinished);
    // The reply belongs to the service's access manager and dies with it.
    connect(reply, &QObject::destroyed, this, &ProductReplyReader::onReplyDestroyed);

    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(timeout);
    connect(&m_timer, &QTimer::timeout, this, &ProductReplyReader::onTimeout);
    m_timer.start();

    if (reply->isFinished())
        onReplyFinished();
}

ProductReplyReader::~ProductReplyReader()
{
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->abort();
        m_reply->deleteLater();
    }
}

bool ProductReplyReader::isSuccessStatus() const
{
    return m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() == kStatusOK;
}

void ProductReplyReader::onMetaDataChanged()
{
    // Any status but 200 decides the outcome; its body is never read, so a
    // slow one must not turn it into a time-out. Redirects are Qt's to follow.
    const QVariant status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const bool isRedirect = status.toInt() >= 300 && status.toInt() < 400;
    if (status.isValid() && status.toInt() != kStatusOK && !isRedirect) {
        finish(classifyStatus(status.toInt()));
        return;
    }
    if (!isSuccessStatus())
        return;
    const QVariant length = m_reply->header(QNetworkRequest::ContentLengthHeader);
    if (length.isValid() && length.toLongLong() > m_maxBodyBytes)
        finish(APIError::invalidResponse());
}

void ProductReplyReader::onReadyRead()
{
    // Only a 200 body is ever decoded; anything else is drained, not kept.
    const QByteArray chunk = m_reply->readAll();
    if (!isSuccessStatus())
        return;
    m_body.append(chunk);
    if (m_body.size() > m_maxBodyBytes) {
        m_body.clear();
        finish(APIError::invalidResponse());
    }
}

void ProductReplyReader::onReplyFinished()
{
    m_body.append(m_reply->readAll());
    finish(classify());
}

void ProductReplyReader::onTimeout()
{
    finish(APIError::networkError(timeoutDescription(m_timeout)));
}

void ProductReplyReader::onReplyDestroyed()
{
    finish(APIError::networkError(u"Het verzoek is afgebroken"_s));
}

ProductReplyReader::Result ProductReplyReader::classify() const
{
    const QNetworkReply::NetworkError error = m_reply->error();
    const QVariant statusAttribute = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);

    // A redirect that is not followed (another origin, or too many) ends on
    // the redirect's own status, like any other status but 200.
    const bool redirectRefused = error == QNetworkReply::InsecureRedirectError ||
                                 error == QNetworkReply::TooManyRedirectsError;
    if (redirectRefused && statusAttribute.isValid())
        return APIError::serverError(u"HTTP "_s + QString::number(statusAttribute.toInt()));

    // The error decides first: Qt maps a status other than 200 onto an error
    // of its own, but any error beside a 200 (a reset or a protocol failure
    // part-way through the body) is the transport's, and the body is not whole.
    const bool statusDecides = statusAttribute.isValid() && statusAttribute.toInt() != kStatusOK;
    if (error != QNetworkReply::NoError && !statusDecides)
        return APIError::networkError(m_reply->errorString());
    if (!statusAttribute.isValid())
        return APIError::invalidResponse();
    if (statusDecides)
        return classifyStatus(statusAttribute.toInt());

    if (isTruncated())
        return APIError::networkError(
            u"De verbinding werd verbroken voordat het antwoord compleet was"_s);

    // The read guard normally stops it earlier; whatever way the bytes came,
    // more than the cap is never decoded.
    if (m_body.size() > m_maxBodyBytes)
        return APIError::invalidResponse();

    QString decodingError;
    std::optional<ProductAPIResponse> response = ProductAPIResponse::decode(m_body, &decodingError);
    if (!response) {
        logDecodingError(decodingError);
        return APIError::invalidResponse();
    }
    if (response->error && !response->error->isEmpty())
        return APIError::serverError(*response->error);
    return response->data.value_or(QList<Product>());
}

bool ProductReplyReader::isTruncated() const
{
    // A reset can end a reply without an error; the announced length tells.
    // A compressed body's length counts the compressed bytes, so it says nothing.
    const QVariant length = m_reply->header(QNetworkRequest::ContentLengthHeader);
    return length.isValid() && !m_reply->hasRawHeader("Content-Encoding") &&
           m_body.size() < length.toLongLong();
}

APIError ProductReplyReader::classifyStatus(int status)
{
    if (status == kStatusUnauthorized)
        return APIError::serverError(u"Ongeldige API key"_s);
    return APIError::serverError(u"HTTP "_s + QString::number(status));
}

void ProductReplyReader::finish(Result result)
{
    if (m_result)
        return;
    m_result = std::move(result);
    m_timer.stop();
    if (m_reply) {
        m_reply->disconnect(this);
        if (m_reply->isRunning())
            m_reply->abort();
        m_reply->deleteLater();
        m_reply.clear();
    }
    emit finished();
}

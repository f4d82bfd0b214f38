#include "KalmoraAPIService.h"

#include "ProductReplyReader.h"

#include <QCoroSignal>
#include <QNetworkRequest>
#include <QPointer>
#include <QUrl>
#include <QUrlQuery>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct DeleteLater
{
    void operator()(QObject* object) const { object->deleteLater(); }
};

// Plain concatenation, then a strict parse; the query is replaced, not merged.
std::optional<QUrl> productURL(const QString& baseURL, qint64 limit, qint64 offset)
{
    QUrl url(baseURL + u"/product"_s, QUrl::StrictMode);
    if (!url.isValid() || url.isRelative())
        return std::nullopt;
    QUrlQuery query;
    query.addQueryItem(u"limit"_s, QString::number(limit));
    query.addQueryItem(u"offset"_s, QString::number(offset));
    url.setQuery(query);
    if (!url.isValid())
        return std::nullopt;
    return url;
}

// Qt drops a header whose value is a null byte array; an empty book year must
// still be sent, as an empty header.
QByteArray headerValue(const QString& text)
{
    const QByteArray value = text.toUtf8();
    return value.isNull() ? QByteArray("") : value;
}

QNetworkRequest productRequest(const QUrl& url, const QString& apiKey, const QString& bookyear)
{
    QNetworkRequest request(url);
    request.setRawHeader("ApiKey", headerValue(apiKey));
    request.setRawHeader("Bookyear", headerValue(bookyear));
    request.setRawHeader("Content-Type", "application/json");
    // The API key must never follow a redirect to another origin.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::SameOriginRedirectPolicy);
    return request;
}

} // namespace

KalmoraAPIService::KalmoraAPIService(QString baseURL, std::chrono::milliseconds timeout,
                                     QObject* parent)
    : QObject(parent), m_baseURL(std::move(baseURL)), m_timeout(timeout)
{
    m_network.setRedirectPolicy(QNetworkRequest::SameOriginRedirectPolicy);
}

QCoro::Task<Expected<QList<Product>, APIError>>
KalmoraAPIService::fetchProducts(QString apiKey, QString bookyear, qint64 limit, qint64 offset)
{
    if (apiKey.isEmpty())
        co_return APIError::noAPIKey();
    const std::optional<QUrl> url = productURL(m_baseURL, limit, offset);
    if (!url)
        co_return APIError::invalidURL();

    QNetworkReply* reply = m_network.get(productRequest(*url, apiKey, bookyear));
    std::unique_ptr<ProductReplyReader, DeleteLater> reader(
        new ProductReplyReader(reply, m_timeout, kMaxBodyBytes));
    const QPointer<KalmoraAPIService> self(this);
    if (!reader->isFinished())
        co_await qCoro(reader.get(), &ProductReplyReader::finished);
    if (!self)
        co_return APIError::networkError(u"De productdienst is afgesloten"_s);
    co_return reader->result();
}

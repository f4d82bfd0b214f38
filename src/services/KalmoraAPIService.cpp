#include "services/KalmoraAPIService.h"

#include "services/ProductReplyReader.h"

#include <QCoroFuture>
#include <QNetworkRequest>
#include <QPointer>
#include <QPromise>
#include <QUrl>
#include <QUrlQuery>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Result = ProductReplyReader::Result;
using ResultPromise = std::shared_ptr<QPromise<Result>>;

const QString& closedMessage()
{
    static const QString message = u"De productdienst is afgesloten"_s;
    return message;
}

// A fetch whose start never ran, because the service closed first, still ends.
ResultPromise newResultPromise()
{
    ResultPromise promise(new QPromise<Result>, [](QPromise<Result>* unfinished) {
        if (!unfinished->future().isFinished()) {
            unfinished->addResult(APIError::networkError(closedMessage()));
            unfinished->finish();
        }
        delete unfinished;
    });
    promise->start();
    return promise;
}

// Runs on the network thread. The reader is the access manager's child, so it
// ends with it when the service closes; its reply goes first and so finishes it.
void startFetch(QNetworkAccessManager* network, const QNetworkRequest& request,
                std::chrono::milliseconds timeout, const ResultPromise& promise)
{
    auto* reader = new ProductReplyReader(network->get(request), timeout,
                                          KalmoraAPIService::kMaxBodyBytes, network);
    const auto deliver = [reader, promise] {
        promise->addResult(reader->result());
        promise->finish();
        reader->deleteLater();
    };
    if (reader->isFinished())
        deliver();
    else
        QObject::connect(reader, &ProductReplyReader::finished, reader, deliver);
}

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
    : QObject(parent), m_baseURL(std::move(baseURL)), m_timeout(timeout),
      m_network(new QNetworkAccessManager)
{
    m_network->setRedirectPolicy(QNetworkRequest::SameOriginRedirectPolicy);
    m_network->moveToThread(&m_thread);
    // Deleting it there aborts the replies still out, which ends their fetches.
    connect(&m_thread, &QThread::finished, m_network, &QObject::deleteLater);
    m_thread.setObjectName(u"KalmoraAPIService"_s);
    m_thread.start();
}

KalmoraAPIService::~KalmoraAPIService()
{
    m_thread.quit();
    m_thread.wait();
}

QCoro::Task<Expected<QList<Product>, APIError>>
KalmoraAPIService::fetchProducts(QString apiKey, QString bookyear, qint64 limit, qint64 offset)
{
    if (apiKey.isEmpty())
        co_return APIError::noAPIKey();
    const std::optional<QUrl> url = productURL(m_baseURL, limit, offset);
    if (!url)
        co_return APIError::invalidURL();

    ResultPromise promise = newResultPromise();
    const QFuture<Result> future = promise->future();
    // Only the network thread holds the promise, so a start that never runs ends the wait.
    QMetaObject::invokeMethod(m_network, [network = m_network, timeout = m_timeout,
                                          promise = std::move(promise),
                                          request = productRequest(*url, apiKey, bookyear)] {
        startFetch(network, request, timeout, promise);
    });
    const QPointer<KalmoraAPIService> self(this);
    Result result = co_await future;
    if (!self)
        co_return APIError::networkError(closedMessage());
    co_return result;
}

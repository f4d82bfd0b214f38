#include "app/UpdateFeedClient.h"

#include <QCoroSignal>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// A feed is a few kilobytes; anything far larger is not one.
constexpr qint64 kMaximumFeedSize = 4 * 1024 * 1024;

} // namespace

UpdateFeedClient::UpdateFeedClient(std::chrono::milliseconds timeout, QObject* parent)
    : QObject(parent), m_manager(new QNetworkAccessManager(this)), m_timeout(timeout)
{}

UpdateFeedClient::~UpdateFeedClient()
{
    // A reply deleted with the manager never finishes, which would leave its
    // fetch suspended for good; aborted, it finishes now and its caller,
    // already gone, returns at once.
    abort();
}

void UpdateFeedClient::abort()
{
    ++m_abortCount;
    const QList<QNetworkReply*> replies = m_manager->findChildren<QNetworkReply*>();
    for (QNetworkReply* reply : replies)
        reply->abort();
}

QCoro::Task<Expected<QByteArray, QString>> UpdateFeedClient::fetch(QUrl url)
{
    QPointer<UpdateFeedClient> self(this);
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    QNetworkReply* reply = m_manager->get(request);

    // The transfer time-out only measures silence; a server that trickles
    // bytes must still be cut off, hence a timer of our own. It belongs to the
    // reply because this coroutine may resume inside the timer's own signal.
    auto* deadline = new QTimer(reply);
    deadline->setSingleShot(true);
    connect(deadline, &QTimer::timeout, reply, &QNetworkReply::abort);
    deadline->start(m_timeout);
    connect(reply, &QNetworkReply::downloadProgress, reply, [reply](qint64 received, qint64) {
        if (received > kMaximumFeedSize)
            reply->abort();
    });

    const quint64 abortCount = m_abortCount;
    // A reply never finishes inside get(), so the signal cannot be missed.
    co_await qCoro(reply, &QNetworkReply::finished);
    if (!self)
        co_return u"Het controleren op updates is afgebroken."_s;
    reply->deleteLater();
    if (self->m_abortCount != abortCount)
        co_return u"Het controleren op updates is afgebroken."_s;

    const bool timedOut = !deadline->isActive();
    deadline->stop();

    if (timedOut)
        co_return u"De server van de updatefeed reageerde niet op tijd."_s;
    // Apart from the deadline, only the size guard cancels a reply; a reply
    // that finished before the guard saw it is measured here.
    if (reply->error() == QNetworkReply::OperationCanceledError ||
        reply->bytesAvailable() > kMaximumFeedSize)
        co_return u"De updatefeed is te groot."_s;
    if (reply->error() != QNetworkReply::NoError)
        co_return reply->errorString();
    co_return reply->readAll();
}

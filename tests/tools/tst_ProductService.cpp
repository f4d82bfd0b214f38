#include "ProductService.h"
#include "services/KalmoraAPIService.h"

#include <QCoroTask>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString kKey = u"sleutel-123"_s;

struct RawReply
{
    int status = 0;
    QByteArray body;
};

using Fetched = Expected<QList<Product>, APIError>;

// waitFor needs a default-constructible result, which Expected is not.
QCoro::Task<> fetchInto(KalmoraAPIService& client, QString key, qint64 limit, qint64 offset,
                        std::optional<Fetched>& result)
{
    result = co_await client.fetchProducts(key, u"2026"_s, limit, offset);
}

} // namespace

class ProductServiceTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void envelopeHoldsTheRequestedPage();
    void clientReadsTheCatalogue();
    void unknownOrMissingKeyIsRefused();
    void malformedRequestsAreRejected_data();
    void malformedRequestsAreRejected();
    void failureModesReachTheClient_data();
    void failureModesReachTheClient();
    void delayHoldsBackTheAnswer();

private:
    RawReply get(const QString& pathAndQuery, const QByteArray& apiKey,
                 const QByteArray& method = "GET");
    Fetched fetch(qint64 limit, qint64 offset, std::chrono::milliseconds timeout = 5s);

    std::unique_ptr<ProductService> m_service;
    QNetworkAccessManager m_network;
};

void ProductServiceTest::init()
{
    m_service = std::make_unique<ProductService>(ProductCatalogue(), kKey);
    QVERIFY(m_service->listen());
}

void ProductServiceTest::cleanup()
{
    m_service.reset();
}

RawReply ProductServiceTest::get(const QString& pathAndQuery, const QByteArray& apiKey,
                                 const QByteArray& method)
{
    QNetworkRequest request(QUrl(m_service->baseUrl() + pathAndQuery));
    if (!apiKey.isNull())
        request.setRawHeader("ApiKey", apiKey);
    request.setRawHeader("Bookyear", "2026");
    QNetworkReply* reply = m_network.sendCustomRequest(request, method);
    QSignalSpy finished(reply, &QNetworkReply::finished);
    if (!reply->isFinished())
        finished.wait(5000);
    RawReply result{reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
                    reply->readAll()};
    reply->deleteLater();
    return result;
}

Fetched ProductServiceTest::fetch(qint64 limit, qint64 offset, std::chrono::milliseconds timeout)
{
    KalmoraAPIService client(m_service->baseUrl(), timeout);
    std::optional<Fetched> result;
    QCoro::waitFor(fetchInto(client, kKey, limit, offset, result));
    return result.value();
}

void ProductServiceTest::envelopeHoldsTheRequestedPage()
{
    QSignalSpy logged(m_service.get(), &ProductService::requestAnswered);
    const RawReply reply = get(u"/product?limit=5&offset=10"_s, kKey.toUtf8());
    QCOMPARE(reply.status, 200);

    const QJsonObject envelope = QJsonDocument::fromJson(reply.body).object();
    QCOMPARE(envelope.value(u"records"_s).toInteger(), ProductCatalogue::kDefaultSize);
    QCOMPARE(envelope.value(u"error"_s).toString(u"absent"_s), QString());
    const QJsonArray data = envelope.value(u"data"_s).toArray();
    QCOMPARE(data.size(), 5);
    const QList<Product> expected = m_service->catalogue().page(10, 5);
    for (qsizetype i = 0; i < data.size(); ++i) {
        QString error;
        const std::optional<Product> product = Product::fromJson(data[i], &error);
        QVERIFY2(product, qPrintable(error));
        QCOMPARE(*product, expected[i]);
    }

    QCOMPARE(logged.size(), 1);
    const QString line = logged.constFirst().constFirst().toString();
    QVERIFY2(line.contains(u"/product?limit=5&offset=10"_s), qPrintable(line));
    QVERIFY2(line.contains(u"\"2026\""_s), qPrintable(line));
    QVERIFY2(line.contains(u"200, 5 of 300 products"_s), qPrintable(line));
}

void ProductServiceTest::clientReadsTheCatalogue()
{
    const Fetched all = fetch(1000, 0);
    QVERIFY2(all, all ? "" : qPrintable(all.error().errorDescription()));
    QCOMPARE(all.value(), m_service->catalogue().page(0, 1000));

    const Fetched tail = fetch(1000, 295);
    QVERIFY(tail);
    QCOMPARE(tail.value().size(), 5);
    QCOMPARE(tail.value().constFirst().ID, ProductCatalogue::kFirstID + 295);

    const Fetched pastEnd = fetch(10, 300);
    QVERIFY(pastEnd);
    QVERIFY(pastEnd.value().isEmpty());
}

void ProductServiceTest::unknownOrMissingKeyIsRefused()
{
    QCOMPARE(get(u"/product?limit=1&offset=0"_s, "wrong").status, 401);
    QCOMPARE(get(u"/product?limit=1&offset=0"_s, QByteArray()).status, 401);
    QCOMPARE(get(u"/product?limit=1&offset=0"_s, kKey.toUpper().toUtf8()).status, 401);
}

void ProductServiceTest::malformedRequestsAreRejected_data()
{
    QTest::addColumn<QString>("pathAndQuery");
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<int>("status");

    QTest::newRow("no limit") << u"/product?offset=0"_s << QByteArray("GET") << 400;
    QTest::newRow("no offset") << u"/product?limit=10"_s << QByteArray("GET") << 400;
    QTest::newRow("negative offset")
        << u"/product?limit=10&offset=-1"_s << QByteArray("GET") << 400;
    QTest::newRow("text limit") << u"/product?limit=veel&offset=0"_s << QByteArray("GET") << 400;
    QTest::newRow("other path") << u"/products?limit=1&offset=0"_s << QByteArray("GET") << 404;
    QTest::newRow("post") << u"/product?limit=1&offset=0"_s << QByteArray("POST") << 405;
}

void ProductServiceTest::malformedRequestsAreRejected()
{
    QFETCH(QString, pathAndQuery);
    QFETCH(QByteArray, method);
    QFETCH(int, status);
    const RawReply reply = get(pathAndQuery, kKey.toUtf8(), method);
    QCOMPARE(reply.status, status);
    QVERIFY(!QJsonDocument::fromJson(reply.body).object().value(u"error"_s).toString().isEmpty());
}

void ProductServiceTest::failureModesReachTheClient_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("description");

    QTest::newRow("500") << u"http-500"_s << u"Serverfout: HTTP 500"_s;
    QTest::newRow("error text") << u"error-text"_s
                                << u"Serverfout: "_s + ProductService::kErrorText.toString();
    QTest::newRow("no json") << u"invalid-json"_s << u"Ongeldige respons van server"_s;
    QTest::newRow("hang") << u"hang"_s << u"Netwerkfout: "_s;
}

void ProductServiceTest::failureModesReachTheClient()
{
    QFETCH(QString, mode);
    QFETCH(QString, description);
    const std::optional<ProductService::Failure> failure = ProductService::failureFromName(mode);
    QVERIFY(failure);
    QCOMPARE(ProductService::failureName(*failure), mode);
    m_service->setFailure(*failure);

    const Fetched result = fetch(1000, 0, 400ms);
    QVERIFY(!result);
    QVERIFY2(result.error().errorDescription().startsWith(description),
             qPrintable(result.error().errorDescription()));
}

void ProductServiceTest::delayHoldsBackTheAnswer()
{
    m_service->setDelay(300ms);
    QElapsedTimer clock;
    clock.start();
    const Fetched result = fetch(3, 0);
    QVERIFY(result);
    QCOMPARE(result.value().size(), 3);
    QVERIFY2(clock.elapsed() >= 300, qPrintable(QString::number(clock.elapsed())));
}

QTEST_GUILESS_MAIN(ProductServiceTest)
#include "tst_ProductService.moc"

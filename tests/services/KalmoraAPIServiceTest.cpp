#include "services/KalmoraAPIService.h"

#include "AwaitTask.h"
#include "LoopbackHttpServer.h"
#include "StdoutCapture.h"

#include <QCoroTask>
#include <QElapsedTimer>
#include <QFile>
#include <QNetworkProxy>
#include <QNetworkProxyFactory>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>
#include <QtTest>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Request = LoopbackHttpServer::Request;
using Response = LoopbackHttpServer::Response;
using Result = Expected<QList<Product>, APIError>;

namespace {

const QByteArray kTwoProducts =
    R"({"data":[{"ID":1,"Sku":"A-1","Name":"Koffie","SellPrice1WithVat":4.5},)"
    R"({"ID":2,"BarCode":"8712345678906","Active":false}],"records":2})";

Result fetch(KalmoraAPIService& service, const QString& apiKey = u"key-123"_s,
             const QString& bookyear = u"2024"_s, qint64 limit = 1000, qint64 offset = 0)
{
    return awaitTask(service.fetchProducts(apiKey, bookyear, limit, offset));
}

QString describe(const Result& result)
{
    return result ? u"%1 products"_s.arg(result.value().size()) : result.error().errorDescription();
}

int countLinesStartingWith(const QByteArray& text, const QByteArray& prefix)
{
    int count = 0;
    for (const QByteArray& line : text.split('\n'))
        count += line.startsWith(prefix) && line.size() > prefix.size() ? 1 : 0;
    return count;
}

} // namespace

class KalmoraAPIServiceTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void sendsTheRequestAsSpecified();
    void appendsProductToAPathInTheBaseURL();
    void answerOutcomes_data();
    void answerOutcomes();
    void failsBeforeAnyTrafficWithoutKeyOrURL_data();
    void failsBeforeAnyTrafficWithoutKeyOrURL();
    void stalledOrOversizedAnswersFail_data();
    void stalledOrOversizedAnswersFail();
    void refusedConnectionIsANetworkError();
    void untrustedCertificateIsRefused();
    void followsRedirectWithinTheSameOrigin();
    void refusesRedirectToAnotherOrigin_data();
    void refusesRedirectToAnotherOrigin();
    void serviceDestroyedWhileWaiting();
};

void KalmoraAPIServiceTest::initTestCase()
{
    // Loopback only: no proxy may stand between the client and the test server.
    QNetworkProxyFactory::setUseSystemConfiguration(false);
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
}

void KalmoraAPIServiceTest::sendsTheRequestAsSpecified()
{
    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setHandler([](const Request&) { return Response::json(kTwoProducts); });
    KalmoraAPIService service(server.baseUrl());

    const Result first = fetch(service, u"key-123"_s, u"2024"_s, 1000, 0);
    QVERIFY2(first, qPrintable(describe(first)));
    QCOMPARE(first.value().size(), 2);
    QCOMPARE(first.value().at(0).sku(), u"A-1"_s);
    QCOMPARE(first.value().at(0).SellPrice1WithVat, 4.5);
    QCOMPARE(first.value().at(1).displayName(), u"Unknown"_s);
    QCOMPARE(first.value().at(1).Active, false);

    const Result second = fetch(service, u"key-456"_s, QString(), 25, 50);
    QVERIFY2(second, qPrintable(describe(second)));

    QCOMPARE(server.requests().size(), 2);
    const Request& request = server.requests().at(0);
    QCOMPARE(request.method, "GET");
    QCOMPARE(request.path, "/product");
    QCOMPARE(request.query, "limit=1000&offset=0");
    QCOMPARE(request.header("ApiKey"), "key-123");
    QCOMPARE(request.header("Bookyear"), "2024");
    QCOMPARE(request.header("Content-Type"), "application/json");
    QVERIFY(request.body.isEmpty());

    const Request& paged = server.requests().at(1);
    QCOMPARE(paged.query, "limit=25&offset=50");
    QCOMPARE(paged.header("ApiKey"), "key-456");
    // An empty book year is still sent, as an empty header.
    QVERIFY(paged.hasHeader("Bookyear"));
    QCOMPARE(paged.header("Bookyear"), "");
}

void KalmoraAPIServiceTest::appendsProductToAPathInTheBaseURL()
{
    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setHandler([](const Request&) { return Response::json(R"({"data":[]})"); });

    // Plain concatenation: a query in the base swallows "/product" and is then replaced.
    KalmoraAPIService withPath(server.baseUrl() + u"/api/v1"_s);
    KalmoraAPIService withQuery(server.baseUrl() + u"/api?stale=1"_s);
    QVERIFY(fetch(withPath));
    QVERIFY(fetch(withQuery));

    QCOMPARE(server.requests().size(), 2);
    QCOMPARE(server.requests().at(0).path, "/api/v1/product");
    QCOMPARE(server.requests().at(1).path, "/api");
    QCOMPARE(server.requests().at(1).query, "limit=1000&offset=0");
}

void KalmoraAPIServiceTest::answerOutcomes_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("productCount"); // -1: failure expected
    QTest::addColumn<QString>("description");

    const QString invalid = u"Ongeldige respons van server"_s;
    // A decodable body must not rescue a status other than 200.
    QTest::newRow("204") << 204 << QByteArray() << -1 << u"Serverfout: HTTP 204"_s;
    QTest::newRow("401") << 401 << kTwoProducts << -1 << u"Serverfout: Ongeldige API key"_s;
    QTest::newRow("403") << 403 << kTwoProducts << -1 << u"Serverfout: HTTP 403"_s;
    QTest::newRow("404") << 404 << kTwoProducts << -1 << u"Serverfout: HTTP 404"_s;
    QTest::newRow("500") << 500 << kTwoProducts << -1 << u"Serverfout: HTTP 500"_s;
    QTest::newRow("error text wins over data")
        << 200 << QByteArray(R"({"data":[{"ID":1}],"error":"Dossier niet gevonden"})") << -1
        << u"Serverfout: Dossier niet gevonden"_s;
    QTest::newRow("empty error text")
        << 200 << QByteArray(R"({"data":[{"ID":1},{"ID":2}],"error":""})") << 2 << QString();
    QTest::newRow("no data") << 200 << QByteArray(R"({"records":0})") << 0 << QString();
    QTest::newRow("null data") << 200 << QByteArray(R"({"data":null})") << 0 << QString();
    QTest::newRow("not JSON") << 200 << QByteArray("<html>Onderhoud</html>") << -1 << invalid;
    QTest::newRow("product without ID")
        << 200 << QByteArray(R"({"data":[{"ID":1},{"Name":"X"}]})") << -1 << invalid;
    QTest::newRow("fractional ID")
        << 200 << QByteArray(R"({"data":[{"ID":7.5}]})") << -1 << invalid;
}

// Every outcome of an answer that arrives whole; only an undecodable body logs
// its one decoding line.
void KalmoraAPIServiceTest::answerOutcomes()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    QFETCH(int, productCount);
    QFETCH(QString, description);
    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setHandler([status, body](const Request&) { return Response::json(body, status); });
    KalmoraAPIService service(server.baseUrl());

    StdoutCapture capture;
    const Result result = fetch(service);
    const QByteArray printed = capture.text().toUtf8();

    if (productCount >= 0) {
        QVERIFY2(result, qPrintable(describe(result)));
        QCOMPARE(result.value().size(), productCount);
        return;
    }
    QVERIFY(!result);
    QCOMPARE(result.error().errorDescription(), description);
    const bool undecodable = description == u"Ongeldige respons van server";
    QCOMPARE(result.error().kind(),
             undecodable ? APIError::Kind::invalidResponse : APIError::Kind::serverError);
    QCOMPARE(countLinesStartingWith(printed, "Decoding error: "), undecodable ? 1 : 0);
}

void KalmoraAPIServiceTest::failsBeforeAnyTrafficWithoutKeyOrURL_data()
{
    QTest::addColumn<QString>("baseURL");
    QTest::addColumn<QString>("apiKey");
    QTest::addColumn<QString>("description");
    // {server} stands for the running test server's base address.
    QTest::newRow("no key") << u"{server}"_s << QString() << u"Geen API key geconfigureerd"_s;
    QTest::newRow("empty base") << QString() << u"k"_s << u"Ongeldige API URL"_s;
    QTest::newRow("no scheme") << u"not a url"_s << u"k"_s << u"Ongeldige API URL"_s;
    QTest::newRow("broken host") << u"http://[::1"_s << u"k"_s << u"Ongeldige API URL"_s;
}

void KalmoraAPIServiceTest::failsBeforeAnyTrafficWithoutKeyOrURL()
{
    QFETCH(QString, baseURL);
    QFETCH(QString, apiKey);
    QFETCH(QString, description);
    LoopbackHttpServer server;
    QVERIFY(server.listen());
    KalmoraAPIService service(baseURL.replace(u"{server}"_s, server.baseUrl()));

    const Result result = fetch(service, apiKey);
    QVERIFY(!result);
    QCOMPARE(result.error().errorDescription(), description);
    QCOMPARE(server.connectionCount(), 0);
}

void KalmoraAPIServiceTest::stalledOrOversizedAnswersFail_data()
{
    QTest::addColumn<Response>("response");
    QTest::addColumn<int>("timeoutMs");
    QTest::addColumn<APIError::Kind>("kind");
    QTest::addColumn<int>("minMs");
    QTest::addColumn<int>("maxMs");

    Response silent;
    silent.mode = Response::Mode::neverAnswer;
    QTest::newRow("silent") << silent << 300 << APIError::Kind::networkError << 290 << 3000;
    // A byte every 40 ms keeps the connection busy; only an overall timer ends it.
    Response trickle = Response::json(kTwoProducts);
    trickle.mode = Response::Mode::trickle;
    trickle.trickleInterval = 40ms;
    QTest::newRow("trickling") << trickle << 400 << APIError::Kind::networkError << 0 << 2000;
    // The part that arrives is valid JSON on its own; it must still not count.
    Response truncated = Response::json(R"({"data":[]})");
    truncated.mode = Response::Mode::truncated;
    truncated.declaredLength = 4096;
    QTest::newRow("truncated") << truncated << 5000 << APIError::Kind::networkError << 0 << 5000;
    Response huge = Response::json(R"({"data":[)");
    huge.mode = Response::Mode::truncated;
    huge.declaredLength = KalmoraAPIService::kMaxBodyBytes + 1;
    QTest::newRow("announced oversized")
        << huge << 5000 << APIError::Kind::invalidResponse << 0 << 5000;
    Response endless;
    endless.mode = Response::Mode::stream;
    endless.streamLength = KalmoraAPIService::kMaxBodyBytes * 2;
    QTest::newRow("streamed oversized")
        << endless << 20000 << APIError::Kind::invalidResponse << 0 << 20000;
}

void KalmoraAPIServiceTest::stalledOrOversizedAnswersFail()
{
    QFETCH(Response, response);
    QFETCH(int, timeoutMs);
    QFETCH(APIError::Kind, kind);
    QFETCH(int, minMs);
    QFETCH(int, maxMs);
    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setHandler([response](const Request&) { return response; });
    KalmoraAPIService service(server.baseUrl(), std::chrono::milliseconds(timeoutMs));

    QElapsedTimer clock;
    clock.start();
    const Result result = fetch(service);
    QVERIFY(!result);
    QCOMPARE(result.error().kind(), kind);
    if (response.mode == Response::Mode::neverAnswer)
        QVERIFY2(result.error().errorDescription().startsWith(u"Netwerkfout: Time-out"_s),
                 qPrintable(result.error().errorDescription()));
    QVERIFY2(clock.elapsed() >= minMs && clock.elapsed() < maxMs,
             qPrintable(QString::number(clock.elapsed())));
}

void KalmoraAPIServiceTest::refusedConnectionIsANetworkError()
{
    QTcpServer placeholder;
    QVERIFY(placeholder.listen(QHostAddress::LocalHost));
    const quint16 closedPort = placeholder.serverPort();
    placeholder.close();
    KalmoraAPIService service(u"http://127.0.0.1:%1"_s.arg(closedPort), 5s);

    QElapsedTimer clock;
    clock.start();
    const Result result = fetch(service);
    QVERIFY(!result);
    QCOMPARE(result.error().kind(), APIError::Kind::networkError);
    QVERIFY(!result.error().payload().isEmpty());
    QVERIFY(clock.elapsed() < 2000);
}

void KalmoraAPIServiceTest::untrustedCertificateIsRefused()
{
    if (!QSslSocket::supportsSsl())
        QSKIP("No TLS backend available");
    QFile certificateFile(QStringLiteral(STAMPIX_TEST_DATA_DIR "/untrusted-selfsigned-test.crt"));
    QFile keyFile(QStringLiteral(STAMPIX_TEST_DATA_DIR "/untrusted-selfsigned-test.key"));
    QVERIFY(certificateFile.open(QIODevice::ReadOnly));
    QVERIFY(keyFile.open(QIODevice::ReadOnly));
    const QSslCertificate certificate(&certificateFile, QSsl::Pem);
    const QSslKey key(&keyFile, QSsl::Ec, QSsl::Pem);
    QVERIFY(!certificate.isNull());
    QVERIFY(!key.isNull());

    LoopbackHttpServer server;
    QVERIFY(server.listenTls(certificate, key));
    server.setHandler([](const Request&) { return Response::json(kTwoProducts); });
    KalmoraAPIService service(server.baseUrl(), 5s);

    const Result result = fetch(service);
    QVERIFY(!result);
    QCOMPARE(result.error().kind(), APIError::Kind::networkError);
    QVERIFY(server.connectionCount() >= 1); // the handshake was tried...
    QVERIFY(server.requests().isEmpty());   // ...and no request, no key, went over it
}

void KalmoraAPIServiceTest::followsRedirectWithinTheSameOrigin()
{
    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setHandler([](const Request& request) {
        if (request.path == "/product")
            return Response::redirect(302, "/v2/product?" + request.query);
        return Response::json(kTwoProducts);
    });
    KalmoraAPIService service(server.baseUrl());

    const Result result = fetch(service);
    QVERIFY2(result, qPrintable(describe(result)));
    QCOMPARE(result.value().size(), 2);
    QCOMPARE(server.requests().size(), 2);
    QCOMPARE(server.requests().at(1).path, "/v2/product");
    QCOMPARE(server.requests().at(1).header("ApiKey"), "key-123");
}

void KalmoraAPIServiceTest::refusesRedirectToAnotherOrigin_data()
{
    QTest::addColumn<QString>("target");
    // {other} is a second server on another port, {port} the first one's port.
    QTest::newRow("other port") << u"{other}/product"_s;
    QTest::newRow("other host name") << u"http://localhost:{port}/product"_s;
}

// A redirect that is not followed ends on its own status, like every status but
// 200: "HTTP 301" as a server error, and the key stays where it was sent.
void KalmoraAPIServiceTest::refusesRedirectToAnotherOrigin()
{
    QFETCH(QString, target);
    LoopbackHttpServer server;
    LoopbackHttpServer other;
    QVERIFY(server.listen());
    QVERIFY(other.listen());
    other.setHandler([](const Request&) { return Response::json(kTwoProducts); });
    target.replace(u"{other}"_s, other.baseUrl())
        .replace(u"{port}"_s, QString::number(server.port()));
    server.setHandler([target](const Request& request) {
        if (request.path == "/product")
            return Response::redirect(301, target.toUtf8());
        return Response::json(kTwoProducts);
    });
    KalmoraAPIService service(server.baseUrl(), 5s);

    const Result result = fetch(service);
    QVERIFY(!result);
    QCOMPARE(result.error().errorDescription(), u"Serverfout: HTTP 301"_s);
    QCOMPARE(server.requests().size(), 1);
    QCOMPARE(other.connectionCount(), 0);
}

void KalmoraAPIServiceTest::serviceDestroyedWhileWaiting()
{
    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setHandler([](const Request&) {
        Response silent;
        silent.mode = Response::Mode::neverAnswer;
        return silent;
    });
    auto service = std::make_unique<KalmoraAPIService>(server.baseUrl(), 5s);

    QCoro::Task<Result> pending = service->fetchProducts(u"k"_s, u"2024"_s, 1000, 0);
    QTRY_COMPARE(server.requests().size(), 1);
    service.reset();

    QElapsedTimer clock;
    clock.start();
    const Result result = awaitTask(std::move(pending));
    QVERIFY(!result);
    QCOMPARE(result.error().kind(), APIError::Kind::networkError);
    QVERIFY(clock.elapsed() < 2000);
}

QTEST_GUILESS_MAIN(KalmoraAPIServiceTest)
#include "KalmoraAPIServiceTest.moc"

#include "LoopbackHttpServer.h"
#include "RunTask.h"
#include "ScriptedPeer.h"
#include "services/KalmoraAPIService.h"

#include <QElapsedTimer>
#include <QNetworkProxy>
#include <QSslSocket>
#include <QTcpSocket>
#include <QTimer>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Result = Expected<QList<Product>, APIError>;

// Faults of the product service that only a raw peer can show: answers that
// are not HTTP, connections that end or reset early, a header block without
// end, plain text where TLS is expected, and an error status whose body never
// finishes. Each ends promptly with its own outcome, never a hang.
namespace {

constexpr auto kTimeout = 1500ms;
const QString kApiKey = u"geheime-sleutel-42"_s;

struct Outcome
{
    Result result;
    qint64 elapsedMs;
};

Outcome fetchFrom(const QString& baseURL, std::chrono::milliseconds timeout = kTimeout)
{
    KalmoraAPIService service(baseURL, timeout);
    QElapsedTimer clock;
    clock.start();
    Result result = runTask(service.fetchProducts(kApiKey, u"2024"_s, 1000, 0), 20s);
    return {std::move(result), clock.elapsed()};
}

QString describe(const Result& result)
{
    return result ? u"%1 products"_s.arg(result.value().size()) : result.error().errorDescription();
}

} // namespace

class ProductServiceFaultTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void brokenAnswersAreNetworkErrors_data();
    void brokenAnswersAreNetworkErrors();
    void endlessHeaderBlockEndsByTheTimeOut();
    void plainTextPeerBehindHttpsNeverSeesTheKey();
    void errorStatusIsReportedWithoutWaitingForItsBody();
};

void ProductServiceFaultTest::initTestCase()
{
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
}

void ProductServiceFaultTest::brokenAnswersAreNetworkErrors_data()
{
    QTest::addColumn<ScriptedPeer::Script>("script");
    QTest::newRow("not HTTP at all") << ScriptedPeer::Script([](QTcpSocket* socket) {
        static constexpr char kGarbage[] = "\x00\xff\x13SSH-2.0-nonsense\r\n\r\n\x7f\x80";
        socket->write(kGarbage, sizeof(kGarbage) - 1);
        socket->disconnectFromHost();
    });
    QTest::newRow("broken status line") << ScriptedPeer::Script([](QTcpSocket* socket) {
        socket->write("HTTP/1.1 two hundred OK\r\nContent-Length: 2\r\n\r\n{}");
        socket->disconnectFromHost();
    });
    QTest::newRow("closed without an answer")
        << ScriptedPeer::Script([](QTcpSocket* socket) { socket->disconnectFromHost(); });
    QTest::newRow("reset without an answer")
        << ScriptedPeer::Script([](QTcpSocket* socket) { ScriptedPeer::reset(socket); });
    QTest::newRow("reset in the middle of the body")
        << ScriptedPeer::Script([](QTcpSocket* socket) {
               socket->write("HTTP/1.1 200 OK\r\nContent-Type: application/json\r\n"
                             "Content-Length: 1000\r\n\r\n{\"data\":[{\"ID\":1},");
               socket->flush();
               QTimer::singleShot(50ms, socket, [socket] { ScriptedPeer::reset(socket); });
           });
}

void ProductServiceFaultTest::brokenAnswersAreNetworkErrors()
{
    QFETCH(ScriptedPeer::Script, script);
    ScriptedPeer peer(ScriptedPeer::Trigger::requestHead, script);
    QVERIFY(peer.listen());

    const Outcome outcome = fetchFrom(peer.baseUrl(u"http"_s), 5s);
    QVERIFY2(!outcome.result, qPrintable(describe(outcome.result)));
    QCOMPARE(outcome.result.error().kind(), APIError::Kind::networkError);
    QVERIFY(!outcome.result.error().payload().isEmpty());
    QVERIFY2(outcome.elapsedMs < 2500, "a broken answer must not wait for the time-out");
    // Qt's HTTP stack sends a GET again on a new connection after an answer it
    // cannot use: up to three more times (four connections seen here), bounded.
    QVERIFY2(peer.connectionCount() >= 1 && peer.connectionCount() <= 4,
             qPrintable(u"%1 connections"_s.arg(peer.connectionCount())));
}

void ProductServiceFaultTest::endlessHeaderBlockEndsByTheTimeOut()
{
    // A status line, then header lines forever: no body, no end of headers.
    ScriptedPeer peer(ScriptedPeer::Trigger::requestHead, [](QTcpSocket* socket) {
        socket->write("HTTP/1.1 200 OK\r\n");
        auto* timer = new QTimer(socket);
        QObject::connect(timer, &QTimer::timeout, socket, [socket] {
            socket->write(
                QByteArray("X-Filler: ").append(QByteArray(200, 'f')).append("\r\n").repeated(20));
        });
        timer->start(2ms);
    });
    QVERIFY(peer.listen());

    const Outcome outcome = fetchFrom(peer.baseUrl(u"http"_s));
    QVERIFY2(!outcome.result, qPrintable(describe(outcome.result)));
    QCOMPARE(outcome.result.error().kind(), APIError::Kind::networkError);
    QVERIFY2(outcome.elapsedMs < kTimeout.count() + 1500,
             qPrintable(u"took %1 ms"_s.arg(outcome.elapsedMs)));
}

void ProductServiceFaultTest::plainTextPeerBehindHttpsNeverSeesTheKey()
{
    if (!QSslSocket::supportsSsl())
        QSKIP("No TLS backend available");
    // Answers whatever arrives first (the TLS client hello) with plain HTTP.
    ScriptedPeer peer(ScriptedPeer::Trigger::firstBytes, [](QTcpSocket* socket) {
        socket->write("HTTP/1.1 200 OK\r\nContent-Length: 11\r\n\r\n{\"data\":[]}");
        socket->disconnectFromHost();
    });
    QVERIFY(peer.listen());

    const Outcome outcome = fetchFrom(peer.baseUrl(u"https"_s), 5s);
    QVERIFY2(!outcome.result, qPrintable(describe(outcome.result)));
    QCOMPARE(outcome.result.error().kind(), APIError::Kind::networkError);
    QVERIFY(outcome.elapsedMs < 2500);
    QVERIFY(peer.connectionCount() >= 1);
    QVERIFY(!peer.received().contains(kApiKey.toUtf8()));
    QVERIFY(!peer.received().contains("ApiKey"));
}

// Only status 200 reads a body, so an error status is known from the head
// alone. A server whose error page trickles in must not turn "HTTP 500" into
// a time-out.
void ProductServiceFaultTest::errorStatusIsReportedWithoutWaitingForItsBody()
{
    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setHandler([](const LoopbackHttpServer::Request&) {
        auto response = LoopbackHttpServer::Response::json(QByteArray(500, 'x'), 500);
        response.mode = LoopbackHttpServer::Response::Mode::trickle;
        response.trickleInterval = 20ms; // ten seconds for the whole page
        return response;
    });

    const Outcome outcome = fetchFrom(server.baseUrl(), 1500ms);
    QVERIFY(!outcome.result);
    // The status decides as soon as it is known; the slow body is not awaited.
    QCOMPARE(outcome.result.error().errorDescription(), u"Serverfout: HTTP 500"_s);
    QVERIFY2(outcome.elapsedMs < 1000, qPrintable(u"took %1 ms"_s.arg(outcome.elapsedMs)));
}

QTEST_GUILESS_MAIN(ProductServiceFaultTest)
#include "ProductServiceFaultTest.moc"

#include "AwaitTask.h"
#include "LoopbackHttpServer.h"
#include "StdoutCapture.h"
#include "TestHome.h"
#include "services/KalmoraAPIService.h"

#include <QNetworkProxy>
#include <QSslKey>
#include <QSslSocket>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Request = LoopbackHttpServer::Request;
using Response = LoopbackHttpServer::Response;
using Result = Expected<QList<Product>, APIError>;

namespace {

const QByteArray kTwoProducts =
    R"({"data":[{"ID":1,"Sku":"A-1","Name":"Koffie","SellPrice1WithVat":4.5},{"ID":2}]})";

Result fetch(KalmoraAPIService& service, const QString& apiKey = u"key-123"_s,
             const QString& bookyear = u"2024"_s, qint64 limit = 1000, qint64 offset = 0)
{
    return awaitTask(service.fetchProducts(apiKey, bookyear, limit, offset));
}

QString describe(const Result& result)
{
    return result ? u"%1 products"_s.arg(result.value().size()) : result.error().errorDescription();
}

// The body cap: 16 KB for each of the 1,000 products of a page.
constexpr qint64 kBodyCap = 16 * 1024 * 1024;

const QString kInvalid = u"Ongeldige respons van server"_s;
const QString kNetwork = u"Netwerkfout: "_s;

} // namespace

class KalmoraAPIServiceTest : public QObject
{
    Q_OBJECT

private slots:
    // Loopback only: no proxy may stand between the client and the test server.
    void initTestCase() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }
    void sendsTheAgreedRequest()
    {
        LoopbackHttpServer server;
        QVERIFY(server.listen());
        server.setHandler([](const Request&) { return Response::json(kTwoProducts); });
        KalmoraAPIService service(server.baseUrl());

        QCOMPARE(describe(fetch(service)), u"2 products"_s);
        QVERIFY(fetch(service, u"key-456"_s, QString(), 25, 50));

        QCOMPARE(server.requests().size(), 2);
        const Request& request = server.requests().at(0);
        QCOMPARE(request.method + ' ' + request.path + '?' + request.query,
                 "GET /product?limit=1000&offset=0");
        QCOMPARE(request.header("ApiKey") + ' ' + request.header("Bookyear") + ' ' +
                     request.header("Content-Type"),
                 "key-123 2024 application/json");
        const Request& paged = server.requests().at(1);
        QCOMPARE(paged.query + ' ' + paged.header("ApiKey"), "limit=25&offset=50 key-456");
        QVERIFY(paged.hasHeader("Bookyear")); // an empty book year is an empty header

        // Nothing goes out without a key or a usable address.
        KalmoraAPIService empty{QString()}, noScheme(u"not a url"_s), broken(u"http://[::1"_s);
        QCOMPARE(describe(fetch(service, QString())), u"Geen API key geconfigureerd"_s);
        for (KalmoraAPIService* unusable : {&empty, &noScheme, &broken})
            QCOMPARE(describe(fetch(*unusable)), u"Ongeldige API URL"_s);
        QCOMPARE(server.connectionCount(), 2);
    }

    void outcomes_data()
    {
        QTest::addColumn<Response>("response");
        QTest::addColumn<int>("timeoutMs");
        QTest::addColumn<QString>("expected"); // the start of the outcome
        using Mode = Response::Mode;
        const auto add = [](const char* name, Mode mode, const QByteArray& body, int status,
                            int timeoutMs, const QString& expected) {
            Response response =
                status / 100 == 3 ? Response::redirect(status, body) : Response::json(body, status);
            response.mode = mode;
            response.trickleInterval = 30ms;
            response.declaredLength = 4096;
            response.streamLength = kBodyCap + 1;
            QTest::newRow(name) << response << timeoutMs << expected;
        };
        // A decodable body must not rescue a status other than 200.
        add("401", Mode::normal, kTwoProducts, 401, 5000, u"Serverfout: Ongeldige API key"_s);
        // The status decides at once: a slow error page is no time-out.
        add("500, slow body", Mode::trickle, QByteArray(500, 'x'), 500, 1500,
            u"Serverfout: HTTP 500"_s);
        add("error text wins", Mode::normal, R"({"data":[{"ID":1}],"error":"Weg"})", 200, 5000,
            u"Serverfout: Weg"_s);
        add("empty error text", Mode::normal, R"({"data":[{"ID":1}],"error":""})", 200, 5000,
            u"1 products"_s);
        add("no data", Mode::normal, R"({"records":0})", 200, 5000, u"0 products"_s);
        add("not JSON", Mode::normal, "<html>Onderhoud</html>", 200, 5000, kInvalid);
        add("silent", Mode::neverAnswer, {}, 200, 300, u"Netwerkfout: Time-out"_s);
        // Busy all the time: only an overall timer ends it.
        add("trickling", Mode::trickle, kTwoProducts, 200, 400, kNetwork);
        // What arrives is valid JSON on its own; it must still not count.
        add("cut short", Mode::truncated, R"({"data":[]})", 200, 5000, kNetwork);
        add("streamed oversized", Mode::stream, {}, 200, 20000, kInvalid);
        // The API key never follows a redirect to another origin.
        add("redirect", Mode::normal, "/moved", 302, 5000, u"2 products"_s);
        add("redirect to another origin", Mode::normal, "http://localhost:{port}/moved", 301, 5000,
            u"Serverfout: HTTP 301"_s);
        // A gzip body no inflater accepts: a 200 that fails part-way is never decoded.
        add("compressed body breaking off", Mode::raw,
            "HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\nContent-Length: 20\r\n\r\n" +
                QByteArray::fromHex("1f8b0800000000000003ffffffff") + "broken",
            200, 5000, kNetwork);
    }

    // Only an undecodable 200 body writes its one decoding line, and nothing else is printed.
    void outcomes()
    {
        QFETCH(Response, response);
        QFETCH(int, timeoutMs);
        QFETCH(QString, expected);
        LoopbackHttpServer server;
        QVERIFY(server.listen());
        for (auto& header : response.headers)
            header.second.replace("{port}", QByteArray::number(server.port()));
        server.setHandler([response](const Request& request) {
            return request.path == "/moved" ? Response::json(kTwoProducts) : response;
        });
        KalmoraAPIService service(server.baseUrl(), std::chrono::milliseconds(timeoutMs));

        auto capture = std::make_unique<StdoutCapture>();
        const QString text = describe(fetch(service));
        const QString printed = capture->text();
        capture.reset(); // before any check, so a failing one still shows
        QVERIFY2(text.startsWith(expected), qPrintable(text));
        QVERIFY(text != kNetwork);
        const bool logged =
            response.mode == Response::Mode::normal && response.status == 200 && text == kInvalid;
        // QtTest's own messages land in the capture too; a service's error text never does.
        const QStringList lines = printed.split(u'\n', Qt::SkipEmptyParts)
                                      .filter(QRegularExpression(u"^(?!Q[A-Z]+ *: )"_s));
        QCOMPARE(lines.size(), logged ? 1 : 0);
        QVERIFY(!logged || lines.first().startsWith(u"Decoding error: "_s));
    }

    // The network thread goes with the service; a fetch still out must end all the same.
    void closingEndsAFetchStillOut()
    {
        for (const bool requestArrived : {false, true}) {
            LoopbackHttpServer server;
            QVERIFY(server.listen());
            server.setHandler([](const Request&) {
                return Response{200, {}, {}, {}, Response::Mode::neverAnswer};
            });
            auto service = std::make_unique<KalmoraAPIService>(server.baseUrl());
            std::optional<Result> result;
            QEventLoop loop;
            auto storing = storeTaskResult(service->fetchProducts(u"key"_s, u"2024"_s, 1000, 0),
                                           &result, &loop);
            if (requestArrived)
                QTRY_COMPARE(server.requests().size(), 1);
            service.reset();
            QTRY_VERIFY(result.has_value());
            QCOMPARE(describe(*result), u"Netwerkfout: De productdienst is afgesloten"_s);
        }
    }

    void untrustedCertificateIsRefused()
    {
        if (!QSslSocket::supportsSsl())
            QSKIP("No TLS backend available");
        const QString data = QStringLiteral(STAMPIX_TEST_DATA_DIR);
        const QSslCertificate certificate(
            TestHome::readFile(data + u"/untrusted-selfsigned-test.crt"_s));
        const QSslKey key(TestHome::readFile(data + u"/untrusted-selfsigned-test.key"_s), QSsl::Ec);
        QVERIFY(!certificate.isNull() && !key.isNull());

        LoopbackHttpServer server;
        QVERIFY(server.listenTls(certificate, key));
        server.setHandler([](const Request&) { return Response::json(kTwoProducts); });
        KalmoraAPIService service(server.baseUrl(), 5s);

        const QString text = describe(fetch(service));
        // The transport's own reason follows, whatever words it uses.
        QVERIFY2(text.startsWith(kNetwork) && text.size() > kNetwork.size(), qPrintable(text));
        QVERIFY(server.connectionCount() >= 1); // the handshake was tried...
        QVERIFY(server.requests().isEmpty());   // ...and no request, no key, went over it
    }

    void longTextsAreCutForTheAlert_data()
    {
        QTest::addColumn<QString>("payload");
        QTest::addColumn<QString>("shown");
        const QString fits = u"\u00e9"_s + QString(499, u'a');
        QTest::newRow("501 characters") << fits + u'b' << fits + u'\u2026';
        // The pair at 500 and 501 would be split: it goes whole.
        const QString pair = QString(499, u'a') + u"\U0001F600b"_s;
        QTest::newRow("surrogate pair at the cut") << pair << QString(499, u'a') + u'\u2026';
    }

    // The whole text stays in the error; only what the alert shows is cut.
    void longTextsAreCutForTheAlert()
    {
        QFETCH(QString, payload);
        QFETCH(QString, shown);
        const APIError server = APIError::serverError(payload);
        QCOMPARE(server.errorDescription(), u"Serverfout: "_s + shown);
        QCOMPARE(server.payload(), payload);
        QCOMPARE(APIError::networkError(payload).errorDescription(), u"Netwerkfout: "_s + shown);
    }
};

QTEST_GUILESS_MAIN(KalmoraAPIServiceTest)
#include "tst_KalmoraAPIService.moc"

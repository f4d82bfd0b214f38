#include "services/PrinterService.h"

#include "AwaitTask.h"
#include "LabelSink.h"
#include "UnansweredPort.h"
#include "services/PrinterSendJob.h"

#include <QCoroTask>
#include <QElapsedTimer>
#include <QNetworkProxy>
#include <QSignalSpy>
#include <QTcpServer>
#include <QtTest>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using SendResult = std::optional<PrinterError>;

namespace {

const QString kLocalhost = u"127.0.0.1"_s;

SendResult send(const PrinterService& service, const QString& zpl, const QString& ip, qint64 port)
{
    return awaitTask(service.sendZPL(zpl, ip, port));
}

QString describe(const SendResult& result)
{
    return result ? result->errorDescription() : u"success"_s;
}

quint16 closedPort()
{
    QTcpServer placeholder;
    if (!placeholder.listen(QHostAddress::LocalHost))
        return 0;
    return placeholder.serverPort(); // closed again when this returns
}

// Larger than the kernel's socket buffers can take at once (4 MiB send buffer
// at most here), so a peer that stops reading holds the sender up.
const QString& hugeLabel()
{
    static const QString label =
        u"^XA^FD"_s + QString::fromLatin1(QByteArray(8 * 1024 * 1024, 'Z')) + u"^FS^XZ"_s;
    return label;
}

} // namespace

class PrinterServiceTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void deliversExactlyTheUtf8Bytes_data();
    void deliversExactlyTheUtf8Bytes();
    void reachesLiteralsAndNames_data();
    void reachesLiteralsAndNames();
    void emptyAddressNeverConnects();
    void unusablePortFailsAtOnce_data();
    void unusablePortFailsAtOnce();
    void unansweredConnectionEndsAtTheTimeOut();
    void stalledPrinterEndsAtTheTimeOut();
    void brokenPeerIsASendFailure_data();
    void brokenPeerIsASendFailure();
    void jobFinishesOnceAndIgnoresTheLateTimer();
    void serviceMayGoAwayWhileSending();
    void connectionTestSendsTheTestLabel();
    void connectionTestReportsFailures();
};

void PrinterServiceTest::initTestCase()
{
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
}

void PrinterServiceTest::deliversExactlyTheUtf8Bytes_data()
{
    QTest::addColumn<QString>("zpl");
    QTest::addColumn<QByteArray>("wire");
    QTest::newRow("ascii") << u"^XA^FDABC-1^FS^XZ"_s << QByteArray("^XA^FDABC-1^FS^XZ");
    QTest::newRow("accents") << u"^XA^FDCafé crème €5^FS^XZ"_s
                             << QByteArray("^XA^FDCaf\xC3\xA9 cr\xC3\xA8me \xE2\x82\xAC"
                                           "5^FS^XZ");
    QTest::newRow("line ends kept, none added") << u"^XA\r\n^XZ\n"_s << QByteArray("^XA\r\n^XZ\n");
    QTest::newRow("empty") << QString() << QByteArray();
}

void PrinterServiceTest::deliversExactlyTheUtf8Bytes()
{
    QFETCH(QString, zpl);
    QFETCH(QByteArray, wire);
    LabelSink sink;
    QVERIFY(sink.listen());
    const PrinterService service;

    const SendResult result = send(service, zpl, kLocalhost, sink.port());
    QVERIFY2(!result, qPrintable(describe(result)));
    // A job is recorded only when the sender has closed its end.
    QTRY_COMPARE(sink.jobs().size(), 1);
    QCOMPARE(sink.jobs().at(0), wire);
    QCOMPARE(sink.connectionCount(), 1);
}

void PrinterServiceTest::reachesLiteralsAndNames_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QHostAddress>("listenOn");
    QTest::newRow("IPv6 literal") << u"::1"_s << QHostAddress(QHostAddress::LocalHostIPv6);
    // Where "localhost" also names ::1, that address refuses first and the
    // job has to go on to the next one.
    QTest::newRow("host name") << u"localhost"_s << QHostAddress(QHostAddress::LocalHost);
}

void PrinterServiceTest::reachesLiteralsAndNames()
{
    QFETCH(QString, address);
    QFETCH(QHostAddress, listenOn);
    LabelSink sink;
    if (!sink.listen(0, listenOn))
        QSKIP("This loopback address is not available here");
    const PrinterService service;

    const SendResult result = send(service, u"^XA^XZ"_s, address, sink.port());
    QVERIFY2(!result, qPrintable(describe(result)));
    QTRY_COMPARE(sink.jobs().size(), 1);
    QCOMPARE(sink.jobs().at(0), "^XA^XZ");
}

void PrinterServiceTest::emptyAddressNeverConnects()
{
    LabelSink sink;
    QVERIFY(sink.listen());
    const PrinterService service;

    for (const qint64 port : {qint64(sink.port()), qint64(-5), qint64(100000)}) {
        const SendResult result = send(service, u"^XA^XZ"_s, QString(), port);
        QVERIFY(result);
        QCOMPARE(result->kind(), PrinterError::Kind::noPrinterConfigured);
        QCOMPARE(result->errorDescription(), u"Geen printer IP geconfigureerd"_s);
    }
    const auto test = awaitTask(service.testConnection(QString(), sink.port()));
    QVERIFY(!test.success);
    QCOMPARE(test.message, u"Geen IP adres geconfigureerd"_s);

    QTest::qWait(50);
    QCOMPARE(sink.connectionCount(), 0);
}

void PrinterServiceTest::unusablePortFailsAtOnce_data()
{
    QTest::addColumn<qint64>("port"); // 0: a port nobody listens on
    QTest::newRow("refused") << qint64(0);
    QTest::newRow("negative") << qint64(-1);
    QTest::newRow("65536") << qint64(65536);
    // Would wrap to a valid 16-bit port if it were truncated.
    QTest::newRow("wraps onto a real port") << qint64(65536 + 9100);
}

void PrinterServiceTest::unusablePortFailsAtOnce()
{
    QFETCH(qint64, port);
    if (port == 0)
        port = closedPort();
    QVERIFY(port != 0);
    const PrinterService service(5s);

    QElapsedTimer clock;
    clock.start();
    const SendResult result = send(service, u"^XA^XZ"_s, kLocalhost, port);
    QVERIFY(result);
    QCOMPARE(result->kind(), PrinterError::Kind::connectionFailed);
    QVERIFY(result->errorDescription().startsWith(u"Verbinding mislukt: "_s));
    QVERIFY(!result->payload().isEmpty());
    QVERIFY2(clock.elapsed() < 2000, "a refusal must not wait for the time-out");
}

void PrinterServiceTest::unansweredConnectionEndsAtTheTimeOut()
{
    UnansweredPort silent;
    QString silenceError;
    if (!silent.open(0, &silenceError))
        QSKIP(qPrintable(silenceError));
    const PrinterService service(400ms);

    QElapsedTimer clock;
    clock.start();
    const SendResult result = send(service, u"^XA^XZ"_s, kLocalhost, silent.port());
    QVERIFY(result);
    QCOMPARE(result->kind(), PrinterError::Kind::timeout);
    QCOMPARE(result->errorDescription(), u"Verbinding time-out"_s);
    QVERIFY2(clock.elapsed() >= 400, "the time-out must not fire early");
    QVERIFY(clock.elapsed() < 3000);
}

void PrinterServiceTest::stalledPrinterEndsAtTheTimeOut()
{
    // Connected, but the printer takes the data far too slowly: the time-out
    // covers the whole job, not only the connection attempt.
    LabelSink sink;
    sink.setBehaviour(LabelSink::Behaviour::readSlowly);
    QVERIFY(sink.listen());
    const PrinterService service(500ms);

    const SendResult result = send(service, hugeLabel(), kLocalhost, sink.port());
    QVERIFY(result);
    QCOMPARE(result->kind(), PrinterError::Kind::timeout);
}

void PrinterServiceTest::brokenPeerIsASendFailure_data()
{
    QTest::addColumn<LabelSink::Behaviour>("behaviour");
    QTest::newRow("closes at once") << LabelSink::Behaviour::closeAtOnce;
    QTest::newRow("resets mid-transfer") << LabelSink::Behaviour::resetMidTransfer;
}

void PrinterServiceTest::brokenPeerIsASendFailure()
{
    QFETCH(LabelSink::Behaviour, behaviour);
    LabelSink sink;
    sink.setBehaviour(behaviour);
    QVERIFY(sink.listen());
    const PrinterService service(5s);

    QElapsedTimer clock;
    clock.start();
    const SendResult result = send(service, hugeLabel(), kLocalhost, sink.port());
    QVERIFY(result);
    QCOMPARE(result->kind(), PrinterError::Kind::sendFailed);
    QVERIFY(result->errorDescription().startsWith(u"Verzenden mislukt: "_s));
    QVERIFY(clock.elapsed() < 3000);
    QVERIFY(sink.jobs().isEmpty());
}

void PrinterServiceTest::jobFinishesOnceAndIgnoresTheLateTimer()
{
    LabelSink sink;
    QVERIFY(sink.listen());
    const quint16 refused = closedPort();

    PrinterSendJob delivered("^XA^XZ", 200ms);
    PrinterSendJob rejected("^XA^XZ", 200ms);
    QSignalSpy deliveredSpy(&delivered, &PrinterSendJob::finished);
    QSignalSpy rejectedSpy(&rejected, &PrinterSendJob::finished);
    delivered.start(kLocalhost, sink.port());
    rejected.start(kLocalhost, refused);

    QTRY_COMPARE(deliveredSpy.count(), 1);
    QTRY_COMPARE(rejectedSpy.count(), 1);
    QTest::qWait(350);
    QCOMPARE(deliveredSpy.count(), 1);
    QCOMPARE(rejectedSpy.count(), 1);
    QVERIFY(!delivered.result());
    QCOMPARE(rejected.result()->kind(), PrinterError::Kind::connectionFailed);
}

void PrinterServiceTest::serviceMayGoAwayWhileSending()
{
    UnansweredPort silent;
    QString silenceError;
    if (!silent.open(0, &silenceError))
        QSKIP(qPrintable(silenceError));
    auto service = std::make_unique<PrinterService>(300ms);

    QCoro::Task<SendResult> pending = service->sendZPL(u"^XA^XZ"_s, kLocalhost, silent.port());
    service.reset();
    const SendResult result = awaitTask(std::move(pending));
    QVERIFY(result);
    QCOMPARE(result->kind(), PrinterError::Kind::timeout);
}

void PrinterServiceTest::connectionTestSendsTheTestLabel()
{
    LabelSink sink;
    QVERIFY(sink.listen());
    const PrinterService service;

    const auto test = awaitTask(service.testConnection(kLocalhost, sink.port()));
    QVERIFY(test.success);
    QCOMPARE(test.message, u"Verbinding gelukt! Test etiket verstuurd."_s);
    QTRY_COMPARE(sink.jobs().size(), 1);
    QCOMPARE(sink.jobs().at(0), "^XA^FO50,50^A0N,30,30^FDTest Etiket^FS^XZ");
    QCOMPARE(sink.jobs().at(0).size(), 41);
}

void PrinterServiceTest::connectionTestReportsFailures()
{
    const PrinterService service(5s);

    const auto refused = awaitTask(service.testConnection(kLocalhost, closedPort()));
    QVERIFY(!refused.success);
    QVERIFY2(refused.message.startsWith(u"Verbinding mislukt: "_s), qPrintable(refused.message));

    UnansweredPort silent;
    QString silenceError;
    if (!silent.open(0, &silenceError))
        QSKIP(qPrintable(silenceError));
    const PrinterService impatient(200ms);
    const auto timedOut = awaitTask(impatient.testConnection(kLocalhost, silent.port()));
    QVERIFY(!timedOut.success);
    QCOMPARE(timedOut.message, u"Verbinding time-out"_s);
}

QTEST_GUILESS_MAIN(PrinterServiceTest)
#include "PrinterServiceTest.moc"

#include "AwaitTask.h"
#include "LabelSink.h"
#include "UnansweredPort.h"
#include "services/PrinterService.h"

#include <QElapsedTimer>
#include <QNetworkProxy>
#include <QTcpServer>
#include <QtTest>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using SendResult = std::optional<PrinterError>;

namespace {

using Behaviour = LabelSink::Behaviour;
// A port of 0 stands for the sink's; kRefusing and kSilent for those peers.
constexpr qint64 kRefusing = -2, kSilent = -3;

struct Failure
{
    const char* address;
    qint64 port;
    Behaviour sink;
    int timeoutMs;
    const char* expected; // ending in ": ", only the start of the text
};

quint16 closedPort()
{
    QTcpServer placeholder;
    placeholder.listen(QHostAddress::LocalHost);
    return placeholder.serverPort(); // closed again when this returns
}

// More than the kernel's loopback buffers take from a peer that stops reading.
QString hugeLabel()
{
    return u"^XA^FD"_s + QString(8 * 1024 * 1024, u'Z') + u"^FS^XZ"_s;
}

} // namespace

class PrinterServiceTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }
    void deliversExactlyTheUtf8Bytes_data()
    {
        QTest::addColumn<QString>("zpl");
        QTest::addColumn<QByteArray>("wire");
        QTest::addColumn<QString>("address");
        const std::tuple<const char*, QString, QByteArray, QString> rows[] = {
            {"accents", u"^FDCafé €"_s, "^FDCaf\xC3\xA9 \xE2\x82\xAC", u"127.0.0.1"_s},
            {"line ends kept, none added", u"^XA\r\n^XZ\n"_s, "^XA\r\n^XZ\n", u"127.0.0.1"_s},
            {"IPv6 literal", u"^XA^XZ"_s, "^XA^XZ", u"::1"_s},
            // Where "localhost" also names ::1, that address refuses and the next one is tried.
            {"host name", u"^XA^XZ"_s, "^XA^XZ", u"localhost"_s},
        };
        for (const auto& [name, zpl, wire, address] : rows)
            QTest::newRow(name) << zpl << wire << address;
    }

    void deliversExactlyTheUtf8Bytes()
    {
        QFETCH(QString, zpl);
        QFETCH(QByteArray, wire);
        QFETCH(QString, address);
        LabelSink sink;
        if (!sink.listen(0, address == u"::1"_s ? QHostAddress(address) : QHostAddress::LocalHost))
            QSKIP("This loopback address is not available here");

        const SendResult result = awaitTask(PrinterService().sendZPL(zpl, address, sink.port()));
        QVERIFY2(!result, qPrintable(result ? result->errorDescription() : QString()));
        QTRY_COMPARE(sink.jobs().size(), 1); // recorded once the sender has closed
        QCOMPARE(sink.jobs().at(0), wire);
        QCOMPARE(sink.connectionCount(), 1);
    }

    void failures_data()
    {
        QTest::addColumn<Failure>("row");
        const auto add = [](const char* name, const Failure& row) {
            QTest::newRow(name) << row;
        };
        add("no address", {"", 0, Behaviour::normal, 10000, "Geen printer IP geconfigureerd"});
        // Would reach a real port if it were cut to 16 bits.
        add("port wrapping",
            {"127.0.0.1", 65536 + 9100, Behaviour::normal, 10000, "Verbinding mislukt: "});
        // Ends at once, not after the time-out.
        add("refused", {"127.0.0.1", kRefusing, Behaviour::normal, 10000, "Verbinding mislukt: "});
        add("never answered",
            {"127.0.0.1", kSilent, Behaviour::normal, 300, "Verbinding time-out"});
        // The time-out covers the whole job, not only the connection attempt.
        add("takes too long", {"127.0.0.1", 0, Behaviour::readSlowly, 500, "Verbinding time-out"});
        add("resets", {"127.0.0.1", 0, Behaviour::resetMidTransfer, 10000, "Verzenden mislukt: "});
    }

    void failures()
    {
        QFETCH(Failure, row);
        LabelSink sink;
        UnansweredPort silent;
        QString why;
        if (row.port == kSilent && !silent.open(0, &why))
            QSKIP(qPrintable(why));
        sink.setBehaviour(row.sink);
        QVERIFY(sink.listen());
        const qint64 port = row.port == kRefusing ? closedPort()
                            : row.port == kSilent ? silent.port()
                            : row.port == 0       ? sink.port()
                                                  : row.port;
        // A service that goes before its job has ended must not matter.
        auto service = std::make_unique<PrinterService>(std::chrono::milliseconds(row.timeoutMs));

        QElapsedTimer clock;
        clock.start();
        QCoro::Task<SendResult> job =
            service->sendZPL(hugeLabel(), QString::fromLatin1(row.address), port);
        service.reset();
        const SendResult result = awaitTask(std::move(job));
        QVERIFY(result);
        const QString text = result->errorDescription();
        const QString expected = QString::fromLatin1(row.expected);
        QVERIFY2(expected.endsWith(u": "_s) ? text.startsWith(expected) && text != expected
                                            : text == expected,
                 qPrintable(text));
        // Only a time-out waits; the others fail long before their 10 s.
        const bool timedOut = text == u"Verbinding time-out"_s;
        QVERIFY(timedOut ? clock.elapsed() >= row.timeoutMs : clock.elapsed() < 5000);
        if (row.sink == Behaviour::normal) // connected to nothing, or elsewhere
            QCOMPARE(sink.connectionCount(), 0);
        QVERIFY(sink.jobs().isEmpty());
    }

    void connectionTest()
    {
        LabelSink sink;
        QVERIFY(sink.listen());
        const PrinterService service;

        const auto sent = awaitTask(service.testConnection(u"127.0.0.1"_s, sink.port()));
        QCOMPARE(sent.message, u"Verbinding gelukt! Test etiket verstuurd."_s);
        QVERIFY(sent.success);
        QTRY_COMPARE(sink.jobs().size(), 1);
        QCOMPARE(sink.jobs().at(0), "^XA^FO50,50^A0N,30,30^FDTest Etiket^FS^XZ");
        // Not the transport's own text for a missing address.
        const auto empty = awaitTask(service.testConnection(QString(), sink.port()));
        QCOMPARE(empty.message, u"Geen IP adres geconfigureerd"_s);
        QVERIFY(!empty.success);
        QCOMPARE(sink.connectionCount(), 1);
    }
};

QTEST_GUILESS_MAIN(PrinterServiceTest)
#include "tst_PrinterService.moc"

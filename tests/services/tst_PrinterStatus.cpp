#include "AwaitTask.h"
#include "services/PrinterStatusService.h"

#include <QNetworkProxy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Answers as a printer does: its first string, then the two others.
const QByteArray kSecond = "000,0,0,0,1,2,6,0,00000000,1,000";
QByteArray answer(const QByteArray& first, const QByteArray& second = kSecond,
                  const QByteArray& third = "1234,0")
{
    return "\x02" + first + "\x03\r\n\x02" + second + "\x03\r\n\x02" + third + "\x03\r\n";
}

const QByteArray kReady = answer("030,0,0,1218,000,0,0,0,000,0,0,0");

} // namespace

// How an answer is gathered from reads, whatever their split, and where that
// stops waiting, the printer_status fuzz replay proves.
class PrinterStatusTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }
    void readsTheAnswer_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QString>("summary"); // empty: not an answer
        QTest::addColumn<int>("labelsRemaining");

        QTest::newRow("ready") << kReady << u"Gereed"_s << 0;
        QTest::newRow("formats waiting") << answer("030,0,0,1218,003,0,0,0,000,0,0,0")
                                         << u"Gereed, formaten in de buffer: 3"_s << 0;
        QTest::newRow("paused, head up, labels remaining")
            << answer("030,0,1,1218,001,0,0,0,000,0,0,0", "000,0,1,0,1,2,6,0,00000025,1,000")
            << u"Gepauzeerd, Kop open"_s << 25;
        QTest::newRow("every problem")
            << answer("030,1,1,1218,000,1,0,0,000,1,1,1", "000,0,1,1,1,2,6,0,00000000,1,000")
            << u"Papier op, Gepauzeerd, Kop open, Lint op, Ontvangstbuffer vol, Te warm, Te koud, "
               u"Configuratie verloren"_s
            << 0;
        QTest::newRow("field missing")
            << answer("030,0,0,1218,000,0,0,0,000,0,0") << QString() << 0;
        QTest::newRow("flag not 0 or 1")
            << answer("030,2,0,1218,000,0,0,0,000,0,0,0") << QString() << 0;
        QTest::newRow("well-formed but oversized")
            << answer("030,0,0,1218,000,0,0,0,000,0,0,0", kSecond, QByteArray(1100, '1') + ",0")
            << QString() << 0;
    }

    void readsTheAnswer()
    {
        QFETCH(QByteArray, answer);
        QFETCH(QString, summary);
        QFETCH(int, labelsRemaining);
        const std::optional<PrinterStatus> status = PrinterStatus::fromAnswer(answer);
        QCOMPARE(status.has_value(), !summary.isEmpty());
        if (!status)
            return;
        QCOMPARE(status->summary(), summary);
        QCOMPARE(status->labelsRemaining, labelsRemaining);
    }

    void queriesThePrinter_data()
    {
        QTest::addColumn<QByteArray>("reply"); // written in pieces of `piece` bytes
        QTest::addColumn<int>("piece");        // 0: nothing listens
        QTest::addColumn<QString>("summary");
        const QString unknown = u"Onbekend antwoord van de printer"_s;
        QTest::newRow("in many small writes") << kReady << 7 << u"Gereed"_s;
        QTest::newRow("silent")
            << QByteArray() << 1000
            << u"Geen antwoord op de statusvraag: papier of lint op, kop open of te "
               u"warm?"_s;
        QTest::newRow("cut short, then closed") << kReady.left(40) << 1000 << unknown;
        QTest::newRow("endless") << QByteArray(5000, 'x') << 100 << unknown;
        QTest::newRow("refused") << QByteArray() << 0 << u"Verbinding mislukt: "_s;
    }

    void queriesThePrinter()
    {
        QFETCH(QByteArray, reply);
        QFETCH(int, piece);
        QFETCH(QString, summary);
        QTcpServer printer;
        QVERIFY(printer.listen(QHostAddress::LocalHost));
        QByteArray asked;
        QObject::connect(&printer, &QTcpServer::pendingConnectionAvailable, &printer, [&] {
            QTcpSocket* socket = printer.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [&, socket] {
                asked += socket->readAll();
                // Each piece in a write of its own, a few milliseconds apart.
                for (qsizetype at = 0; at < reply.size(); at += piece)
                    QTimer::singleShot(
                        2ms * (at / piece), socket,
                        [socket, part = reply.mid(at, piece)] { socket->write(part); });
                if (!reply.isEmpty() && summary != u"Gereed"_s)
                    QTimer::singleShot(100ms, socket, &QTcpSocket::disconnectFromHost);
            });
        });
        const quint16 port = printer.serverPort();
        if (piece == 0)
            printer.close();
        const PrinterStatusService service(10s, 500ms);

        const PrinterStatus status = awaitTask(service.queryStatus(u"127.0.0.1"_s, port), 10s);
        QVERIFY2(status.summary().startsWith(summary), qPrintable(status.summary()));
        QCOMPARE(asked, piece == 0 ? QByteArray() : QByteArray("~HS"));
        QCOMPARE(awaitTask(service.queryStatus(QString(), port)).summary(),
                 u"Geen printer IP geconfigureerd"_s);
    }
};

QTEST_GUILESS_MAIN(PrinterStatusTest)
#include "tst_PrinterStatus.moc"

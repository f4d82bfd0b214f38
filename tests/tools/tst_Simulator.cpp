#include "AwaitTask.h"
#include "DemoHome.h"
#include "SimulatedProductService.h"
#include "TestHome.h"
#include "VirtualPrinter.h"
#include "labelrender/LabelRenderer.h"
#include "model/AppSettings.h"
#include "services/PrinterService.h"
#include "services/PrinterStatusService.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class SimulatorTest : public QObject
{
    Q_OBJECT

private slots:
    void printers_data()
    {
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("failure");
        QTest::addColumn<QString>("status");
        QTest::addColumn<QString>("sent"); // the start of the send's error; empty: printed
        const auto add = [](const char* state, const char* failure, const QString& status,
                            const QString& sent = {}) {
            QTest::addRow("%s %s", state, failure)
                << QString::fromLatin1(state) << QString::fromLatin1(failure) << status << sent;
        };
        const QString silence =
            u"Geen antwoord op de statusvraag: papier of lint op, kop open of te warm?"_s;
        add("ready", "none", u"Gereed"_s);
        add("head-open", "none", silence);
        add("ready", "refuse", u"Verbinding mislukt: "_s, u"Verbinding mislukt: "_s);
        add("ready", "hang", u"Verbinding time-out"_s, u"Verbinding time-out"_s);
        add("ready", "reset", u"Onbekend antwoord van de printer"_s, u"Verzenden mislukt: "_s);
    }

    // Every state answers the status query as a printer does and still takes jobs,
    // each kept with its picture; every failure fails both.
    void printers()
    {
        QFETCH(QString, state);
        QFETCH(QString, failure);
        QFETCH(QString, status);
        QFETCH(QString, sent);
        QTemporaryDir jobs;
        VirtualPrinter printer(u"P"_s, jobs.path(), *VirtualPrinter::failureFromName(failure),
                               *VirtualPrinter::stateFromName(state));
        QString error;
        if (!printer.start(0, &error))
            QSKIP(qPrintable(error));
        const auto timeout = failure == u"hang"_s ? 300ms : 5000ms;
        // Large enough that a dropped or reset connection cannot take it all.
        const QString label = u"^XA^FD\u00e9^FS^XZ"_s + QString(sent.isEmpty() ? 0 : 1 << 23, u'x');

        const PrinterStatus answer = awaitTask(
            PrinterStatusService(timeout, 300ms).queryStatus(u"127.0.0.1"_s, printer.port()));
        QVERIFY2(answer.summary().startsWith(status), qPrintable(answer.summary()));
        const auto result =
            awaitTask(PrinterService(timeout).sendZPL(label, u"127.0.0.1"_s, printer.port()));
        QVERIFY2(result ? !sent.isEmpty() && result->errorDescription().startsWith(sent)
                        : sent.isEmpty(),
                 qPrintable(result ? result->errorDescription() : QString()));
        if (!sent.isEmpty())
            return;
        QTRY_COMPARE(QDir(jobs.path()).entryList(QDir::Files),
                     (QStringList{u"job-000001.png"_s, u"job-000001.zpl"_s}));
        QCOMPARE(TestHome::readFile(jobs.filePath(u"job-000001.zpl"_s)), "^XA^FD\xC3\xA9^FS^XZ");
        // Beside it, the label drawn from exactly those bytes.
        QCOMPARE(QImage(jobs.filePath(u"job-000001.png"_s)).convertToFormat(QImage::Format_RGB32),
                 LabelRenderer().render(u"^XA^FD\u00e9^FS^XZ"_s).labels.value(0).image);
    }

    void rawExchanges_data()
    {
        QTest::addColumn<bool>("toService");
        QTest::addColumn<QByteArrayList>("reads"); // each written on its own, a moment apart
        QTest::addColumn<QByteArray>("answer");    // the whole answer; from the service its start
        QTest::addColumn<QByteArray>("job");       // null: not kept
        // A query is found wherever the reads split it, answered, and kept out of the job.
        QTest::newRow("query around another, split")
            << false << QByteArrayList{"^XA~", "H~HSS^XZ"}
            << VirtualPrinter::statusAnswer(VirtualPrinter::State::ready).repeated(2)
            << QByteArray("^XA^XZ");
        // Past the bound the printer closes the connection itself.
        QTest::newRow("job past the bound")
            << false << QByteArrayList{QByteArray(VirtualPrinter::kMaxJobBytes + 1, 'x')}
            << QByteArray() << QByteArray();
        // A body the service would not take is refused at once, not waited for.
        const QByteArray post = "POST /product HTTP/1.1\r\nContent-Length: ";
        QTest::newRow("body past 1 MiB") << true << QByteArrayList{post + "1048577\r\n\r\n"}
                                         << QByteArray("HTTP/1.1 413 ") << QByteArray();
    }

    void rawExchanges()
    {
        QFETCH(bool, toService);
        QFETCH(QByteArrayList, reads);
        QFETCH(QByteArray, answer);
        QFETCH(QByteArray, job);
        QTemporaryDir jobs;
        VirtualPrinter printer(u"P"_s, jobs.path());
        SimulatedProductService service(ProductCatalogue(1), u"k"_s);
        QString error;
        QVERIFY2(printer.start(0, &error) && service.listen(), qPrintable(error));
        QSignalSpy written(&printer, &VirtualPrinter::jobWritten);
        QSignalSpy notWritten(&printer, &VirtualPrinter::jobNotWritten);
        QTcpSocket client;
        QByteArray received;
        connect(&client, &QTcpSocket::readyRead, this, [&] { received += client.readAll(); });
        client.connectToHost(QHostAddress::LocalHost, toService ? service.port() : printer.port());
        QVERIFY(client.waitForConnected(5000));
        for (const QByteArray& read : std::as_const(reads)) {
            client.write(read);
            client.waitForBytesWritten(5000);
            QTest::qWait(20);
        }
        QTRY_VERIFY(received.size() >= answer.size());
        QTest::qWait(20);
        QVERIFY2(toService ? received.startsWith(answer) : received == answer,
                 received.constData());
        if (!job.isNull())
            client.disconnectFromHost();
        QTRY_COMPARE_WITH_TIMEOUT(client.state(), QAbstractSocket::UnconnectedState, 10000);
        if (toService)
            return;
        QTRY_COMPARE(written.size() + notWritten.size(), 1);
        QCOMPARE(written.size(), job.isNull() ? 0 : 1);
        if (job.isNull())
            QVERIFY(QDir(jobs.path()).isEmpty());
        else
            QCOMPARE(written.at(0).at(1).toByteArray(), job);
    }

    // The demo's settings open the simulator's dossier and printer, and never the own home's.
    void demoSettings()
    {
        TestHome home;
        const QString own = QDir::homePath();
        for (const QString& spelling :
             {own, own + u'/', own + u"/."_s, own + u"/../"_s + QDir(own).dirName(), QString()})
            QVERIFY2(DemoHome::write(spelling, u"k"_s, 9100), qPrintable(spelling));
        QVERIFY(!QFile::exists(home.settingsFilePath()));
        QTemporaryDir demo;
        QCOMPARE(DemoHome::write(demo.path(), u"k"_s, 9101), std::nullopt);
        QVERIFY(
            home.writeSettingsFile(TestHome::readFile(DemoHome::settingsFilePath(demo.path()))));
        const AppSettings settings;
        QVERIFY(settings.isConfigured() && settings.isPrinterConfigured());
        QCOMPARE(settings.selectedDossier()->apiKey, u"k"_s);
        const Printer printer = *settings.printerFor(*settings.selectedTemplate());
        QCOMPARE(printer.ipAddress + u':' + QString::number(printer.port), u"127.0.0.1:9101"_s);
    }
};

QTEST_MAIN(SimulatorTest)
#include "tst_Simulator.moc"

#include "DemoHome.h"
#include "Simulator.h"
#include "SimulatorOptions.h"
#include "TestHome.h"
#include "model/AppSettings.h"
#include "model/SettingsData.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

SimulatorOptions::Outcome parse(const QStringList& arguments, SimulatorOptions* options,
                                QString* message)
{
    return SimulatorOptions::parse(QStringList{u"stampix-simulator"_s} + arguments, options,
                                   message);
}

} // namespace

class SimulatorSetupTest : public QObject
{
    Q_OBJECT

private slots:
    void optionsAreTakenFromTheCommandLine();
    void badOptionsAreRejected_data();
    void badOptionsAreRejected();
    void demoSettingsOpenTheSimulator();
    void demoSettingsStayOutOfTheOwnHome();
    void simulatorStartsEverythingAndWritesTheDemoHome();
    void busyPortStopsTheStart();
};

void SimulatorSetupTest::optionsAreTakenFromTheCommandLine()
{
    SimulatorOptions options;
    QString message;
    // Without options the demo runs with nothing failing on purpose.
    QCOMPARE(parse({}, &options, &message), SimulatorOptions::Outcome::run);
    QCOMPARE(options.serviceFailure, ProductService::Failure::none);
    QCOMPARE(options.printerFailure, VirtualPrinter::Failure::none);
    QCOMPARE(parse({u"--help"_s}, &options, &message), SimulatorOptions::Outcome::help);
    QVERIFY(message.contains(u"--printer-failure"_s));

    const QStringList arguments{
        u"--service-port=0"_s,       u"--printer-port"_s,     u"20000"_s,
        u"--printers=3"_s,           u"--api-key=geheim"_s,   u"--products=100000"_s,
        u"--jobs-dir=/tmp/jobs"_s,   u"--delay=1500"_s,       u"--service-failure=http-500"_s,
        u"--printer-failure=hang"_s, u"--demo-home=/tmp/d"_s,
    };
    QCOMPARE(parse(arguments, &options, &message), SimulatorOptions::Outcome::run);
    QCOMPARE(options.servicePort, 0);
    QCOMPARE(options.printerPort, 20000);
    QCOMPARE(options.printerCount, 3);
    QCOMPARE(options.apiKey, u"geheim"_s);
    QCOMPARE(options.productCount, 100'000);
    QCOMPARE(options.jobsDirectory, u"/tmp/jobs"_s);
    QCOMPARE(options.delay, 1500ms);
    QCOMPARE(options.serviceFailure, ProductService::Failure::serverError);
    QCOMPARE(options.printerFailure, VirtualPrinter::Failure::hang);
    QCOMPARE(options.demoHome, u"/tmp/d"_s);
}

void SimulatorSetupTest::badOptionsAreRejected_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("port too large") << QStringList{u"--service-port=65536"_s};
    QTest::newRow("port not a number") << QStringList{u"--printer-port=abc"_s};
    QTest::newRow("no printers") << QStringList{u"--printers=0"_s};
    QTest::newRow("ports past the end")
        << QStringList{u"--printer-port=65535"_s, u"--printers=2"_s};
    QTest::newRow("negative products") << QStringList{u"--products=-1"_s};
    QTest::newRow("too many products") << QStringList{u"--products=1000001"_s};
    QTest::newRow("unknown service failure") << QStringList{u"--service-failure=boom"_s};
    QTest::newRow("unknown printer failure") << QStringList{u"--printer-failure=boom"_s};
    QTest::newRow("empty key") << QStringList{u"--api-key="_s};
    QTest::newRow("unknown option") << QStringList{u"--colour"_s};
    QTest::newRow("stray argument") << QStringList{u"extra"_s};
}

void SimulatorSetupTest::badOptionsAreRejected()
{
    QFETCH(QStringList, arguments);
    SimulatorOptions options;
    QString message;
    QCOMPARE(parse(arguments, &options, &message), SimulatorOptions::Outcome::error);
    QVERIFY(!message.isEmpty());
}

void SimulatorSetupTest::demoSettingsOpenTheSimulator()
{
    QTemporaryDir demo;
    QCOMPARE(DemoHome::write(demo.path(), u"demo-sleutel"_s, 19123), std::nullopt);
    const QByteArray document = readFile(DemoHome::settingsFilePath(demo.path()));
    QVERIFY(document.startsWith("{\n"));

    // The program's own store reads it and finds everything configured.
    TestHome home;
    QVERIFY(home.writeSettingsFile(document));
    AppSettings settings;
    QCOMPARE(settings.dossiers().size(), 1);
    QCOMPARE(settings.selectedDossier()->name, u"Demo Winkel"_s);
    QCOMPARE(settings.selectedDossier()->apiKey, u"demo-sleutel"_s);
    QVERIFY(settings.isConfigured());
    QCOMPARE(settings.printers().size(), 1);
    QCOMPARE(settings.templates().size(), 1);
    const LabelTemplate label = *settings.selectedTemplate();
    QCOMPARE(label.name, u"Standaard Etiket"_s);
    QCOMPARE(label.zplContent, LabelTemplate::kDefaultZPL);
    const Printer printer = *settings.printerFor(label);
    QCOMPARE(printer.name, u"Virtuele printer"_s);
    QCOMPARE(printer.ipAddress, u"127.0.0.1"_s);
    QCOMPARE(printer.port, 19123);
    QVERIFY(settings.isPrinterConfigured());
    QCOMPARE(settings.bookyear(), SettingsData::currentYear());
}

void SimulatorSetupTest::demoSettingsStayOutOfTheOwnHome()
{
    // A stand-in home, so a broken guard could not reach real settings.
    TestHome home;
    const QString ownHome = QDir::homePath();
    QCOMPARE(ownHome, home.path());
    for (const QString& spelling : {ownHome, ownHome + u'/', ownHome + u"/."_s,
                                    ownHome + u"/../"_s + QDir(ownHome).dirName()}) {
        const std::optional<QString> refused = DemoHome::write(spelling, u"k"_s, 9100);
        QVERIFY2(refused, qPrintable(spelling));
    }
    QVERIFY(!QFile::exists(home.settingsFilePath()));
    QVERIFY(DemoHome::write(QString(), u"k"_s, 9100));
}

void SimulatorSetupTest::simulatorStartsEverythingAndWritesTheDemoHome()
{
    QTemporaryDir dir;
    SimulatorOptions options;
    options.servicePort = 0;
    options.printerPort = 0;
    options.printerCount = 2;
    options.jobsDirectory = dir.filePath(u"jobs"_s);
    options.demoHome = dir.filePath(u"home"_s);
    Simulator simulator(options);
    QSignalSpy messages(&simulator, &Simulator::message);
    QString error;
    QVERIFY2(simulator.start(&error), qPrintable(error));

    QCOMPARE(simulator.printers().size(), 2);
    QVERIFY(simulator.printers()[0]->port() != simulator.printers()[1]->port());
    QCOMPARE(simulator.printers()[1]->jobDirectory(), dir.filePath(u"jobs/printer-2"_s));
    QCOMPARE(messages.constLast().constFirst().toString(), Simulator::kReadyLine.toString());

    QString readError;
    const std::optional<SettingsData> demo =
        SettingsData::read(readFile(DemoHome::settingsFilePath(options.demoHome)), &readError);
    QVERIFY2(demo, qPrintable(readError));
    QCOMPARE(demo->dossiers.constFirst().apiKey, options.apiKey);
    QCOMPARE(demo->printers.constFirst().port, simulator.printers()[0]->port());
}

void SimulatorSetupTest::busyPortStopsTheStart()
{
    QTcpServer occupant;
    QVERIFY(occupant.listen(QHostAddress::LocalHost));
    QTemporaryDir dir;
    SimulatorOptions options;
    options.servicePort = 0;
    options.printerPort = occupant.serverPort();
    options.jobsDirectory = dir.path();
    options.demoHome = dir.filePath(u"home"_s);
    Simulator simulator(options);
    QString error;
    QVERIFY(!simulator.start(&error));
    QVERIFY2(error.contains(QString::number(occupant.serverPort())), qPrintable(error));
    QVERIFY(!QFile::exists(DemoHome::settingsFilePath(options.demoHome)));
}

QTEST_GUILESS_MAIN(SimulatorSetupTest)
#include "tst_SimulatorSetup.moc"

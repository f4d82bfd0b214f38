#include "LabelJobWriter.h"
#include "VirtualPrinter.h"
#include "services/PrinterService.h"

#include <QCoroTask>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QStringList jobFiles(const QString& directory)
{
    return QDir(directory).entryList({u"*"_s}, QDir::Files, QDir::Name);
}

// One raw connection: connect, write, close.
bool sendRaw(quint16 port, const QByteArray& bytes)
{
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, port);
    if (!socket.waitForConnected(2000))
        return false;
    if (!bytes.isEmpty()) {
        socket.write(bytes);
        if (!socket.waitForBytesWritten(2000))
            return false;
    }
    socket.disconnectFromHost();
    return socket.state() == QAbstractSocket::UnconnectedState || socket.waitForDisconnected(2000);
}

} // namespace

class VirtualPrinterTest : public QObject
{
    Q_OBJECT

private slots:
    void writerNeverReplacesAFile();
    void writerReportsAFolderItCannotUse();
    void firstFieldDataForTheLog_data();
    void firstFieldDataForTheLog();
    void eachConnectionBecomesOneFile();
    void failingPrinterFails_data();
    void failingPrinterFails();
};

void VirtualPrinterTest::writerNeverReplacesAFile()
{
    QTemporaryDir dir;
    QVERIFY(writeFile(dir.filePath(u"job-000007.zpl"_s), "earlier run"));
    QVERIFY(writeFile(dir.filePath(u"job-notes.zpl"_s), "not a job"));
    LabelJobWriter writer(dir.path());
    QString error;
    QCOMPARE(writer.write("first", &error), dir.filePath(u"job-000008.zpl"_s));

    // Someone else took the next number meanwhile.
    QVERIFY(writeFile(dir.filePath(u"job-000009.zpl"_s), "someone else"));
    QCOMPARE(writer.write("second", &error), dir.filePath(u"job-000010.zpl"_s));
    QCOMPARE(readFile(dir.filePath(u"job-000007.zpl"_s)), "earlier run");
    QCOMPARE(readFile(dir.filePath(u"job-000009.zpl"_s)), "someone else");
    QCOMPARE(readFile(dir.filePath(u"job-000010.zpl"_s)), "second");
}

void VirtualPrinterTest::writerReportsAFolderItCannotUse()
{
    QTemporaryDir dir;
    QVERIFY(writeFile(dir.filePath(u"plain-file"_s), "x"));
    LabelJobWriter writer(dir.filePath(u"plain-file"_s));
    QString error;
    QVERIFY(!writer.write("job", &error));
    QVERIFY(error.contains(u"plain-file"_s));
}

void VirtualPrinterTest::firstFieldDataForTheLog_data()
{
    QTest::addColumn<QByteArray>("job");
    QTest::addColumn<QString>("data");

    QTest::newRow("default label") << QByteArray("^XA\n^FO50,50^A0N,50,50^FDKEU-12^FS\n"
                                                 "^FO50,120^FDKoffiemok^FS\n^XZ")
                                   << u"KEU-12"_s;
    QTest::newRow("utf-8") << QByteArray("^XA^FDCaf\xC3\xA9^FS^XZ") << u"Café"_s;
    QTest::newRow("no ^FS") << QByteArray("^XA^FDtot het eind") << u"tot het eind"_s;
    QTest::newRow("empty field") << QByteArray("^XA^FD^FS^FDtweede^FS^XZ") << QString();
    QTest::newRow("no field") << QByteArray("^XA^FO50,50^XZ") << QString();
    QTest::newRow("long") << QByteArray("^FD") + QByteArray(100, 'a') + "^FS"
                          << QString(59, u'a') + u'…';
}

void VirtualPrinterTest::firstFieldDataForTheLog()
{
    QFETCH(QByteArray, job);
    QFETCH(QString, data);
    QCOMPARE(VirtualPrinter::firstFieldData(job), data);
}

void VirtualPrinterTest::eachConnectionBecomesOneFile()
{
    QTemporaryDir dir;
    VirtualPrinter printer(u"Virtual printer 1"_s, dir.filePath(u"printer-1"_s));
    QString error;
    QVERIFY2(printer.start(0, &error), qPrintable(error));
    QSignalSpy written(&printer, &VirtualPrinter::jobWritten);
    QSignalSpy empty(&printer, &VirtualPrinter::emptyConnection);

    // Kept byte for byte: UTF-8, control bytes, and more than one read's worth.
    const QList<QByteArray> jobs{"^XA^FDtwee\xE2\x82\xAC^FS^XZ",
                                 QByteArray("^XA\r\n\0\xFF^XZ\n", 11), QByteArray(200'000, 'z')};
    for (const QByteArray& job : jobs) {
        QVERIFY(sendRaw(printer.port(), job));
        QTRY_COMPARE_WITH_TIMEOUT(written.size(), jobs.indexOf(job) + 1, 5000);
    }
    QVERIFY(sendRaw(printer.port(), {}));
    QTRY_COMPARE_WITH_TIMEOUT(empty.size(), 1, 5000);

    QCOMPARE(jobFiles(printer.jobDirectory()),
             (QStringList{u"job-000001.zpl"_s, u"job-000002.zpl"_s, u"job-000003.zpl"_s}));
    for (int i = 0; i < jobs.size(); ++i) {
        const QString path = written.at(i).at(0).toString();
        QCOMPARE(path, QDir(printer.jobDirectory()).filePath(LabelJobWriter::fileName(i + 1)));
        QCOMPARE(readFile(path), jobs[i]);
        QCOMPARE(written.at(i).at(1).toByteArray(), jobs[i]);
    }
}

void VirtualPrinterTest::failingPrinterFails_data()
{
    QTest::addColumn<VirtualPrinter::Failure>("failure");
    QTest::addColumn<PrinterError::Kind>("kind");
    QTest::newRow("refuse") << VirtualPrinter::Failure::refuse
                            << PrinterError::Kind::connectionFailed;
    QTest::newRow("hang") << VirtualPrinter::Failure::hang << PrinterError::Kind::timeout;
}

void VirtualPrinterTest::failingPrinterFails()
{
    QFETCH(VirtualPrinter::Failure, failure);
    QFETCH(PrinterError::Kind, kind);
    QTemporaryDir dir;
    VirtualPrinter printer(u"p"_s, dir.path(), failure);
    QString error;
    QVERIFY2(printer.start(0, &error), qPrintable(error));
    QVERIFY(printer.port() != 0);

    const PrinterService transport(300ms);
    const std::optional<PrinterError> failed =
        QCoro::waitFor(transport.sendZPL(u"^XA^XZ"_s, u"127.0.0.1"_s, printer.port()));
    QVERIFY(failed);
    QCOMPARE(failed->kind(), kind);
    QVERIFY(jobFiles(dir.path()).isEmpty());
}

QTEST_GUILESS_MAIN(VirtualPrinterTest)
#include "tst_VirtualPrinter.moc"

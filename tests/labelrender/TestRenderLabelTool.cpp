#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestRenderLabelTool : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void run_data();
    void run();

private:
    std::unique_ptr<QTemporaryDir> m_dir;
};

void TestRenderLabelTool::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QFile label(m_dir->filePath(u"label.zpl"_s));
    QVERIFY(label.open(QIODevice::WriteOnly));
    label.write("^XA^PW400^LL200^FO20,20^A0N,40^FD{{NAAM}}^FS^PQ2^XZ");
    QFile product(m_dir->filePath(u"product.json"_s));
    QVERIFY(product.open(QIODevice::WriteOnly));
    product.write(R"({"ID": 5, "Name": "Zeep^Lavendel"})");
    QFile broken(m_dir->filePath(u"broken.json"_s));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write(R"({"ID": "5"})");
    QVERIFY(QDir(m_dir->path()).mkdir(u"out-is-a-dir.png"_s));
}

void TestRenderLabelTool::run_data()
{
    QTest::addColumn<QStringList>("arguments"); // "OUT" stands for the output file
    QTest::addColumn<QByteArray>("input");      // standard input
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("message"); // part of standard error
    QTest::addColumn<QSize>("picture");   // written PNG; empty: none may exist

    QTest::newRow("sample values") << QStringList{u"--sample"_s, u"label.zpl"_s, u"-o"_s, u"OUT"_s}
                                   << QByteArray() << 0 << u"^PQ"_s << QSize(400, 200);
    QTest::newRow("standard input, 12 dots/mm")
        << QStringList{u"--dpmm"_s, u"12"_s, u"-"_s, u"-o"_s, u"OUT"_s}
        << QByteArray("^XA^PW600^LL300^FO0,0^GB10,10,1^FS^XZ") << 0 << QString() << QSize(600, 300);
    QTest::newRow("product caret warned")
        << QStringList{u"--product"_s, u"product.json"_s, u"label.zpl"_s, u"-o"_s, u"OUT"_s}
        << QByteArray() << 0 << u"^FH"_s << QSize(400, 200);
    QTest::newRow("unreadable input") << QStringList{u"missing.zpl"_s, u"-o"_s, u"OUT"_s}
                                      << QByteArray() << 1 << u"missing.zpl"_s << QSize();
    QTest::newRow("invalid product")
        << QStringList{u"--product"_s, u"broken.json"_s, u"label.zpl"_s, u"-o"_s, u"OUT"_s}
        << QByteArray() << 1 << u"broken.json"_s << QSize();
    QTest::newRow("output directory missing")
        << QStringList{u"label.zpl"_s, u"-o"_s, u"no/such/dir/out.png"_s} << QByteArray() << 1
        << u"no/such/dir/out.png"_s << QSize();
    QTest::newRow("output is a directory")
        << QStringList{u"label.zpl"_s, u"-o"_s, u"out-is-a-dir.png"_s} << QByteArray() << 1
        << u"out-is-a-dir.png"_s << QSize();
    QTest::newRow("no label in the input") << QStringList{u"-"_s, u"-o"_s, u"OUT"_s}
                                           << QByteArray("hello") << 1 << u"^XA"_s << QSize();
    QTest::newRow("bad resolution")
        << QStringList{u"--dpmm"_s, u"7"_s, u"label.zpl"_s, u"-o"_s, u"OUT"_s} << QByteArray() << 1
        << u"--dpmm"_s << QSize();
}

void TestRenderLabelTool::run()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, input);
    QFETCH(int, exitCode);
    QFETCH(QString, message);
    QFETCH(QSize, picture);

    const QString out = m_dir->filePath(u"out.png"_s);
    arguments.replaceInStrings(QRegularExpression(u"^OUT$"_s), out);
    QProcess tool;
    tool.setWorkingDirectory(m_dir->path());
    tool.start(QStringLiteral(STAMPIX_RENDER_LABEL), arguments);
    QVERIFY(tool.waitForStarted());
    tool.write(input);
    tool.closeWriteChannel();
    QVERIFY(tool.waitForFinished(30'000));
    const QString errors = QString::fromUtf8(tool.readAllStandardError());
    QCOMPARE(tool.exitCode(), exitCode);
    QVERIFY2(errors.contains(message), qPrintable(errors));
    QCOMPARE(QImage(out).size(), picture.isValid() ? picture : QSize(0, 0));
    // Nothing half-written is left beside the output.
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files).filter(u"out"_s),
             picture.isValid() ? QStringList{u"out.png"_s} : QStringList());
}

QTEST_GUILESS_MAIN(TestRenderLabelTool)
#include "TestRenderLabelTool.moc"

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
    const QList<std::pair<QString, QByteArray>> files{
        {u"label.zpl"_s, "^XA^PW400^LL200^FO20,20^A0N,40^FD{{NAAM}}^FS^PQ2^XZ"},
        {u"product.json"_s, R"({"ID": 5, "Name": "Zeep^Lavendel"})"},
    };
    for (const auto& [name, content] : files) {
        QFile file(m_dir->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    QVERIFY(QDir(m_dir->path()).mkdir(u"out-is-a-dir.png"_s));
}

void TestRenderLabelTool::run_data()
{
    QTest::addColumn<QStringList>("arguments"); // "OUT" stands for the output file
    QTest::addColumn<QByteArray>("input");      // standard input
    QTest::addColumn<QString>("message");       // part of standard error
    QTest::addColumn<QSize>("picture");         // written PNG; invalid: a failure, no file

    QTest::newRow("sample values") << QStringList{u"--sample"_s, u"label.zpl"_s, u"-o"_s, u"OUT"_s}
                                   << QByteArray() << u"^PQ"_s << QSize(400, 200);
    QTest::newRow("standard input, size unknown")
        << QStringList{u"--dpmm"_s, u"12"_s, u"-"_s, u"-o"_s, u"OUT"_s}
        << QByteArray("^XA^FO0,0^GB10,10,1^FS^XZ") << u"onbekend"_s << QSize(34, 34);
    QTest::newRow("product caret warned")
        << QStringList{u"--product"_s, u"product.json"_s, u"label.zpl"_s, u"-o"_s, u"OUT"_s}
        << QByteArray() << u"^FH"_s << QSize(400, 200);
    QTest::newRow("unreadable input") << QStringList{u"missing.zpl"_s, u"-o"_s, u"OUT"_s}
                                      << QByteArray() << u"missing.zpl"_s << QSize();
    QTest::newRow("output directory missing")
        << QStringList{u"label.zpl"_s, u"-o"_s, u"no/such/dir/out.png"_s} << QByteArray()
        << u"no/such/dir/out.png"_s << QSize();
    QTest::newRow("output is a directory")
        << QStringList{u"label.zpl"_s, u"-o"_s, u"out-is-a-dir.png"_s} << QByteArray()
        << u"out-is-a-dir.png"_s << QSize();
}

void TestRenderLabelTool::run()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, input);
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
    QCOMPARE(tool.exitCode(), picture.isValid() ? 0 : 1);
    QVERIFY2(errors.contains(message), qPrintable(errors));
    QCOMPARE(QImage(out).size(), picture.isValid() ? picture : QSize(0, 0));
    // Nothing half-written is left beside the output.
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files).filter(u"out"_s),
             picture.isValid() ? QStringList{u"out.png"_s} : QStringList());
}

QTEST_GUILESS_MAIN(TestRenderLabelTool)
#include "TestRenderLabelTool.moc"

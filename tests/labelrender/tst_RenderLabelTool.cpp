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
        {u"broken.json"_s, R"({"ID": 5, "Name": )"},
    };
    for (const auto& [name, content] : files) {
        QFile file(m_dir->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    QVERIFY(QDir(m_dir->path()).mkdir(u"out-is-a-dir.png"_s));
    QVERIFY(QDir(m_dir->path()).mkdir(u"out-2-is-a-dir-2.png"_s));
}

void TestRenderLabelTool::run_data()
{
    QTest::addColumn<QStringList>("arguments"); // "OUT" stands for the output file
    QTest::addColumn<QByteArray>("input");      // standard input
    QTest::addColumn<QString>("message");       // part of standard error
    QTest::addColumn<QList<QSize>>("pictures"); // out.png, out-2.png, ...; none: a failure
    QTest::addColumn<QByteArray>("earlier");    // already at the -o path; empty: nothing

    QTest::newRow("sample values")
        << QStringList{u"--sample"_s, u"label.zpl"_s, u"-o"_s, u"OUT"_s} << QByteArray() << u"^PQ"_s
        << QList<QSize>{{400, 200}} << QByteArray();
    QTest::newRow("standard input, size unknown")
        << QStringList{u"--dpmm"_s, u"12"_s, u"-"_s, u"-o"_s, u"OUT"_s}
        << QByteArray("^XA^FO0,0^GB10,10,1^FS^XZ") << u"onbekend"_s << QList<QSize>{{34, 34}}
        << QByteArray();
    QTest::newRow("product caret warned")
        << QStringList{u"--product"_s, u"product.json"_s, u"label.zpl"_s, u"-o"_s, u"OUT"_s}
        << QByteArray() << u"^FH"_s << QList<QSize>{{400, 200}} << QByteArray();
    QTest::newRow("unreadable input")
        << QStringList{u"missing.zpl"_s, u"-o"_s, u"OUT"_s} << QByteArray() << u"missing.zpl"_s
        << QList<QSize>() << QByteArray();
    QTest::newRow("output directory missing")
        << QStringList{u"label.zpl"_s, u"-o"_s, u"no/such/dir/out.png"_s} << QByteArray()
        << u"no/such/dir/out.png"_s << QList<QSize>() << QByteArray();
    QTest::newRow("output is a directory")
        << QStringList{u"label.zpl"_s, u"-o"_s, u"out-is-a-dir.png"_s} << QByteArray()
        << u"out-is-a-dir.png"_s << QList<QSize>() << QByteArray();
    QTest::newRow("two labels, two pictures")
        << QStringList{u"-"_s, u"-o"_s, u"OUT"_s} << QByteArray("^XA^PW80^LL40^XZ^XA^PW40^LL80^XZ")
        << QString() << QList<QSize>{{80, 40}, {40, 80}} << QByteArray();
    QTest::newRow("second picture unwritable, first not kept")
        << QStringList{u"-"_s, u"-o"_s, u"out-2-is-a-dir.png"_s}
        << QByteArray("^XA^PW80^LL40^XZ^XA^PW40^LL80^XZ") << u"out-2-is-a-dir-2.png"_s
        << QList<QSize>() << QByteArray();
    QTest::newRow("second picture unwritable, earlier first kept")
        << QStringList{u"-"_s, u"-o"_s, u"out-2-is-a-dir.png"_s}
        << QByteArray("^XA^PW80^LL40^XZ^XA^PW40^LL80^XZ") << u"out-2-is-a-dir-2.png"_s
        << QList<QSize>() << QByteArray("earlier picture");
    QTest::newRow("earlier pictures replaced")
        << QStringList{u"-"_s, u"-o"_s, u"OUT"_s} << QByteArray("^XA^PW80^LL40^XZ") << QString()
        << QList<QSize>{{80, 40}} << QByteArray("earlier picture");
    QTest::newRow("unsupported resolution")
        << QStringList{u"--dpmm"_s, u"10"_s, u"label.zpl"_s, u"-o"_s, u"OUT"_s} << QByteArray()
        << u"--dpmm"_s << QList<QSize>() << QByteArray();
    QTest::newRow("a hundred pictures at most")
        << QStringList{u"-"_s, u"-o"_s, u"OUT"_s} << QByteArray("^XA^PW8^LL8^XZ").repeated(101)
        << u"Alleen de eerste 100 etiketten getoond."_s << QList<QSize>(100, QSize(8, 8))
        << QByteArray();
    QTest::newRow("input over 1 MiB")
        << QStringList{u"-"_s, u"-o"_s, u"OUT"_s} << QByteArray(1024 * 1024 + 1, ' ')
        << u"groter dan 1 MiB"_s << QList<QSize>() << QByteArray();
    QTest::newRow("product not JSON")
        << QStringList{u"--product"_s, u"broken.json"_s, u"label.zpl"_s, u"-o"_s, u"OUT"_s}
        << QByteArray() << u"broken.json"_s << QList<QSize>() << QByteArray();
}

void TestRenderLabelTool::run()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, input);
    QFETCH(QString, message);
    QFETCH(QList<QSize>, pictures);
    QFETCH(QByteArray, earlier);

    const QString out = m_dir->filePath(u"out.png"_s);
    arguments.replaceInStrings(QRegularExpression(u"^OUT$"_s), out);
    QFile first(QDir(m_dir->path()).filePath(arguments.value(arguments.indexOf(u"-o"_s) + 1)));
    if (!earlier.isEmpty())
        QVERIFY(first.open(QIODevice::WriteOnly) && first.write(earlier) == earlier.size());
    first.close();
    QProcess tool;
    tool.setWorkingDirectory(m_dir->path());
    tool.start(QStringLiteral(STAMPIX_RENDER_LABEL), arguments);
    QVERIFY(tool.waitForStarted());
    tool.write(input);
    tool.closeWriteChannel();
    QVERIFY(tool.waitForFinished(30'000));
    const QString errors = QString::fromUtf8(tool.readAllStandardError());
    QCOMPARE(tool.exitCode(), pictures.isEmpty() ? 1 : 0);
    QVERIFY2(errors.contains(message), qPrintable(errors));
    // Exactly the pictures, and nothing half-written beside them.
    QStringList written;
    for (qsizetype i = 0; i < pictures.size(); ++i) {
        written << (i == 0 ? u"out.png"_s : u"out-%1.png"_s.arg(i + 1));
        QCOMPARE(QImage(m_dir->filePath(written.last())).size(), pictures.at(i));
    }
    // An earlier output survives a failure byte for byte.
    if (pictures.isEmpty() && !earlier.isEmpty()) {
        QVERIFY(first.open(QIODevice::ReadOnly));
        QCOMPARE(first.readAll(), earlier);
        written << QFileInfo(first).fileName();
    }
    written.sort();
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files).filter(u"out"_s), written);
}

QTEST_GUILESS_MAIN(TestRenderLabelTool)
#include "tst_RenderLabelTool.moc"

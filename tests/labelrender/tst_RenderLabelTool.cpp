#include "TestHome.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestRenderLabelTool : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(TestHome::writeFile(m_dir->filePath(u"label.zpl"_s),
                                    "^XA^PW400^LL200^FO20,20^A0N,40^FD{{NAAM}}^FS^PQ2^XZ"));
        QVERIFY(TestHome::writeFile(m_dir->filePath(u"product.json"_s),
                                    R"({"ID": 5, "Name": "Zeep^Lavendel"})"));
    }

    void run_data()
    {
        QTest::addColumn<QStringList>("arguments"); // "OUT" stands for the output file
        QTest::addColumn<QByteArray>("input");      // standard input
        QTest::addColumn<QString>("message");       // part of standard error
        QTest::addColumn<QList<QSize>>("pictures"); // out.png, out-2.png, ...; none: a failure

        const auto add = [](const char* name, const QString& arguments, const QString& message,
                            const QList<QSize>& pictures, const QByteArray& input = {}) {
            QTest::newRow(name) << arguments.split(u' ') << input << message << pictures;
        };
        add("sample values", u"--sample label.zpl -o OUT"_s, u"^PQ"_s, {{400, 200}});
        add("standard input, size unknown", u"--dpmm 12 - -o OUT"_s, u"onbekend"_s, {{34, 34}},
            "^XA^FO0,0^GB10,10,1^FS^XZ");
        add("product caret warned", u"--product product.json label.zpl -o OUT"_s, u"^FH"_s,
            {{400, 200}});
        add("unreadable input", u"missing.zpl -o OUT"_s, u"missing.zpl"_s, {});
        add("unsupported resolution", u"--dpmm 10 label.zpl -o OUT"_s, u"--dpmm"_s, {});
        add("a hundred pictures at most", u"- -o OUT"_s,
            u"Alleen de eerste 100 etiketten getoond."_s, QList<QSize>(100, QSize(8, 8)),
            QByteArray("^XA^PW8^LL8^XZ").repeated(101));
        add("input over 1 MiB", u"- -o OUT"_s, u"groter dan 1 MiB"_s, {},
            QByteArray(1024 * 1024 + 1, ' '));
    }

    void run()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QByteArray, input);
        QFETCH(QString, message);
        QFETCH(QList<QSize>, pictures);

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
        QCOMPARE(tool.exitCode(), pictures.isEmpty() ? 1 : 0);
        QVERIFY2(errors.contains(message), qPrintable(errors));
        // Exactly the pictures, and nothing half-written beside them.
        QStringList written;
        for (qsizetype i = 0; i < pictures.size(); ++i) {
            written << (i == 0 ? u"out.png"_s : u"out-%1.png"_s.arg(i + 1));
            QCOMPARE(QImage(m_dir->filePath(written.last())).size(), pictures.at(i));
        }
        written.sort();
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files).filter(u"out"_s), written);
    }

private:
    std::unique_ptr<QTemporaryDir> m_dir;
};

QTEST_GUILESS_MAIN(TestRenderLabelTool)
#include "tst_RenderLabelTool.moc"

#include "FuzzEntries.h"

#include <QDir>
#include <QTest>

// Runs the seed corpus and every input that once broke something through the
// entry, built with the ordinary compiler; a broken property aborts the test.
// The regression folder exists only once something was found.
class FuzzReplayTest : public QObject
{
    Q_OBJECT

private slots:
    void replaysStoredInputs_data()
    {
        QTest::addColumn<QString>("path");
        for (const char* folder : {STAMPIX_FUZZ_CORPUS, STAMPIX_FUZZ_REGRESSIONS}) {
            const QDir dir(QString::fromUtf8(folder));
            for (const QString& name : dir.entryList(QDir::Files, QDir::Name))
                QTest::newRow(qPrintable(dir.dirName() + u'/' + name)) << dir.filePath(name);
        }
    }

    void replaysStoredInputs()
    {
        QFETCH(QString, path);
        QFile file(path);
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(path));
        const QByteArray bytes = file.readAll();
        STAMPIX_FUZZ_ENTRY(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                           static_cast<std::size_t>(bytes.size()));
    }

    void seedCorpusIsThere()
    {
        QVERIFY(QDir(QString::fromUtf8(STAMPIX_FUZZ_CORPUS)).entryList(QDir::Files).size() >= 3);
    }
};

#ifdef STAMPIX_FUZZ_GUI
QTEST_MAIN(FuzzReplayTest)
#else
QTEST_GUILESS_MAIN(FuzzReplayTest)
#endif
#include "FuzzReplayTest.moc"

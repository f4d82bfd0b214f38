#include "FuzzEntries.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

// Runs every stored input of one fuzz target through its entry with an
// ordinary compiler and no libFuzzer: the seed corpus and every input that
// once broke something. A broken property aborts the process, which fails the
// test. STAMPIX_FUZZ_ENTRY, STAMPIX_FUZZ_CORPUS and STAMPIX_FUZZ_REGRESSIONS
// come from CMake.
class FuzzReplayTest : public QObject
{
    Q_OBJECT

private slots:
    void seedCorpusIsThere();
    void replaysStoredInputs_data();
    void replaysStoredInputs();

private:
    static QStringList storedInputs(const QString& directory);
};

QStringList FuzzReplayTest::storedInputs(const QString& directory)
{
    QStringList paths;
    const QDir dir(directory);
    for (const QString& name : dir.entryList(QDir::Files, QDir::Name))
        paths.append(dir.filePath(name));
    return paths;
}

void FuzzReplayTest::seedCorpusIsThere()
{
    QVERIFY2(storedInputs(QStringLiteral(STAMPIX_FUZZ_CORPUS)).size() >= 3, STAMPIX_FUZZ_CORPUS);
}

void FuzzReplayTest::replaysStoredInputs_data()
{
    QTest::addColumn<QString>("path");
    // The regression folder exists only once something has been found.
    for (const QString& directory :
         {QStringLiteral(STAMPIX_FUZZ_CORPUS), QStringLiteral(STAMPIX_FUZZ_REGRESSIONS)}) {
        // "corpus/<file>" or "regressions/<file>".
        const QString kind = QFileInfo(directory).dir().dirName();
        for (const QString& path : storedInputs(directory))
            QTest::newRow(qPrintable(kind + u'/' + QFileInfo(path).fileName())) << path;
    }
}

void FuzzReplayTest::replaysStoredInputs()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(path));
    const QByteArray bytes = file.readAll();
    const int result = STAMPIX_FUZZ_ENTRY(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                          static_cast<std::size_t>(bytes.size()));
    QCOMPARE(result, 0);
}

QTEST_GUILESS_MAIN(FuzzReplayTest)
#include "FuzzReplayTest.moc"

#include "TestHome.h"
#include "model/AppSettings.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// What the save loop writes for one sequence number (the book year carries it
// too); each number gives another length, so a torn or mixed file shows.
QList<Dossier> dossiersFor(qint64 sequence)
{
    return {{QUuid::createUuidV5(QUuid(), QString::number(sequence)), u"Dossier"_s,
             QString(static_cast<int>(sequence % 13) * 40, u'k')}};
}

// The process the test kills: it keeps saving, printing each sequence number
// once it is saved, and goes on from the number on disk.
int saveLoop()
{
    AppSettings settings;
    settings.savePendingChanges();
    for (qint64 sequence = settings.bookyear().toLongLong() + 1;; ++sequence) {
        settings.setDossiers(dossiersFor(sequence));
        settings.setBookyear(QString::number(sequence));
        settings.savePendingChanges();
        std::printf("%lld\n", static_cast<long long>(sequence));
        std::fflush(stdout);
    }
}

} // namespace

// A store killed at any moment leaves the file of the last save reported, or of
// the one after it, whole. STAMPIX_CRASH_KILLS asks for more than 5 kills.
class SettingsCrashSafetyTest : public QObject
{
    Q_OBJECT

private slots:
    void killedWhileSavingLeavesACompleteFile()
    {
        const int kills = qMax(5, qEnvironmentVariableIntValue("STAMPIX_CRASH_KILLS"));
        TestHome home;
        QProcess loop;
        const quint32 seed = QRandomGenerator::global()->generate();
        qInfo("random seed %u", seed);
        QRandomGenerator random(seed);

        // Slow builds (sanitizers) reach their first save later: the kill window follows.
        QElapsedTimer started;
        started.start();
        loop.start(QCoreApplication::applicationFilePath(), {u"--save-loop"_s});
        QVERIFY(loop.waitForReadyRead(10000));
        const int firstSaveMs = int(started.elapsed());
        qint64 onDisk = -1;
        for (int kill = 0; kill < kills; ++kill) {
            if (kill > 0) {
                loop.start(QCoreApplication::applicationFilePath(), {u"--save-loop"_s});
                QVERIFY(loop.waitForStarted(5000));
                // A random moment: sometimes before the loop has saved at all.
                QTest::qWait(random.bounded(firstSaveMs + 120));
            }
            loop.kill(); // SIGKILL
            QVERIFY(loop.waitForFinished(5000));
            const QList<QByteArray> lines = loop.readAllStandardOutput().trimmed().split('\n');
            const qint64 reported = lines.last().isEmpty() ? onDisk : lines.last().toLongLong();
            QString error;
            const std::optional<SettingsData> data =
                SettingsData::read(home.readSettingsFile(), &error);
            QVERIFY2(data, qPrintable(u"after kill %1: %2"_s.arg(kill).arg(error)));
            const qint64 found = data->bookyear.toLongLong();
            // The save after the last one reported may have landed just before the kill.
            QVERIFY2(found == reported || found == reported + 1,
                     qPrintable(u"reported %1, found %2"_s.arg(reported).arg(found)));
            QVERIFY2(data->dossiers == dossiersFor(found),
                     "the file is not its sequence's document");
            onDisk = found;
        }
        // Only a killed save's temporary file may lie beside it, the owner's only.
        const QDir directory(home.settingsDirectory());
        for (const QString& name : directory.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
            QVERIFY2(name == u"settings.json" ||
                         QRegularExpression(u"^settings\\.json\\.\\w{6}$"_s).match(name).hasMatch(),
                     qPrintable(name));
            QCOMPARE(int(QFile::permissions(directory.filePath(name))) & 0x0077, 0); // group, other
        }
    }
};

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    if (application.arguments().contains(u"--save-loop"_s))
        return saveLoop();
    SettingsCrashSafetyTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_SettingsCrashSafety.moc"

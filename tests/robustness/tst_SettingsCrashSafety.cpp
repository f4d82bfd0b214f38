#include "SaveLoopContent.h"
#include "TestHome.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

// A settings store killed at any moment leaves a complete settings file: the
// one of the last save reported, or of the one after it. STAMPIX_CRASH_KILLS
// asks for more than the 5 kills of the suite.
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

        // Slow builds (sanitizers) take longer to their first save: the kill
        // window moves along, or the kills would land before any save.
        QElapsedTimer started;
        started.start();
        loop.start(QStringLiteral(STAMPIX_SAVE_LOOP));
        QVERIFY(loop.waitForReadyRead(10000));
        const int firstSaveMs = int(started.elapsed());
        qint64 onDisk = -1;
        for (int kill = 0; kill < kills; ++kill) {
            if (kill > 0) {
                loop.start(QStringLiteral(STAMPIX_SAVE_LOOP));
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
            QVERIFY2(saveloop::matches(*data, found), "the file is not its sequence's document");
            onDisk = found;
        }
        // A save killed before its rename leaves its temporary file, which must be
        // the owner's only; nothing was kept aside as unreadable.
        const QDir directory(home.settingsDirectory());
        for (const QString& name : directory.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
            QVERIFY2(name == u"settings.json" ||
                         QRegularExpression(u"^settings\\.json\\.\\w{6}$"_s).match(name).hasMatch(),
                     qPrintable(name));
            QCOMPARE(int(QFile::permissions(directory.filePath(name))) & 0x0077, 0); // group, other
        }
    }
};

QTEST_GUILESS_MAIN(SettingsCrashSafetyTest)
#include "tst_SettingsCrashSafety.moc"

#include "SaveLoopContent.h"
#include "StdoutCapture.h"
#include "TestHome.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

constexpr QFileDevice::Permissions kOthersOrGroup =
    QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ExeGroup |
    QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;

QStringList keptFiles(const QString& directory)
{
    return QDir(directory).entryList({u"settings.json.unreadable-*"_s}, QDir::Files | QDir::System);
}

// The last complete line the save loop printed, or `fallback`.
qint64 lastReported(const QByteArray& output, qint64 fallback)
{
    const qsizetype end = output.lastIndexOf('\n');
    if (end < 0)
        return fallback;
    const qsizetype start = output.lastIndexOf('\n', end - 1) + 1;
    bool ok = false;
    const qint64 value = output.mid(start, end - start).toLongLong(&ok);
    return ok ? value : fallback;
}

} // namespace

// A settings store killed at any moment leaves a complete settings file: the
// one before the save under way, or the one after it. Files that cannot be
// read are moved aside, never overwritten.
class SettingsCrashSafetyTest : public QObject
{
    Q_OBJECT

private slots:
    void killedWhileSavingLeavesACompleteFile();
    void truncatedFileIsKeptAside();
    void unreadableFilesInQuickSuccessionAreAllKept();
};

void SettingsCrashSafetyTest::killedWhileSavingLeavesACompleteFile()
{
    constexpr int kKills = 30;
    constexpr qint64 kBudgetMs = 25000;
    TestHome home;
    QVERIFY(home.isValid());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, home.path());
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("random seed %u", seed);
    QRandomGenerator random(seed);

    const auto startLoop = [&environment](QProcess& process, const QStringList& arguments) {
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(STAMPIX_SAVE_LOOP), arguments);
        return process.waitForStarted(5000);
    };
    {
        QProcess init;
        QVERIFY(startLoop(init, {u"--init"_s}));
        QVERIFY(init.waitForFinished(10000));
        QCOMPARE(init.exitCode(), 0);
    }

    // How long a loop takes to report its first save; slow builds (sanitizers)
    // need the kill window moved along, or the kills land before any save.
    qint64 firstSaveMs = 0;
    {
        QProcess probe;
        QElapsedTimer started;
        started.start();
        QVERIFY(startLoop(probe, {}));
        QVERIFY(probe.waitForReadyRead(10000));
        firstSaveMs = started.elapsed();
        probe.kill();
        QVERIFY(probe.waitForFinished(5000));
    }
    qInfo("first save reported after %lld ms", static_cast<long long>(firstSaveMs));
    QString probeError;
    const std::optional<SettingsData> probed =
        SettingsData::read(home.readSettingsFile(), &probeError);
    QVERIFY2(probed, qPrintable(probeError));

    QElapsedTimer clock;
    clock.start();
    qint64 onDisk = probed->bookyear.toLongLong();
    qint64 saves = 0;
    int kills = 0;
    for (; kills < kKills && clock.elapsed() < kBudgetMs; ++kills) {
        QProcess loop;
        QVERIFY(startLoop(loop, {}));
        // Kill at a random moment: sometimes before the loop has saved at all.
        const int delayMs = random.bounded(0, int(firstSaveMs) + 120);
        QTest::qWait(delayMs);
        loop.kill(); // SIGKILL
        QVERIFY(loop.waitForFinished(5000));
        QCOMPARE(loop.exitStatus(), QProcess::CrashExit);

        const qint64 reported = lastReported(loop.readAllStandardOutput(), onDisk);
        QString error;
        const std::optional<SettingsData> data =
            SettingsData::read(home.readSettingsFile(), &error);
        QVERIFY2(data, qPrintable(u"kill %1 after %2 ms: %3"_s.arg(kills).arg(delayMs).arg(error)));
        const qint64 found = data->bookyear.toLongLong();
        // The save after the last one reported may have landed just before the kill.
        QVERIFY2(found == reported || found == reported + 1,
                 qPrintable(u"reported %1, found %2"_s.arg(reported).arg(found)));
        QVERIFY2(saveloop::matches(*data, found),
                 qPrintable(u"file of sequence %1 is not that sequence's document"_s.arg(found)));
        saves += found - onDisk;
        onDisk = found;
    }
    qInfo("%d kills, %lld saves in %lld ms", kills, saves, static_cast<long long>(clock.elapsed()));
    QCOMPARE(kills, kKills);
    QVERIFY2(saves > kKills, "the kills should land while the loop is saving");
    QVERIFY(keptFiles(home.settingsDirectory()).isEmpty());
    // A save killed between writing its temporary file and the rename leaves
    // that file behind. It may hold API keys, so it must be the owner's only.
    QStringList left =
        QDir(home.settingsDirectory()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    QVERIFY(left.removeOne(u"settings.json"_s));
    qInfo("temporary files left by killed saves: %lld", static_cast<long long>(left.size()));
    QVERIFY(left.size() <= kills);
    for (const QString& name : std::as_const(left)) {
        QVERIFY2(name.startsWith(u"settings.json."_s), qPrintable(name));
        const QFileInfo info(home.settingsDirectory() + u'/' + name);
        QCOMPARE(info.permissions() & kOthersOrGroup, QFileDevice::Permissions());
    }
}

void SettingsCrashSafetyTest::truncatedFileIsKeptAside()
{
    // What a save that writes in place would leave when cut off halfway.
    TestHome home;
    {
        AppSettings settings;
        saveloop::apply(settings, 4);
        settings.savePendingChanges();
    }
    const QByteArray whole = home.readSettingsFile();
    const QByteArray half = whole.left(whole.size() / 2);
    QVERIFY(home.writeSettingsFile(half));

    StdoutCapture output;
    AppSettings settings;
    settings.savePendingChanges();
    QVERIFY2(output.text().startsWith(u"Failed to load settings: "_s), qPrintable(output.text()));

    const QStringList kept = keptFiles(home.settingsDirectory());
    QCOMPARE(kept.size(), 1);
    QFile keptFile(home.settingsDirectory() + u'/' + kept.at(0));
    QVERIFY(keptFile.open(QIODevice::ReadOnly));
    QCOMPARE(keptFile.readAll(), half);
    QCOMPARE(settings.dossiers(), QList<Dossier>{Dossier::defaultDossier()});
    QVERIFY(SettingsData::read(home.readSettingsFile(), nullptr));
}

void SettingsCrashSafetyTest::unreadableFilesInQuickSuccessionAreAllKept()
{
    // Names carry the time to the second; starts within one second must not
    // make a later file take the place of an earlier one.
    TestHome home;
    const QList<QByteArray> contents{"first: not JSON", "[\"second\", \"array\"]", ""};
    for (const QByteArray& content : contents) {
        QVERIFY(home.writeSettingsFile(content));
        StdoutCapture output;
        AppSettings settings;
        settings.savePendingChanges();
    }
    const QStringList kept = keptFiles(home.settingsDirectory());
    QCOMPARE(kept.size(), contents.size());
    QList<QByteArray> keptContents;
    for (const QString& name : kept) {
        QFile file(home.settingsDirectory() + u'/' + name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        keptContents.append(file.readAll());
    }
    for (const QByteArray& content : contents)
        QVERIFY2(keptContents.contains(content), content.constData());
}

QTEST_GUILESS_MAIN(SettingsCrashSafetyTest)
#include "SettingsCrashSafetyTest.moc"

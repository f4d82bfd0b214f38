#include "StdoutCapture.h"
#include "TestHome.h"
#include "model/AppSettings.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr QFileDevice::Permissions kOwnerReadWrite =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner;

// Owner, group and other; the "User" bits only mirror the owner's.
int unixBits(const QString& path)
{
    return int(QFile::permissions(path)) & 0x7077;
}

QString savedLog(AppSettings& settings)
{
    StdoutCapture output;
    settings.savePendingChanges();
    return output.text();
}

} // namespace

class TestAppSettings : public QObject
{
    Q_OBJECT

private slots:
    void startSavesTheDefaultsAfterTheDelay_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("first start") << QByteArray();
        QTest::newRow("empty lists, stale selection") << QByteArray(
            R"({"dossiers": [], "templates": [], "selectedDossierID": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4AFF"})");
    }

    void startSavesTheDefaultsAfterTheDelay()
    {
        QFETCH(QByteArray, content);
        TestHome home;
        QVERIFY(content.isEmpty() || home.writeSettingsFile(content));
        AppSettings settings;
        QCOMPARE(home.readSettingsFile(), content);
        QTRY_VERIFY_WITH_TIMEOUT(!settings.isSavePending(), 5000);
        SettingsData expected = *SettingsData::read("{}", nullptr); // the year, the template
        expected.dossiers = {Dossier::defaultDossier()};
        expected.selectedDossierID = Dossier::defaultDossier().id;
        expected.selectedTemplateID = LabelTemplate::defaultTemplate().id;
        QCOMPARE(home.readSettingsFile(), expected.write());
    }

    void burstOfChangesIsWrittenOnceAfterTheLast()
    {
        TestHome home;
        AppSettings settings;
        settings.savePendingChanges();
        const QByteArray before = home.readSettingsFile();
        // Two changes 0.3 s apart: 0.6 s after the first, the write still waits.
        QElapsedTimer sinceFirstChange;
        sinceFirstChange.start();
        settings.setColumnWidthName(301);
        QTest::qWait(300);
        settings.setColumnWidthName(302);
        QTest::qWait(300);
        if (sinceFirstChange.elapsed() >= 300 + AppSettings::kSaveDelayMs)
            QSKIP("the machine was too busy to keep the changes 0.3 s apart");
        QCOMPARE(home.readSettingsFile(), before);
        QTRY_VERIFY_WITH_TIMEOUT(home.readSettingsFile() != before, 5000);
        QCOMPARE(SettingsData::read(home.readSettingsFile(), nullptr)->columnWidthName, 302.0);
    }

    void addingAndDeletingMovesTheSelectionAndUnbindsTemplates()
    {
        TestHome home;
        AppSettings settings;
        settings.savePendingChanges();
        // The only dossier or template stays, and no save follows.
        settings.deleteDossier(settings.dossiers().at(0));
        settings.deleteTemplate(settings.templates().at(0));
        QVERIFY(!settings.isSavePending());
        QCOMPARE(settings.dossiers().size() + settings.templates().size(), 2);

        settings.addDossier();
        const Dossier added = settings.dossiers().at(1);
        QCOMPARE(added.name, u"Nieuw Dossier"_s);
        QCOMPARE(settings.selectedDossierID(), added.id);
        QVERIFY(!settings.isConfigured());
        QVERIFY(settings.updateDossier(1, [](Dossier& dossier) { dossier.apiKey = u"k"_s; }));
        QVERIFY(settings.isConfigured());
        // The selected dossier, even given as an edited copy, hands the selection on.
        settings.addDossier();
        settings.setSelectedDossierID(added.id);
        settings.deleteDossier(settings.dossiers().at(2));
        QCOMPARE(settings.selectedDossierID(), added.id);
        Dossier editedCopy = added;
        editedCopy.name = u"Anders"_s;
        settings.deleteDossier(editedCopy);
        QCOMPARE(settings.dossiers(), QList<Dossier>{Dossier::defaultDossier()});
        QCOMPARE(settings.selectedDossierID(), Dossier::defaultDossier().id);

        settings.addTemplate();
        QCOMPARE(settings.templates().at(1).name, u"Nieuw Etiket"_s);
        QCOMPARE(settings.selectedTemplateID(), settings.templates().at(1).id);
        settings.deleteTemplate(settings.templates().at(1));
        QCOMPARE(settings.selectedTemplateID(), LabelTemplate::defaultTemplate().id);

        // A deleted printer's templates lose their printer.
        settings.addPrinter();
        settings.addPrinter();
        QCOMPARE(settings.printers().at(0).name, u"Nieuwe Printer"_s);
        QCOMPARE(settings.printers().at(0).port, 9100);
        const Printer removed = settings.printers().at(0);
        const Printer kept = settings.printers().at(1);
        settings.updatePrinter(0, [](Printer& printer) { printer.ipAddress = u"10.0.0.1"_s; });
        settings.addTemplate();
        settings.addTemplate();
        settings.setSelectedTemplateID(QUuid::createUuid()); // reads as the first
        const QList<QUuid> boundTo{removed.id, kept.id, removed.id};
        for (int i = 0; i < 3; ++i)
            settings.updateTemplate(i, [&](LabelTemplate& t) { t.printerID = boundTo.at(i); });
        QVERIFY(settings.isPrinterConfigured());
        settings.deletePrinter(removed);
        QCOMPARE(settings.printers(), QList<Printer>{kept});
        QVERIFY(!settings.templates().at(0).printerID && !settings.templates().at(2).printerID);
        QCOMPARE(settings.templates().at(1).printerID, kept.id);
        QVERIFY(!settings.isPrinterConfigured());
    }

    void oldFlatLayoutMigrates()
    {
        TestHome home;
        QVERIFY(home.writeSettingsFile(
            R"({"apiKey": "oude-sleutel", "printerIP": "192.168.1.50", "printerPort": 6101})"));
        AppSettings settings;
        const QUuid dossierID = settings.dossiers().value(0).id;
        const QUuid printerID = settings.printers().value(0).id;
        QCOMPARE(settings.dossiers(),
                 (QList<Dossier>{{dossierID, u"Gemigreerd Dossier"_s, u"oude-sleutel"_s}}));
        QCOMPARE(settings.printers(),
                 (QList<Printer>{{printerID, u"Gemigreerde Printer"_s, u"192.168.1.50"_s, 6101}}));
        QCOMPARE(settings.selectedDossierID(), dossierID);
        QCOMPARE(settings.templates().at(0).id, LabelTemplate::defaultTemplate().id);
        QCOMPARE(settings.templates().at(0).printerID, printerID);

        // Values of the old layout only fill empty lists.
        QVERIFY(home.writeSettingsFile(R"({"apiKey": "oud", "printerIP": "192.168.1.50",
        "dossiers": [{"apiKey": "", "id": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A01", "name": "A"}],
        "templates": [{"id": "8E3F4C80-A165-4F47-901D-3FAF7F516C01", "name": "T", "zplContent": "",
                       "printerID": "7D2E3B7F-9054-4E36-8F1C-2F9E6E405BFF"}]})"));
        AppSettings again;
        QCOMPARE(again.dossiers().at(0).name, u"A"_s);
        QCOMPARE(again.dossiers().size() + again.printers().size(), 2);
        QCOMPARE(again.printers().at(0).port, 9100);
        // A template that names a printer keeps it, even one that does not exist.
        QCOMPARE(again.templates().at(0).printerID,
                 QUuid::fromString(u"7D2E3B7F-9054-4E36-8F1C-2F9E6E405BFF"));
    }

    void unreadableFileIsKeptAside_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("readable");
        QTest::addColumn<int>("starts");
        // What a save that writes in place would leave when cut off halfway.
        QTest::newRow("truncated") << QByteArray("{\"dossiers\": [{\"apiK") << true << 1;
        QTest::newRow("no access") << QByteArray("{}") << false << 1;
        // Names carry the time to the second; no later file may take an earlier one's place.
        QTest::newRow("three starts within a second") << QByteArray("[]") << true << 3;
    }

    void unreadableFileIsKeptAside()
    {
        QFETCH(QByteArray, content);
        QFETCH(bool, readable);
        QFETCH(int, starts);
        if (!readable && ::geteuid() == 0)
            QSKIP("file permissions do not stop the superuser");
        TestHome home;
        for (int start = 0; start < starts; ++start) {
            QVERIFY(home.writeSettingsFile(content));
            QVERIFY(readable || QFile::setPermissions(home.settingsFilePath(), {}));
            StdoutCapture output;
            AppSettings settings;
            const QString log = output.text();
            QVERIFY2(log.startsWith(u"Failed to load settings: "_s) && log.count(u'\n') == 1,
                     qPrintable(log));
            QCOMPARE(settings.dossiers(), QList<Dossier>{Dossier::defaultDossier()});
            settings.savePendingChanges();
            QVERIFY(SettingsData::read(home.readSettingsFile(), nullptr));
        }
        const QDir directory(home.settingsDirectory());
        const QStringList kept =
            directory.entryList({u"settings.json.unreadable-*"_s}, QDir::Files | QDir::System);
        QCOMPARE(kept.size(), starts);
        static const QRegularExpression kName(
            u"^settings\\.json\\.unreadable-\\d{8}-\\d{6}(-\\d)?$"_s);
        for (const QString& name : kept) {
            QVERIFY2(kName.match(name).hasMatch(), qPrintable(name));
            QFile::setPermissions(directory.filePath(name), kOwnerReadWrite);
            QCOMPARE(TestHome::readFile(directory.filePath(name)), content);
        }
    }

    void failedSaveIsReportedUntilASaveSucceeds()
    {
        TestHome home;
        AppSettings settings;
        settings.savePendingChanges();
        QVERIFY(TestHome::blockFile(home.settingsFilePath()));
        settings.setBookyear(u"2032"_s);
        const QString log = savedLog(settings);
        QVERIFY(!settings.saveError().isEmpty());
        QCOMPARE(log, u"Failed to save settings: "_s + settings.saveError() + u'\n');

        QVERIFY(TestHome::unblockFile(home.settingsFilePath()));
        settings.setBookyear(u"2033"_s);
        QCOMPARE(savedLog(settings), QString());
        QCOMPARE(settings.saveError(), QString());
        QVERIFY(home.readSettingsFile().contains("\"2033\""));
    }

    // An export holds every API key too; a directory left open by hand or by an
    // earlier version is closed at start. Even with a permissive umask, nothing
    // is readable by others.
    void filesAreOwnerOnly()
    {
        const mode_t previousUmask = ::umask(0);
        TestHome home;
        QVERIFY(QDir().mkdir(home.settingsDirectory(), QFileDevice::Permissions(0x7777)));
        QCOMPARE(unixBits(home.settingsDirectory()), 0x7077);
        const QString exported = home.path() + u"/stampix-settings.json"_s;
        QVERIFY(TestHome::writeFile(exported, "{}")); // readable by all, as the umask allows
        AppSettings settings;
        settings.savePendingChanges();
        QCOMPARE(settings.exportSettings(exported), std::nullopt);
        ::umask(previousUmask);
        for (const QString& file : {home.settingsFilePath(), exported}) {
            QVERIFY(SettingsData::read(TestHome::readFile(file), nullptr));
            QCOMPARE(unixBits(file), int(kOwnerReadWrite));
        }
        QCOMPARE(unixBits(home.settingsDirectory()), int(kOwnerReadWrite | QFileDevice::ExeOwner));
    }
};

QTEST_GUILESS_MAIN(TestAppSettings)
#include "tst_AppSettings.moc"

#include "SettingsSignalRecorder.h"
#include "TestHome.h"
#include "model/AppSettings.h"

#include <QDate>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(bytes) == bytes.size();
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A configuration that differs from the defaults in every property.
void configure(AppSettings& settings)
{
    settings.setBookyear(u"2021"_s);
    settings.updateDossier(0, [](Dossier& dossier) { dossier.apiKey = u"k1"_s; });
    settings.addDossier();
    settings.addPrinter();
    settings.addPrinter();
    settings.updatePrinter(1, [](Printer& printer) {
        printer.ipAddress = u"10.0.0.7"_s;
        printer.port = 6101;
    });
    const QUuid printerID = settings.printers().at(1).id;
    settings.addTemplate();
    settings.updateTemplate(1, [printerID](LabelTemplate& t) { t.printerID = printerID; });
    settings.setSelectedDossierID(settings.dossiers().at(0).id);
    settings.setSettingsWindowWidth(1300.5);
    settings.setSettingsWindowHeight(720);
    settings.setColumnWidthCheckbox(32);
    settings.setColumnWidthSKU(125.25);
    settings.setColumnWidthName(310);
    settings.setColumnWidthPrice(105);
    settings.setColumnWidthBarcode(135);
}

void compareAll(const AppSettings& actual, const AppSettings& expected)
{
    QCOMPARE(actual.bookyear(), expected.bookyear());
    QCOMPARE(actual.dossiers(), expected.dossiers());
    QCOMPARE(actual.selectedDossierID(), expected.selectedDossierID());
    QCOMPARE(actual.printers(), expected.printers());
    QCOMPARE(actual.templates(), expected.templates());
    QCOMPARE(actual.selectedTemplateID(), expected.selectedTemplateID());
    QCOMPARE(actual.settingsWindowWidth(), expected.settingsWindowWidth());
    QCOMPARE(actual.settingsWindowHeight(), expected.settingsWindowHeight());
    QCOMPARE(actual.columnWidthCheckbox(), expected.columnWidthCheckbox());
    QCOMPARE(actual.columnWidthSKU(), expected.columnWidthSKU());
    QCOMPARE(actual.columnWidthName(), expected.columnWidthName());
    QCOMPARE(actual.columnWidthPrice(), expected.columnWidthPrice());
    QCOMPARE(actual.columnWidthBarcode(), expected.columnWidthBarcode());
}

} // namespace

class TestSettingsImportExport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void exportThenImportRestoresEverything();
    void importAssignsEveryPropertyInOrder();
    void importOfEmptyListsGivesSelectedDefaults();
    void importNeverMigrates();
    void importRepairsSelections();
    void failedImportChangesNothing_data();
    void failedImportChangesNothing();
    void failedExportIsReported();

private:
    QTemporaryDir m_files;
};

void TestSettingsImportExport::init()
{
    QVERIFY(m_files.isValid());
}

void TestSettingsImportExport::exportThenImportRestoresEverything()
{
    const QString exported = m_files.filePath(u"stampix-settings.json"_s);
    QVERIFY(writeFile(exported, "an older export, replaced"));

    TestHome sourceHome;
    AppSettings source;
    configure(source);
    QCOMPARE(source.exportSettings(exported), std::nullopt);
    // The export is the settings document itself, as the store saves it.
    source.savePendingChanges();
    QCOMPARE(readFile(exported), sourceHome.readSettingsFile());

    TestHome targetHome;
    AppSettings target;
    QCOMPARE(target.importSettings(exported), std::nullopt);
    compareAll(target, source);
    QTRY_VERIFY_WITH_TIMEOUT(!target.isSavePending(), 5000);
    QCOMPARE(targetHome.readSettingsFile(), readFile(exported));
}

void TestSettingsImportExport::importAssignsEveryPropertyInOrder()
{
    TestHome home;
    const QString file = m_files.filePath(u"full.json"_s);
    {
        AppSettings source;
        configure(source);
        QCOMPARE(source.exportSettings(file), std::nullopt);
    }
    AppSettings settings;
    SettingsSignalRecorder recorder(settings);
    QCOMPARE(settings.importSettings(file), std::nullopt);
    QCOMPARE(recorder.changed(),
             (QStringList{u"bookyear"_s, u"dossiers"_s, u"selectedDossierID"_s, u"printers"_s,
                          u"templates"_s, u"selectedTemplateID"_s, u"settingsWindowWidth"_s,
                          u"settingsWindowHeight"_s, u"columnWidthCheckbox"_s, u"columnWidthSKU"_s,
                          u"columnWidthName"_s, u"columnWidthPrice"_s, u"columnWidthBarcode"_s}));
    QVERIFY(settings.isSavePending());
}

void TestSettingsImportExport::importOfEmptyListsGivesSelectedDefaults()
{
    TestHome home;
    AppSettings settings;
    configure(settings);
    const QString file = m_files.filePath(u"empty-lists.json"_s);
    QVERIFY(writeFile(file, R"({"dossiers": [], "templates": [], "printers": [
        {"id": "7D2E3B7F-9054-4E36-8F1C-2F9E6E405B01", "ipAddress": "10.0.0.8", "name": "P", "port": 9100}]})"));

    QCOMPARE(settings.importSettings(file), std::nullopt);
    QCOMPARE(settings.dossiers(), QList<Dossier>{Dossier::defaultDossier()});
    QCOMPARE(settings.selectedDossierID(), Dossier::defaultDossier().id);
    QCOMPARE(settings.templates(), QList<LabelTemplate>{LabelTemplate::defaultTemplate()});
    QCOMPARE(settings.selectedTemplateID(), LabelTemplate::defaultTemplate().id);
    QCOMPARE(settings.printers().size(), 1);
    QCOMPARE(settings.printers().at(0).ipAddress, u"10.0.0.8"_s);
    // Keys the file lacks take their defaults, not the old values.
    QCOMPARE(settings.bookyear(), QString::number(QDate::currentDate().year()));
    QCOMPARE(settings.settingsWindowWidth(), 1100.0);
    QCOMPARE(settings.columnWidthSKU(), 120.0);
}

void TestSettingsImportExport::importNeverMigrates()
{
    TestHome home;
    AppSettings settings;
    configure(settings);
    const QString file = m_files.filePath(u"flat.json"_s);
    QVERIFY(
        writeFile(file, R"({"apiKey": "oud", "printerIP": "192.168.1.50", "printerPort": 6101})"));

    QCOMPARE(settings.importSettings(file), std::nullopt);
    QCOMPARE(settings.dossiers(), QList<Dossier>{Dossier::defaultDossier()});
    QVERIFY(settings.printers().isEmpty());
    QCOMPARE(settings.templates(), QList<LabelTemplate>{LabelTemplate::defaultTemplate()});
    QVERIFY(!settings.isConfigured());
}

void TestSettingsImportExport::importRepairsSelections()
{
    TestHome home;
    AppSettings settings;
    const QString file = m_files.filePath(u"stale-selection.json"_s);
    QVERIFY(writeFile(file, R"({
        "dossiers": [{"apiKey": "", "id": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A01", "name": "A"},
                     {"apiKey": "", "id": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A02", "name": "B"}],
        "selectedDossierID": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4AFF",
        "templates": [{"id": "8E3F4C80-A165-4F47-901D-3FAF7F516C01", "name": "T", "zplContent": ""}]})"));

    QCOMPARE(settings.importSettings(file), std::nullopt);
    QCOMPARE(settings.selectedDossierID(),
             QUuid::fromString(u"6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A01"));
    QCOMPARE(settings.selectedTemplateID(),
             QUuid::fromString(u"8E3F4C80-A165-4F47-901D-3FAF7F516C01"));
}

void TestSettingsImportExport::failedImportChangesNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("fileExists");
    QTest::newRow("not JSON") << QByteArray("Dit is geen JSON.") << true;
    QTest::newRow("zero bytes") << QByteArray() << true;
    QTest::newRow("wrong type") << QByteArray(
                                       R"({"bookyear": "2020", "settingsWindowWidth": "breed"})")
                                << true;
    QTest::newRow("bad record")
        << QByteArray(R"({"printers": [{"id": "x", "name": "P", "ipAddress": "", "port": 9100}]})")
        << true;
    QTest::newRow("missing file") << QByteArray() << false;
}

void TestSettingsImportExport::failedImportChangesNothing()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, fileExists);
    TestHome home;
    const QString file = m_files.filePath(u"import.json"_s);
    QFile::remove(file);
    if (fileExists)
        QVERIFY(writeFile(file, content));

    AppSettings reference;
    configure(reference);
    AppSettings settings;
    configure(settings);
    // Both stores hold the same configuration, ids included.
    settings.setDossiers(reference.dossiers());
    settings.setPrinters(reference.printers());
    settings.setTemplates(reference.templates());
    settings.setSelectedDossierID(reference.selectedDossierID());
    settings.setSelectedTemplateID(reference.selectedTemplateID());
    settings.savePendingChanges();
    reference.savePendingChanges();
    SettingsSignalRecorder recorder(settings);

    const std::optional<QString> error = settings.importSettings(file);
    QVERIFY(error);
    QVERIFY(!error->isEmpty());
    QVERIFY2(recorder.changed().isEmpty(), qPrintable(recorder.changed().join(u',')));
    QVERIFY(!settings.isSavePending());
    compareAll(settings, reference);
}

void TestSettingsImportExport::failedExportIsReported()
{
    TestHome home;
    AppSettings settings;
    const QString target = m_files.filePath(u"no-such-directory/stampix-settings.json"_s);
    const std::optional<QString> error = settings.exportSettings(target);
    QVERIFY(error);
    QVERIFY(!error->isEmpty());
    QVERIFY(!QFile::exists(target));
}

QTEST_GUILESS_MAIN(TestSettingsImportExport)
#include "TestSettingsImportExport.moc"

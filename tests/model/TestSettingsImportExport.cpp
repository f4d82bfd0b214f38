#include "SettingsSignalRecorder.h"
#include "TestHome.h"
#include "model/AppSettings.h"
#include "model/SettingsFileDialogs.h"
#include "model/SettingsFileHelper.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Style = SettingsFileDialogs::MessageStyle;

// Answers the file dialogs with a prepared path (or a cancel) and records
// everything the helper asked for and showed.
class ScriptedDialogs : public SettingsFileDialogs
{
public:
    std::optional<QString> chosenPath;
    QList<FileRequest> saveRequests;
    QList<FileRequest> openRequests;
    QList<Message> messages;

    std::optional<QString> askSaveLocation(const FileRequest& request) override
    {
        saveRequests.append(request);
        return chosenPath;
    }
    std::optional<QString> askOpenFile(const FileRequest& request) override
    {
        openRequests.append(request);
        return chosenPath;
    }
    void showMessage(const Message& message) override { messages.append(message); }

    void reset(std::optional<QString> path = {})
    {
        chosenPath = std::move(path);
        saveRequests.clear();
        openRequests.clear();
        messages.clear();
    }
};

// Everything the store publishes; the written form compares every field.
QByteArray snapshot(const AppSettings& settings)
{
    SettingsData data;
    data.bookyear = settings.bookyear();
    data.dossiers = settings.dossiers();
    data.selectedDossierID = settings.selectedDossierID();
    data.printers = settings.printers();
    data.templates = settings.templates();
    data.selectedTemplateID = settings.selectedTemplateID();
    data.settingsWindowWidth = settings.settingsWindowWidth();
    data.settingsWindowHeight = settings.settingsWindowHeight();
    data.columnWidthCheckbox = settings.columnWidthCheckbox();
    data.columnWidthSKU = settings.columnWidthSKU();
    data.columnWidthName = settings.columnWidthName();
    data.columnWidthPrice = settings.columnWidthPrice();
    data.columnWidthBarcode = settings.columnWidthBarcode();
    return data.write();
}

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
    settings.addDossier();
    settings.updateDossier(1, [](Dossier& dossier) { dossier.apiKey = u"k1"_s; });
    settings.addPrinter();
    settings.addPrinter();
    settings.updatePrinter(1, [](Printer& printer) {
        printer.ipAddress = u"10.0.0.7"_s;
        printer.port = 6101;
    });
    const QUuid printerID = settings.printers().at(1).id;
    settings.addTemplate();
    settings.updateTemplate(1, [printerID](LabelTemplate& t) { t.printerID = printerID; });
    settings.addTemplate();
    settings.setSelectedTemplateID(settings.templates().at(1).id);
    settings.setSettingsWindowWidth(1300.5);
    settings.setSettingsWindowHeight(720);
    settings.setColumnWidthCheckbox(32);
    settings.setColumnWidthSKU(125.25);
    settings.setColumnWidthName(310);
    settings.setColumnWidthPrice(105);
    settings.setColumnWidthBarcode(135);
}

void verifyFailure(const SettingsFileDialogs::Message& message, const QString& text,
                   const QString& prefix)
{
    QCOMPARE(message.style, Style::Critical);
    QCOMPARE(message.text, text);
    QVERIFY2(message.informativeText.startsWith(prefix), qPrintable(message.informativeText));
    QVERIFY2(message.informativeText.size() > prefix.size(), "the reason is missing");
    QCOMPARE(message.buttonText, u"OK"_s);
}

} // namespace

// Export and import of the settings file, through the helper that asks for the
// path and reports the outcome.
class TestSettingsImportExport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void exportThenImportRestoresEverything();
    void importTakesDefaultsForWhatTheFileLacks_data();
    void importTakesDefaultsForWhatTheFileLacks();
    void importRepairsSelections();
    void failedImportChangesNothing_data();
    void failedImportChangesNothing();
    void failedExportIsReported_data();
    void failedExportIsReported();
    void cancellingShowsNothingAndChangesNothing();

private:
    QString filePath(const QString& name) const { return m_files->filePath(name); }

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<QTemporaryDir> m_files;
    std::unique_ptr<AppSettings> m_settings;
    ScriptedDialogs m_dialogs;
};

void TestSettingsImportExport::init()
{
    m_home = std::make_unique<TestHome>();
    m_files = std::make_unique<QTemporaryDir>();
    QVERIFY(m_home->isValid() && m_files->isValid());
    m_settings = std::make_unique<AppSettings>();
    configure(*m_settings);
    m_settings->savePendingChanges();
    m_dialogs.reset();
}

void TestSettingsImportExport::cleanup()
{
    m_settings.reset();
    m_home.reset();
}

void TestSettingsImportExport::exportThenImportRestoresEverything()
{
    // An existing file at the chosen place is replaced as a whole.
    m_dialogs.chosenPath = filePath(u"stampix-settings.json"_s);
    QVERIFY(writeFile(*m_dialogs.chosenPath, QByteArray(10000, 'x')));
    SettingsFileHelper::exportSettings(*m_settings, m_dialogs);
    QCOMPARE(m_dialogs.messages.size(), 1);
    QCOMPARE(m_dialogs.messages[0].style, Style::Informational);
    QCOMPARE(m_dialogs.messages[0].text, u"Instellingen Geëxporteerd"_s);
    QCOMPARE(m_dialogs.messages[0].informativeText,
             u"De instellingen zijn opgeslagen naar:\n"_s + *m_dialogs.chosenPath);
    QCOMPARE(m_dialogs.messages[0].buttonText, u"OK"_s);
    // The export is the settings document itself, as the store saves it.
    const QByteArray exported = readFile(*m_dialogs.chosenPath);
    QCOMPARE(exported, m_home->readSettingsFile());

    TestHome targetHome;
    AppSettings target;
    target.savePendingChanges();
    SettingsSignalRecorder recorder(target);
    SettingsFileHelper::importSettings(target, m_dialogs);
    QCOMPARE(m_dialogs.messages.size(), 2);
    QCOMPARE(m_dialogs.messages[1].style, Style::Informational);
    QCOMPARE(m_dialogs.messages[1].text, u"Instellingen Geïmporteerd"_s);
    QCOMPARE(m_dialogs.messages[1].informativeText,
             u"De instellingen zijn succesvol geïmporteerd."_s);
    QCOMPARE(m_dialogs.messages[1].buttonText, u"OK"_s);
    QCOMPARE(snapshot(target), snapshot(*m_settings));
    // Every property is assigned, in the order the store declares them.
    QCOMPARE(recorder.changed(), SettingsSignalRecorder::properties());

    // The import reaches the store's own file through its delayed save.
    QVERIFY(target.isSavePending());
    QTRY_VERIFY_WITH_TIMEOUT(!target.isSavePending(), 5000);
    QCOMPARE(targetHome.readSettingsFile(), exported);
}

void TestSettingsImportExport::importTakesDefaultsForWhatTheFileLacks_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("bookyear");
    QTest::addColumn<int>("printerCount");
    QTest::newRow("empty object") << QByteArray("{}") << SettingsData::currentYear() << 0;
    QTest::newRow("empty lists") << QByteArray(R"({"dossiers": [], "templates": [], "printers": [
        {"id": "7D2E3B7F-9054-4E36-8F1C-2F9E6E405B01", "ipAddress": "10.0.0.8", "name": "P", "port": 9100}]})")
                                 << SettingsData::currentYear() << 1;
    // The top-level values of the old layout are ignored: an import never migrates.
    QTest::newRow("old flat layout")
        << QByteArray(R"({"bookyear":"2019","apiKey":"legacy-key",)"
                      R"("printerIP":"192.0.2.10","printerPort":6101})")
        << u"2019"_s << 0;
}

void TestSettingsImportExport::importTakesDefaultsForWhatTheFileLacks()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, bookyear);
    QFETCH(int, printerCount);
    m_dialogs.chosenPath = filePath(u"settings.json"_s);
    QVERIFY(writeFile(*m_dialogs.chosenPath, content));

    SettingsFileHelper::importSettings(*m_settings, m_dialogs);
    QCOMPARE(m_dialogs.messages.size(), 1);
    QCOMPARE(m_dialogs.messages[0].style, Style::Informational);

    const AppSettings& settings = *m_settings;
    QCOMPARE(settings.bookyear(), bookyear);
    QCOMPARE(settings.dossiers(), QList<Dossier>{Dossier::defaultDossier()});
    QCOMPARE(settings.selectedDossierID(), Dossier::defaultDossier().id);
    QCOMPARE(settings.printers().size(), printerCount);
    QCOMPARE(settings.templates(), QList<LabelTemplate>{LabelTemplate::defaultTemplate()});
    QCOMPARE(settings.selectedTemplateID(), LabelTemplate::defaultTemplate().id);
    QVERIFY(!settings.isConfigured());
    // Keys the file lacks take their defaults, not the old values.
    const SettingsData defaults;
    QCOMPARE(settings.settingsWindowWidth(), defaults.settingsWindowWidth);
    QCOMPARE(settings.settingsWindowHeight(), defaults.settingsWindowHeight);
    QCOMPARE(settings.columnWidthCheckbox(), defaults.columnWidthCheckbox);
    QCOMPARE(settings.columnWidthSKU(), defaults.columnWidthSKU);
    QCOMPARE(settings.columnWidthName(), defaults.columnWidthName);
    QCOMPARE(settings.columnWidthPrice(), defaults.columnWidthPrice);
    QCOMPARE(settings.columnWidthBarcode(), defaults.columnWidthBarcode);
}

void TestSettingsImportExport::importRepairsSelections()
{
    const QString file = filePath(u"stale-selection.json"_s);
    QVERIFY(writeFile(file, R"({
        "dossiers": [{"apiKey": "", "id": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A01", "name": "A"},
                     {"apiKey": "", "id": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A02", "name": "B"}],
        "selectedDossierID": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4AFF",
        "templates": [{"id": "8E3F4C80-A165-4F47-901D-3FAF7F516C01", "name": "T", "zplContent": ""}]})"));

    QCOMPARE(m_settings->importSettings(file), std::nullopt);
    QCOMPARE(m_settings->selectedDossierID(),
             QUuid::fromString(u"6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A01"));
    QCOMPARE(m_settings->selectedTemplateID(),
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
    // Missing by the time it is read.
    QTest::newRow("missing file") << QByteArray() << false;
}

void TestSettingsImportExport::failedImportChangesNothing()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, fileExists);
    m_dialogs.chosenPath = filePath(u"import.json"_s);
    if (fileExists)
        QVERIFY(writeFile(*m_dialogs.chosenPath, content));
    const QByteArray before = snapshot(*m_settings);
    SettingsSignalRecorder recorder(*m_settings);

    SettingsFileHelper::importSettings(*m_settings, m_dialogs);

    QCOMPARE(m_dialogs.messages.size(), 1);
    verifyFailure(m_dialogs.messages[0], u"Import Mislukt"_s,
                  u"Kon de instellingen niet importeren: "_s);
    QVERIFY2(recorder.changed().isEmpty(), qPrintable(recorder.changed().join(u',')));
    QVERIFY(!m_settings->isSavePending());
    QCOMPARE(snapshot(*m_settings), before);
}

void TestSettingsImportExport::failedExportIsReported_data()
{
    QTest::addColumn<QString>("blocker");
    QTest::newRow("missing directory") << QString();
    // Beneath a regular file nothing can be created, whoever runs the test.
    QTest::newRow("beneath a file") << u"blocker"_s;
}

void TestSettingsImportExport::failedExportIsReported()
{
    QFETCH(QString, blocker);
    const QString parent = filePath(blocker.isEmpty() ? u"no-such-directory"_s : blocker);
    if (!blocker.isEmpty())
        QVERIFY(writeFile(parent, "x"));
    m_dialogs.chosenPath = parent + u"/stampix-settings.json"_s;

    SettingsFileHelper::exportSettings(*m_settings, m_dialogs);

    QCOMPARE(m_dialogs.messages.size(), 1);
    verifyFailure(m_dialogs.messages[0], u"Export Mislukt"_s,
                  u"Kon de instellingen niet exporteren: "_s);
    QVERIFY(!QFile::exists(*m_dialogs.chosenPath));
    if (!blocker.isEmpty())
        QCOMPARE(readFile(parent), QByteArray("x"));
}

void TestSettingsImportExport::cancellingShowsNothingAndChangesNothing()
{
    const QByteArray before = snapshot(*m_settings);

    // A dialog that returns an empty path has not chosen anything either.
    for (const std::optional<QString>& answer :
         {std::optional<QString>(), std::optional(QString())}) {
        m_dialogs.reset(answer);
        SettingsFileHelper::exportSettings(*m_settings, m_dialogs);
        SettingsFileHelper::importSettings(*m_settings, m_dialogs);
        QVERIFY(m_dialogs.messages.isEmpty());
    }

    QCOMPARE(snapshot(*m_settings), before);
    QVERIFY(!m_settings->isSavePending());
    QVERIFY(QDir(m_files->path()).isEmpty());

    // What the dialogs were asked to show.
    QCOMPARE(m_dialogs.saveRequests.size(), 1);
    const SettingsFileDialogs::FileRequest& save = m_dialogs.saveRequests[0];
    QCOMPARE(save.title, u"Exporteer Instellingen"_s);
    QCOMPARE(save.message, u"Kies een locatie om de instellingen op te slaan"_s);
    QCOMPARE(save.proposedFileName, u"stampix-settings.json"_s);
    QCOMPARE(save.nameFilter, u"JSON (*.json)"_s);
    QCOMPARE(m_dialogs.openRequests.size(), 1);
    const SettingsFileDialogs::FileRequest& open = m_dialogs.openRequests[0];
    QCOMPARE(open.title, u"Importeer Instellingen"_s);
    QCOMPARE(open.message, u"Selecteer een settings.json bestand om te importeren"_s);
    QCOMPARE(open.nameFilter, u"JSON (*.json)"_s);
}

QTEST_GUILESS_MAIN(TestSettingsImportExport)
#include "TestSettingsImportExport.moc"

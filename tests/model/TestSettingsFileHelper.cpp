#include "model/AppSettings.h"
#include "model/SettingsFileDialogs.h"
#include "model/SettingsFileHelper.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
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

// Everything the store publishes, for "nothing changed" checks.
struct Snapshot
{
    SettingsData data;

    explicit Snapshot(const AppSettings& settings)
    {
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
    }

    // The written form compares every field, including the selections.
    friend bool operator==(const Snapshot& left, const Snapshot& right)
    {
        return left.data.write() == right.data.write();
    }
};

char* toString(const Snapshot& snapshot)
{
    return qstrdup(snapshot.data.write().constData());
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

// A configuration that differs from the defaults everywhere.
void fillWithRecords(AppSettings& settings)
{
    settings.setBookyear(u"2023"_s);
    settings.addDossier();
    settings.updateDossier(1, [](Dossier& dossier) { dossier.apiKey = u"key-2"_s; });
    settings.addDossier();
    settings.addPrinter();
    settings.addPrinter();
    settings.updatePrinter(1, [](Printer& printer) {
        printer.ipAddress = u"10.1.2.3"_s;
        printer.port = 6101;
    });
    settings.addTemplate();
    const QUuid printerID = settings.printers().at(1).id;
    settings.updateTemplate(
        1, [printerID](LabelTemplate& labelTemplate) { labelTemplate.printerID = printerID; });
    settings.addTemplate();
    settings.setSelectedDossierID(settings.dossiers().at(1).id);
    settings.setSelectedTemplateID(settings.templates().at(1).id);
    settings.setSettingsWindowWidth(1234.5);
    settings.setColumnWidthSKU(150);
}

} // namespace

class TestSettingsFileHelper : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void exportThenImportRestoresRecordsAndSelections();
    void exportedBytesEqualTheStoresOwnFile();
    void importOfOldFlatFileDoesNotMigrate();
    void importOfEmptyObjectUsesDefaults();
    void importOfNonJsonShowsFailureAndChangesNothing();
    void exportToUnwritableLocationShowsFailure();
    void cancellingShowsNothingAndChangesNothing();

private:
    QString filePath(const QString& name) const { return m_files->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<QTemporaryDir> m_files;
    std::unique_ptr<AppSettings> m_settings;
    ScriptedDialogs m_dialogs;
};

void TestSettingsFileHelper::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    m_files = std::make_unique<QTemporaryDir>();
    QVERIFY(m_home->isValid() && m_files->isValid());
    qputenv("HOME", QFile::encodeName(m_home->path()));
    m_settings = std::make_unique<AppSettings>();
    m_settings->savePendingChanges();
    m_dialogs.reset();
}

void TestSettingsFileHelper::cleanup()
{
    m_settings.reset();
}

void TestSettingsFileHelper::exportThenImportRestoresRecordsAndSelections()
{
    fillWithRecords(*m_settings);
    const Snapshot exported(*m_settings);

    m_dialogs.chosenPath = filePath(u"stampix-settings.json"_s);
    SettingsFileHelper::exportSettings(*m_settings, m_dialogs);
    QCOMPARE(m_dialogs.messages.size(), 1);
    QCOMPARE(m_dialogs.messages[0].style, Style::Informational);
    QCOMPARE(m_dialogs.messages[0].text, u"Instellingen Geëxporteerd"_s);
    QCOMPARE(m_dialogs.messages[0].informativeText,
             u"De instellingen zijn opgeslagen naar:\n"_s + *m_dialogs.chosenPath);
    QCOMPARE(m_dialogs.messages[0].buttonText, u"OK"_s);

    // Change everything the file holds, then bring it back.
    m_settings->deleteDossier(m_settings->dossiers().at(1));
    m_settings->deletePrinter(m_settings->printers().at(0));
    m_settings->addTemplate();
    m_settings->setSelectedTemplateID(m_settings->templates().at(0).id);
    m_settings->setBookyear(u"2030"_s);
    m_settings->setColumnWidthSKU(90);
    QVERIFY(Snapshot(*m_settings) != exported);

    SettingsFileHelper::importSettings(*m_settings, m_dialogs);
    QCOMPARE(Snapshot(*m_settings), exported);
    QCOMPARE(m_dialogs.messages.size(), 2);
    QCOMPARE(m_dialogs.messages[1].style, Style::Informational);
    QCOMPARE(m_dialogs.messages[1].text, u"Instellingen Geïmporteerd"_s);
    QCOMPARE(m_dialogs.messages[1].informativeText,
             u"De instellingen zijn succesvol geïmporteerd."_s);
    QCOMPARE(m_dialogs.messages[1].buttonText, u"OK"_s);

    // The import reaches the store's own file through its delayed save.
    QVERIFY(m_settings->isSavePending());
    m_settings->savePendingChanges();
    QCOMPARE(readFile(m_settings->settingsFilePath()), exported.data.write());
}

void TestSettingsFileHelper::exportedBytesEqualTheStoresOwnFile()
{
    fillWithRecords(*m_settings);
    m_settings->savePendingChanges();
    const QByteArray ownFile = readFile(m_settings->settingsFilePath());
    QVERIFY(!ownFile.isEmpty());

    // An existing file at the chosen place is replaced as a whole.
    m_dialogs.chosenPath = filePath(u"copy.json"_s);
    writeFile(*m_dialogs.chosenPath, QByteArray(10000, 'x'));
    SettingsFileHelper::exportSettings(*m_settings, m_dialogs);
    QCOMPARE(readFile(*m_dialogs.chosenPath), ownFile);
    QCOMPARE(m_dialogs.messages.size(), 1);
    QCOMPARE(m_dialogs.messages[0].style, Style::Informational);
}

void TestSettingsFileHelper::importOfOldFlatFileDoesNotMigrate()
{
    fillWithRecords(*m_settings);
    m_dialogs.chosenPath = filePath(u"settings.json"_s);
    writeFile(*m_dialogs.chosenPath, R"({"bookyear":"2019","apiKey":"legacy-key",)"
                                     R"("printerIP":"192.0.2.10","printerPort":6101})");

    SettingsFileHelper::importSettings(*m_settings, m_dialogs);

    QCOMPARE(m_dialogs.messages.size(), 1);
    QCOMPARE(m_dialogs.messages[0].style, Style::Informational);
    QCOMPARE(m_settings->bookyear(), u"2019"_s);
    QCOMPARE(m_settings->dossiers(), QList<Dossier>{Dossier::defaultDossier()});
    QCOMPARE(m_settings->selectedDossierID(), std::optional(Dossier::defaultDossier().id));
    QVERIFY(m_settings->printers().isEmpty());
    QCOMPARE(m_settings->templates(), QList<LabelTemplate>{LabelTemplate::defaultTemplate()});
    QCOMPARE(m_settings->selectedTemplateID(), std::optional(LabelTemplate::defaultTemplate().id));
    QVERIFY(!m_settings->isConfigured());
}

void TestSettingsFileHelper::importOfEmptyObjectUsesDefaults()
{
    fillWithRecords(*m_settings);
    m_dialogs.chosenPath = filePath(u"empty.json"_s);
    writeFile(*m_dialogs.chosenPath, "{}");

    SettingsFileHelper::importSettings(*m_settings, m_dialogs);

    QCOMPARE(m_dialogs.messages.size(), 1);
    QCOMPARE(m_dialogs.messages[0].style, Style::Informational);
    QCOMPARE(m_settings->bookyear(), SettingsData::currentYear());
    QCOMPARE(m_settings->dossiers(), QList<Dossier>{Dossier::defaultDossier()});
    QVERIFY(m_settings->printers().isEmpty());
    QCOMPARE(m_settings->templates(), QList<LabelTemplate>{LabelTemplate::defaultTemplate()});
    QCOMPARE(m_settings->selectedTemplateID(), std::optional(LabelTemplate::defaultTemplate().id));
    QCOMPARE(m_settings->settingsWindowWidth(), 1100.0);
    QCOMPARE(m_settings->settingsWindowHeight(), 700.0);
    QCOMPARE(m_settings->columnWidthSKU(), 120.0);
    QCOMPARE(m_settings->columnWidthBarcode(), 130.0);
}

void TestSettingsFileHelper::importOfNonJsonShowsFailureAndChangesNothing()
{
    fillWithRecords(*m_settings);
    m_settings->savePendingChanges();
    const Snapshot before(*m_settings);
    QSignalSpy dossiersChanged(m_settings.get(), &AppSettings::dossiersChanged);
    QSignalSpy bookyearChanged(m_settings.get(), &AppSettings::bookyearChanged);

    const QString prefix = u"Kon de instellingen niet importeren: "_s;
    for (const QByteArray& content : {QByteArray("Dit is geen JSON."), QByteArray()}) {
        m_dialogs.reset(filePath(u"notes.json"_s));
        writeFile(*m_dialogs.chosenPath, content);

        SettingsFileHelper::importSettings(*m_settings, m_dialogs);

        QCOMPARE(m_dialogs.messages.size(), 1);
        const SettingsFileDialogs::Message& message = m_dialogs.messages[0];
        QCOMPARE(message.style, Style::Critical);
        QCOMPARE(message.text, u"Import Mislukt"_s);
        QVERIFY2(message.informativeText.startsWith(prefix), qPrintable(message.informativeText));
        QVERIFY2(message.informativeText.size() > prefix.size(), "the reason is missing");
        QCOMPARE(message.buttonText, u"OK"_s);
    }

    // A file that is missing by the time it is read fails the same way.
    m_dialogs.reset(filePath(u"gone.json"_s));
    SettingsFileHelper::importSettings(*m_settings, m_dialogs);
    QCOMPARE(m_dialogs.messages.size(), 1);
    QCOMPARE(m_dialogs.messages[0].text, u"Import Mislukt"_s);

    QCOMPARE(Snapshot(*m_settings), before);
    QCOMPARE(dossiersChanged.size(), 0);
    QCOMPARE(bookyearChanged.size(), 0);
    QVERIFY(!m_settings->isSavePending());
}

void TestSettingsFileHelper::exportToUnwritableLocationShowsFailure()
{
    // Beneath a regular file nothing can be created, whoever runs the test.
    const QString blocker = filePath(u"blocker"_s);
    writeFile(blocker, "x");
    m_dialogs.chosenPath = blocker + u"/stampix-settings.json"_s;

    SettingsFileHelper::exportSettings(*m_settings, m_dialogs);

    QCOMPARE(m_dialogs.messages.size(), 1);
    const SettingsFileDialogs::Message& message = m_dialogs.messages[0];
    QCOMPARE(message.style, Style::Critical);
    QCOMPARE(message.text, u"Export Mislukt"_s);
    const QString prefix = u"Kon de instellingen niet exporteren: "_s;
    QVERIFY2(message.informativeText.startsWith(prefix), qPrintable(message.informativeText));
    QVERIFY2(message.informativeText.size() > prefix.size(), "the reason is missing");
    QCOMPARE(message.buttonText, u"OK"_s);
    QCOMPARE(readFile(blocker), QByteArray("x"));
}

void TestSettingsFileHelper::cancellingShowsNothingAndChangesNothing()
{
    fillWithRecords(*m_settings);
    m_settings->savePendingChanges();
    const Snapshot before(*m_settings);

    // A dialog that returns an empty path has not chosen anything either.
    for (const std::optional<QString>& answer :
         {std::optional<QString>(), std::optional(QString())}) {
        m_dialogs.reset(answer);
        SettingsFileHelper::exportSettings(*m_settings, m_dialogs);
        SettingsFileHelper::importSettings(*m_settings, m_dialogs);
        QVERIFY(m_dialogs.messages.isEmpty());
    }

    QCOMPARE(Snapshot(*m_settings), before);
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

QTEST_GUILESS_MAIN(TestSettingsFileHelper)
#include "TestSettingsFileHelper.moc"

#include "TestHome.h"
#include "model/AppSettings.h"
#include "model/SettingsFileDialogs.h"
#include "model/SettingsFileHelper.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Style = SettingsFileDialogs::MessageStyle;

// Answers every file dialog with `chosenPath` and records the messages shown.
struct ScriptedDialogs : SettingsFileDialogs
{
    std::optional<QString> chosenPath;
    QList<Message> messages;

    std::optional<QString> askSaveLocation(const FileRequest&) override { return chosenPath; }
    std::optional<QString> askOpenFile(const FileRequest&) override { return chosenPath; }
    void showMessage(const Message& message) override { messages.append(message); }
};

// The one message shown; a failure's reason follows `informativeText`.
void verifyMessage(const ScriptedDialogs& dialogs, Style style, const QString& text,
                   const QString& informativeText)
{
    QCOMPARE(dialogs.messages.size(), 1);
    const SettingsFileDialogs::Message& message = dialogs.messages[0];
    QCOMPARE(message.style, style);
    QCOMPARE(message.text, text);
    QVERIFY2(message.informativeText.startsWith(informativeText) &&
                 (style == Style::Informational ||
                  message.informativeText.size() > informativeText.size()),
             qPrintable(message.informativeText));
    QCOMPARE(message.buttonText, u"OK"_s);
}

} // namespace

class TestSettingsImportExport : public QObject
{
    Q_OBJECT

private slots:
    void importThenExportKeepsEverything()
    {
        // Every property away from its default, shared with the fuzz corpus.
        const QByteArray document = TestHome::readFile(QStringLiteral(STAMPIX_SETTINGS_SAMPLE));
        QVERIFY(!document.isEmpty());
        TestHome home;
        AppSettings settings;
        ScriptedDialogs dialogs;
        dialogs.chosenPath = home.path() + u"/import.json"_s;
        QVERIFY(TestHome::writeFile(*dialogs.chosenPath, document));
        SettingsFileHelper::importSettings(settings, dialogs);
        verifyMessage(dialogs, Style::Informational, u"Instellingen Geïmporteerd"_s,
                      u"De instellingen zijn succesvol geïmporteerd."_s);
        // The import reaches the store's own file through its delayed save.
        QTRY_VERIFY_WITH_TIMEOUT(!settings.isSavePending(), 5000);
        const QByteArray saved = home.readSettingsFile();
        QCOMPARE(saved, SettingsData::read(document, nullptr)->write());

        // An existing, longer file at the chosen place is replaced as a whole.
        dialogs.chosenPath = home.path() + u"/stampix-settings.json"_s;
        QVERIFY(TestHome::writeFile(*dialogs.chosenPath, QByteArray(10000, 'x')));
        dialogs.messages.clear();
        SettingsFileHelper::exportSettings(settings, dialogs);
        verifyMessage(dialogs, Style::Informational, u"Instellingen Geëxporteerd"_s,
                      u"De instellingen zijn opgeslagen naar:\n"_s + *dialogs.chosenPath);
        QCOMPARE(TestHome::readFile(*dialogs.chosenPath), saved);
    }

    void importTakesDefaultsForWhatTheFileLacks_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("printerCount");
        QTest::newRow("empty lists, stale selection, lower-case id")
            << QByteArray(
                   R"({"dossiers": [], "templates": [], "printers": [{"id":
           "7d2e3b7f-9054-4e36-8f1c-2f9e6e405b01", "ipAddress": "", "name": "P", "port": 9100}],
           "selectedDossierID": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4AFF"})")
            << 1;
        // The top-level values of the old layout are ignored: an import never migrates.
        QTest::newRow("old flat layout")
            << QByteArray(R"({"apiKey":"legacy-key","printerIP":"192.0.2.10"})") << 0;
    }

    void importTakesDefaultsForWhatTheFileLacks()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, printerCount);
        TestHome home;
        AppSettings settings;
        settings.setBookyear(u"1999"_s);
        settings.addDossier();
        settings.addTemplate();
        settings.setColumnWidthBarcode(1);
        QVERIFY(TestHome::writeFile(home.path() + u"/import.json"_s, content));
        QCOMPARE(settings.importSettings(home.path() + u"/import.json"_s), std::nullopt);
        QCOMPARE(settings.bookyear(), SettingsData::currentYear());
        QCOMPARE(settings.dossiers(), QList<Dossier>{Dossier::defaultDossier()});
        QCOMPARE(settings.selectedDossierID(), Dossier::defaultDossier().id);
        QCOMPARE(settings.printers().size(), printerCount);
        QCOMPARE(settings.templates(), QList<LabelTemplate>{LabelTemplate::defaultTemplate()});
        QCOMPARE(settings.selectedTemplateID(), LabelTemplate::defaultTemplate().id);
        QCOMPARE(settings.columnWidthBarcode(), 130.0);
    }

    void failuresAreReportedAndChangeNothing_data()
    {
        QTest::addColumn<bool>("exporting");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("chosenFile");
        QTest::newRow("import not JSON") << false << QByteArray("Geen JSON.") << u"file.json"_s;
        QTest::newRow("import missing file") << false << QByteArray() << u"missing.json"_s;
        // Beneath a regular file nothing can be created, whoever runs the test.
        QTest::newRow("export beneath a file") << true << QByteArray("x") << u"file.json/s.json"_s;
        // Cancelling is no failure: nothing is shown.
        QTest::newRow("import cancelled") << false << QByteArray("{}") << QString();
        QTest::newRow("export cancelled") << true << QByteArray() << QString();
    }

    void failuresAreReportedAndChangeNothing()
    {
        QFETCH(bool, exporting);
        QFETCH(QByteArray, content);
        QFETCH(QString, chosenFile);
        TestHome home;
        AppSettings settings;
        settings.addPrinter();
        settings.savePendingChanges();
        const QByteArray before = home.readSettingsFile();
        QVERIFY(content.isEmpty() || TestHome::writeFile(home.path() + u"/file.json"_s, content));
        ScriptedDialogs dialogs;
        // A dialog that returns an empty path has not chosen anything either.
        dialogs.chosenPath = chosenFile.isEmpty() ? QString() : home.path() + u'/' + chosenFile;
        const QStringList filesBefore = QDir(home.path()).entryList(QDir::Files);

        if (exporting)
            SettingsFileHelper::exportSettings(settings, dialogs);
        else
            SettingsFileHelper::importSettings(settings, dialogs);
        if (chosenFile.isEmpty())
            QVERIFY(dialogs.messages.isEmpty());
        else
            verifyMessage(dialogs, Style::Critical,
                          exporting ? u"Export Mislukt"_s : u"Import Mislukt"_s,
                          u"Kon de instellingen niet %1: "_s.arg(exporting ? u"exporteren"_s
                                                                           : u"importeren"_s));
        // Every assignment schedules a save, so none happened.
        QVERIFY(!settings.isSavePending());
        settings.setBookyear(settings.bookyear());
        settings.savePendingChanges();
        QCOMPARE(home.readSettingsFile(), before);
        QCOMPARE(QDir(home.path()).entryList(QDir::Files), filesBefore);
    }
};

QTEST_GUILESS_MAIN(TestSettingsImportExport)
#include "tst_SettingsImportExport.moc"

#include "StdoutCapture.h"
#include "TestHome.h"
#include "model/AppSettings.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>
#include <algorithm>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr QFileDevice::Permissions kOwnerReadWrite =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr QFileDevice::Permissions kOwnerAll = kOwnerReadWrite | QFileDevice::ExeOwner;

QFileDevice::Permissions unixPermissions(const QString& path)
{
    // Leave out the "User" bits, which mirror the owner bits for the owner.
    const QFileDevice::Permissions all =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner |
        QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ExeGroup |
        QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;
    return QFileInfo(path).permissions() & all;
}

QJsonObject parseObject(const QByteArray& bytes)
{
    return QJsonDocument::fromJson(bytes).object();
}

// The files kept aside next to the settings file.
QStringList keptFiles(const QString& directory)
{
    return QDir(directory).entryList({u"settings.json.unreadable-*"_s}, QDir::Files | QDir::System);
}

const QByteArray kFullDocument = R"({
    "apiKey": "top-level legacy key",
    "printerIP": "192.168.1.99",
    "bookyear": "2023",
    "columnWidthBarcode": 131.5,
    "columnWidthCheckbox": 28,
    "columnWidthName": 333.25,
    "columnWidthPrice": 90,
    "columnWidthSKU": 121,
    "dossiers": [
        {"apiKey": "k1", "id": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A01", "name": "Winkel"},
        {"apiKey": "", "id": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A02", "name": "Magazijn"}
    ],
    "printers": [
        {"id": "7D2E3B7F-9054-4E36-8F1C-2F9E6E405B01", "ipAddress": "10.0.0.7", "name": "Balie", "port": 6101},
        {"id": "7D2E3B7F-9054-4E36-8F1C-2F9E6E405B02", "ipAddress": "", "name": "Achter", "port": 9100}
    ],
    "selectedDossierID": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A02",
    "selectedTemplateID": "8E3F4C80-A165-4F47-901D-3FAF7F516C02",
    "settingsWindowHeight": 640.5,
    "settingsWindowWidth": 1200,
    "someFutureKey": true,
    "templates": [
        {"id": "8E3F4C80-A165-4F47-901D-3FAF7F516C01", "name": "Groot", "printerID": "7D2E3B7F-9054-4E36-8F1C-2F9E6E405B02",
         "zplContent": "^XA\n^FD{{NAAM}}^FS\n^XZ", "printerIP": "192.168.1.5", "printerPort": 9101},
        {"id": "8E3F4C80-A165-4F47-901D-3FAF7F516C02", "name": "Klein", "zplContent": "^XA^XZ"},
        {"id": "8E3F4C80-A165-4F47-901D-3FAF7F516C03", "name": "Oud", "printerID": null, "zplContent": ""}
    ]
})";

} // namespace

class TestSettingsStartup : public QObject
{
    Q_OBJECT

private slots:
    void fullDocumentComesBackUnchanged();
    void emptyDocumentGivesSelectedDefaults();
    void selectionsAreRepaired();
    void oldFlatLayoutMigrates();
    void legacyValuesOnlyFillEmptyLists();
    void unreadableFileIsKeptAside_data();
    void unreadableFileIsKeptAside();
    void fileWithoutAccessIsKeptAside();
    void fileThatCannotBeMovedAsideIsNeverOverwritten();
    void settingsAreOwnerOnly();
    void failedSaveIsReportedAndRetriedOnTheNextChange();
};

void TestSettingsStartup::fullDocumentComesBackUnchanged()
{
    TestHome home;
    QVERIFY(home.writeSettingsFile(kFullDocument));

    AppSettings settings;
    QCOMPARE(settings.dossiers().size(), 2);
    QCOMPARE(settings.dossiers().at(1).name, u"Magazijn"_s);
    QCOMPARE(settings.selectedDossier()->name, u"Magazijn"_s);
    QCOMPARE(settings.printers().size(), 2); // the legacy printer is not migrated
    QCOMPARE(settings.selectedTemplate()->name, u"Klein"_s);
    QCOMPARE(settings.templates().at(0).printerIP, u"192.168.1.5"_s);
    QCOMPARE(settings.settingsWindowHeight(), 640.5);
    QCOMPARE(settings.columnWidthName(), 333.25);
    settings.savePendingChanges();

    // What comes back is what went in, less the legacy and unknown keys.
    QJsonObject expected = parseObject(kFullDocument);
    QVERIFY(!expected.isEmpty());
    for (const QString& key : {u"apiKey"_s, u"printerIP"_s, u"someFutureKey"_s})
        expected.remove(key);
    QJsonArray templates = expected.value(u"templates"_s).toArray();
    for (qsizetype i = 0; i < templates.size(); ++i) {
        QJsonObject labelTemplate = templates.at(i).toObject();
        for (const QString& key : {u"printerIP"_s, u"printerPort"_s, u"printerID"_s}) {
            if (key != u"printerID" || labelTemplate.value(key).isNull())
                labelTemplate.remove(key);
        }
        templates[i] = labelTemplate;
    }
    expected.insert(u"templates"_s, templates);

    const QByteArray written = home.readSettingsFile();
    QCOMPARE(parseObject(written), expected);
    QVERIFY(!written.contains("printerIP"));
    QVERIFY(!written.contains("legacy"));
}

void TestSettingsStartup::emptyDocumentGivesSelectedDefaults()
{
    TestHome home;
    QVERIFY(home.writeSettingsFile("{}"));
    AppSettings settings;
    QCOMPARE(settings.dossiers(), QList<Dossier>{Dossier::defaultDossier()});
    QCOMPARE(settings.selectedDossierID(), Dossier::defaultDossier().id);
    QCOMPARE(settings.templates(), QList<LabelTemplate>{LabelTemplate::defaultTemplate()});
    QCOMPARE(settings.selectedTemplateID(), LabelTemplate::defaultTemplate().id);
    QVERIFY(settings.printers().isEmpty());
    QVERIFY(settings.isSavePending());
}

void TestSettingsStartup::selectionsAreRepaired()
{
    TestHome home;
    QVERIFY(home.writeSettingsFile(R"({
        "dossiers": [{"apiKey": "", "id": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A01", "name": "A"}],
        "selectedDossierID": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4AFF",
        "templates": [{"id": "8E3F4C80-A165-4F47-901D-3FAF7F516C01", "name": "T", "zplContent": ""},
                      {"id": "8E3F4C80-A165-4F47-901D-3FAF7F516C02", "name": "U", "zplContent": ""}],
        "selectedTemplateID": "8E3F4C80-A165-4F47-901D-3FAF7F516CFF"})"));
    AppSettings settings;
    QCOMPARE(settings.selectedDossierID(),
             QUuid::fromString(u"6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A01"));
    QCOMPARE(settings.selectedTemplateID(),
             QUuid::fromString(u"8E3F4C80-A165-4F47-901D-3FAF7F516C01"));
}

void TestSettingsStartup::oldFlatLayoutMigrates()
{
    TestHome home;
    QVERIFY(home.writeSettingsFile(
        R"({"apiKey": "oude-sleutel", "printerIP": "192.168.1.50", "printerPort": 6101,
            "bookyear": "2022"})"));
    QUuid dossierID;
    QUuid printerID;
    {
        AppSettings settings;
        QCOMPARE(settings.dossiers().size(), 1);
        const Dossier dossier = settings.dossiers().at(0);
        QCOMPARE(dossier.name, u"Gemigreerd Dossier"_s);
        QCOMPARE(dossier.apiKey, u"oude-sleutel"_s);
        QVERIFY(dossier.id != Dossier::defaultDossier().id);
        QCOMPARE(settings.selectedDossierID(), dossier.id);

        QCOMPARE(settings.printers().size(), 1);
        const Printer printer = settings.printers().at(0);
        QCOMPARE(printer.name, u"Gemigreerde Printer"_s);
        QCOMPARE(printer.ipAddress, u"192.168.1.50"_s);
        QCOMPARE(printer.port, 6101);

        QCOMPARE(settings.templates().size(), 1);
        const LabelTemplate labelTemplate = settings.templates().at(0);
        QCOMPARE(labelTemplate.id, LabelTemplate::defaultTemplate().id);
        QCOMPARE(labelTemplate.name, u"Standaard Etiket"_s);
        QCOMPARE(labelTemplate.printerID, printer.id);
        QCOMPARE(settings.selectedTemplateID(), labelTemplate.id);
        QVERIFY(settings.isConfigured());
        QVERIFY(settings.isPrinterConfigured());
        QCOMPARE(settings.bookyear(), u"2022"_s);
        settings.savePendingChanges();
        dossierID = dossier.id;
        printerID = printer.id;
    }
    const QJsonObject written = parseObject(home.readSettingsFile());
    QVERIFY(!written.contains(u"apiKey"_s));
    QVERIFY(!written.contains(u"printerIP"_s));
    QVERIFY(!written.contains(u"printerPort"_s));

    // The next start finds the migrated records and migrates nothing again.
    AppSettings again;
    QCOMPARE(again.dossiers().size(), 1);
    QCOMPARE(again.dossiers().at(0).id, dossierID);
    QCOMPARE(again.printers().size(), 1);
    QCOMPARE(again.printers().at(0).id, printerID);
}

void TestSettingsStartup::legacyValuesOnlyFillEmptyLists()
{
    TestHome home;
    const QUuid otherPrinter = QUuid::createUuid();
    QVERIFY(home.writeSettingsFile(R"({
        "apiKey": "oude-sleutel", "printerIP": "192.168.1.50", "printers": [],
        "dossiers": [{"apiKey": "nieuw", "id": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A01", "name": "A"}],
        "templates": [
            {"id": "8E3F4C80-A165-4F47-901D-3FAF7F516C01", "name": "T", "zplContent": ""},
            {"id": "8E3F4C80-A165-4F47-901D-3FAF7F516C02", "name": "U", "zplContent": "",
             "printerID": ")" + otherPrinter.toString(QUuid::WithoutBraces).toUtf8() +
                                   R"("}]})"));
    AppSettings settings;
    QCOMPARE(settings.dossiers().size(), 1);
    QCOMPARE(settings.dossiers().at(0).apiKey, u"nieuw"_s);

    QCOMPARE(settings.printers().size(), 1);
    const Printer migrated = settings.printers().at(0);
    QCOMPARE(migrated.port, 9100);
    QCOMPARE(settings.templates().at(0).printerID, migrated.id);
    // A template that names a printer keeps it, even one that does not exist.
    QCOMPARE(settings.templates().at(1).printerID, otherPrinter);
}

void TestSettingsStartup::unreadableFileIsKeptAside_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("not JSON") << QByteArray("bookyear: 2024\n");
    QTest::newRow("wrong type") << QByteArray(
        R"({"dossiers": [{"id": "6C1F2A6E-8F43-4D25-9E0B-1E8D5D3F4A01",
        "name": "Winkel", "apiKey": "geheim"}], "printers": [{"id": "7D2E3B7F-9054-4E36-8F1C-2F9E6E405B01",
        "name": "Balie", "ipAddress": "10.0.0.7", "port": "9100"}]})");
    QTest::newRow("zero bytes") << QByteArray();
}

void TestSettingsStartup::unreadableFileIsKeptAside()
{
    QFETCH(QByteArray, content);
    TestHome home;
    QVERIFY(home.writeSettingsFile(content));

    StdoutCapture output;
    AppSettings settings;
    const QString log = output.text();

    const QStringList kept = keptFiles(home.settingsDirectory());
    QCOMPARE(kept.size(), 1);
    const QString keptPath = home.settingsDirectory() + u'/' + kept.at(0);
    QVERIFY2(QRegularExpression(u"^settings\\.json\\.unreadable-\\d{8}-\\d{6}$"_s)
                 .match(kept.at(0))
                 .hasMatch(),
             qPrintable(kept.at(0)));
    QVERIFY2(log.startsWith(u"Failed to load settings: "_s), qPrintable(log));
    QVERIFY2(log.contains(keptPath), qPrintable(log));
    QCOMPARE(log.count(u'\n'), 1);

    // The store runs on its defaults and saves them beside the kept file.
    QCOMPARE(settings.dossiers(), QList<Dossier>{Dossier::defaultDossier()});
    QCOMPARE(settings.templates(), QList<LabelTemplate>{LabelTemplate::defaultTemplate()});
    QVERIFY(settings.printers().isEmpty());
    QCOMPARE(settings.selectedDossierID(), Dossier::defaultDossier().id);
    settings.savePendingChanges();
    QVERIFY(SettingsData::read(home.readSettingsFile(), nullptr));
    QFile keptFile(keptPath);
    QVERIFY(keptFile.open(QIODevice::ReadOnly));
    QCOMPARE(keptFile.readAll(), content);
}

void TestSettingsStartup::fileWithoutAccessIsKeptAside()
{
    if (::geteuid() == 0)
        QSKIP("file permissions do not stop the superuser");
    TestHome home;
    QVERIFY(home.writeSettingsFile("{}"));
    QVERIFY(QFile::setPermissions(home.settingsFilePath(), QFileDevice::Permissions()));

    StdoutCapture output;
    AppSettings settings;
    const QString log = output.text();
    QVERIFY2(log.startsWith(u"Failed to load settings: "_s), qPrintable(log));
    QCOMPARE(keptFiles(home.settingsDirectory()).size(), 1);
}

void TestSettingsStartup::fileThatCannotBeMovedAsideIsNeverOverwritten()
{
    // A home so deep that "settings.json" (plus the few characters of a
    // save's temporary name) still fits in a path, but the longer name of the
    // kept file does not: moving the file aside fails even for the superuser,
    // while saving would still work.
    TestHome base;
    const qsizetype kPathMax = 4096;
    const qsizetype kSettingsSuffix = QStringLiteral("/.stampix/settings.json").size();
    QString deepHome = base.path();
    const qsizetype target = kPathMax - 1 - kSettingsSuffix - 20;
    while (target - deepHome.size() > 201)
        deepHome += u'/' + QString(100, u'd');
    deepHome += u'/' + QString(target - deepHome.size() - 1, u'd');
    QCOMPARE(deepHome.size(), target);
    QVERIFY(QDir().mkpath(deepHome + u"/.stampix"_s));
    const QString settingsFile = deepHome + u"/.stampix/settings.json"_s;
    const QByteArray content = "not JSON, but maybe the user's only copy";
    {
        QFile file(settingsFile);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    qputenv("HOME", QFile::encodeName(deepHome));

    QString log;
    QString usedFile;
    {
        StdoutCapture output;
        AppSettings settings;
        usedFile = settings.settingsFilePath();
        settings.savePendingChanges();
        settings.setBookyear(u"2030"_s);
        settings.savePendingChanges();
        log = output.text();
    }
    QCOMPARE(usedFile, settingsFile);
    // Qt itself may complain about the long name; only our lines count here.
    const QStringList lines = log.split(u'\n');
    const auto loadLine = std::find_if(lines.cbegin(), lines.cend(), [](const QString& line) {
        return line.startsWith(u"Failed to load settings: "_s);
    });
    QVERIFY2(loadLine != lines.cend(), qPrintable(log));
    QVERIFY2(loadLine->contains(u"will not be overwritten"_s), qPrintable(*loadLine));
    QVERIFY2(log.contains(u"\nFailed to save settings: "_s), qPrintable(log));

    QFile file(settingsFile);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), content);
    QCOMPARE(QDir(deepHome + u"/.stampix"_s).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

void TestSettingsStartup::settingsAreOwnerOnly()
{
    // Even with a permissive umask, nothing is readable by others.
    const mode_t previousUmask = ::umask(0);
    TestHome home;
    {
        AppSettings settings;
        settings.savePendingChanges();
    }
    ::umask(previousUmask);
    QCOMPARE(unixPermissions(home.settingsDirectory()), kOwnerAll);
    QCOMPARE(unixPermissions(home.settingsFilePath()), kOwnerReadWrite);

    // A file left readable by an earlier version is narrowed by the next save.
    QVERIFY(QFile::setPermissions(home.settingsFilePath(), kOwnerReadWrite |
                                                               QFileDevice::ReadGroup |
                                                               QFileDevice::ReadOther));
    AppSettings settings;
    settings.savePendingChanges();
    QCOMPARE(unixPermissions(home.settingsFilePath()), kOwnerReadWrite);
}

void TestSettingsStartup::failedSaveIsReportedAndRetriedOnTheNextChange()
{
    TestHome home;
    AppSettings settings;
    settings.savePendingChanges();

    // A plain file where the directory should be makes every write fail.
    QVERIFY(QDir(home.settingsDirectory()).removeRecursively());
    {
        QFile blocker(home.settingsDirectory());
        QVERIFY(blocker.open(QIODevice::WriteOnly));
    }
    settings.setBookyear(u"2031"_s);
    {
        StdoutCapture output;
        settings.savePendingChanges();
        const QString log = output.text();
        QVERIFY2(log.startsWith(u"Failed to save settings: "_s), qPrintable(log));
        QCOMPARE(log.count(u'\n'), 1);
    }
    QCOMPARE(settings.bookyear(), u"2031"_s);
    QVERIFY(!settings.isSavePending());

    QVERIFY(QFile::remove(home.settingsDirectory()));
    QVERIFY(QDir().mkdir(home.settingsDirectory()));
    settings.setColumnWidthPrice(101);
    QTRY_VERIFY_WITH_TIMEOUT(!settings.isSavePending(), 5000);
    const auto written = SettingsData::read(home.readSettingsFile(), nullptr);
    QVERIFY(written);
    QCOMPARE(written->bookyear, u"2031"_s);
    QCOMPARE(written->columnWidthPrice, 101.0);
}

QTEST_GUILESS_MAIN(TestSettingsStartup)
#include "TestSettingsStartup.moc"

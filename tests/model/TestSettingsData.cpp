#include "model/SettingsData.h"
#include "model/SettingsWriter.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArray kDossier =
    R"({"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"D","apiKey":"k"})";

SettingsData fullDocument()
{
    SettingsData data;
    data.bookyear = u"2024"_s;
    data.dossiers = {Dossier{QUuid::createUuid(), u"Eerste"_s, u"k1"_s},
                     Dossier{QUuid::createUuid(), u"Tweede"_s, QString()}};
    data.selectedDossierID = data.dossiers.at(1).id;
    data.printers = {Printer{QUuid::createUuid(), u"Balie"_s, u"10.0.0.7"_s, 6101}};
    data.templates = {
        LabelTemplate{
            QUuid::createUuid(), u"Groot"_s, u"^XA\n^XZ"_s, data.printers.at(0).id, {}, {}},
        LabelTemplate{QUuid::createUuid(), u"Klein"_s, u"^XA^XZ"_s, {}, {}, {}}};
    data.selectedTemplateID = data.templates.at(0).id;
    data.settingsWindowWidth = 1234.5;
    data.settingsWindowHeight = 650;
    data.columnWidthCheckbox = 31.25;
    data.columnWidthSKU = 99;
    data.columnWidthName = 420.75;
    data.columnWidthPrice = 88;
    data.columnWidthBarcode = 140.5;
    return data;
}

} // namespace

class TestSettingsData : public QObject
{
    Q_OBJECT

private slots:
    void emptyObjectReadsAsDefaults();
    void writtenFormIsSortedAndWithoutLegacyKeys();
    void nullSelectionsAndUnknownKeys();
    void unreadableDocuments_data();
    void unreadableDocuments();
    void firstFailingKeyDecidesTheError();
    void writerFollowsEveryChangeBetweenSaves();
};

void TestSettingsData::emptyObjectReadsAsDefaults()
{
    const auto data = SettingsData::read("{}", nullptr);
    QVERIFY(data);
    QCOMPARE(data->bookyear, QString::number(QDate::currentDate().year()));
    QVERIFY(data->dossiers.isEmpty());
    QVERIFY(data->printers.isEmpty());
    QCOMPARE(data->templates, QList<LabelTemplate>{LabelTemplate::defaultTemplate()});
    QVERIFY(!data->selectedDossierID);
    QVERIFY(!data->selectedTemplateID);
    QCOMPARE(data->settingsWindowWidth, 1100.0);
    QCOMPARE(data->settingsWindowHeight, 700.0);
    QCOMPARE(data->columnWidthCheckbox, 30.0);
    QCOMPARE(data->columnWidthSKU, 120.0);
    QCOMPARE(data->columnWidthName, 300.0);
    QCOMPARE(data->columnWidthPrice, 100.0);
    QCOMPARE(data->columnWidthBarcode, 130.0);

    // An empty or null template list reads as an absent one.
    for (const char* json : {R"({"templates":[]})", R"({"templates":null})"}) {
        const auto read = SettingsData::read(json, nullptr);
        QVERIFY2(read && read->templates == data->templates, json);
    }
}

void TestSettingsData::writtenFormIsSortedAndWithoutLegacyKeys()
{
    SettingsData data = fullDocument();
    data.legacyApiKey = u"old-key"_s;
    data.legacyPrinterIP = u"192.168.1.50"_s;
    data.legacyPrinterPort = 6101;
    data.templates[1].printerIP = u"192.168.1.51"_s;
    data.templates[1].printerPort = 9101;
    const QByteArray bytes = data.write();

    // Pretty-printed: the top-level keys each on their own line, in byte order.
    const QStringList expectedOrder =
        u"bookyear columnWidthBarcode columnWidthCheckbox columnWidthName columnWidthPrice "
        u"columnWidthSKU dossiers printers selectedDossierID selectedTemplateID "
        u"settingsWindowHeight settingsWindowWidth templates"_s.split(u' ');
    QStringList topLevelKeys;
    static const QRegularExpression kTopLevelKey(u"^    \"(\\w+)\": "_s,
                                                 QRegularExpression::MultilineOption);
    for (auto it = kTopLevelKey.globalMatch(QString::fromUtf8(bytes)); it.hasNext();)
        topLevelKeys << it.next().captured(1);
    QCOMPARE(topLevelKeys, expectedOrder);

    const QJsonObject root = QJsonDocument::fromJson(bytes).object();
    QVERIFY(!bytes.contains("printerIP") && !bytes.contains("printerPort"));
    QVERIFY(!bytes.contains("old-key"));
    QCOMPARE(root.value(u"selectedDossierID"_s).toString(),
             data.selectedDossierID->toString(QUuid::WithoutBraces).toUpper());

    data.selectedDossierID.reset();
    data.selectedTemplateID.reset();
    const QJsonObject withoutSelections = QJsonDocument::fromJson(data.write()).object();
    QVERIFY(!withoutSelections.contains(u"selectedDossierID"_s));
    QVERIFY(!withoutSelections.contains(u"selectedTemplateID"_s));
}

void TestSettingsData::nullSelectionsAndUnknownKeys()
{
    const auto data = SettingsData::read(R"({"selectedDossierID":null,"bookyear":"geen jaar",
        "selectedTemplateID":"11111111-2222-4333-8444-555555555555","extra":{"a":[1]},
        "settingsWindowWidth":800})",
                                         nullptr);
    QVERIFY(data);
    QVERIFY(!data->selectedDossierID);
    QCOMPARE(data->bookyear, u"geen jaar"_s);
    // A selection naming no record is kept as read; the store repairs it.
    QCOMPARE(data->selectedTemplateID, QUuid::fromString(u"11111111-2222-4333-8444-555555555555"));
    QCOMPARE(data->settingsWindowWidth, 800.0);
}

void TestSettingsData::unreadableDocuments_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("mentioned");

    QTest::newRow("zero bytes") << QByteArray() << QString();
    QTest::newRow("not JSON") << QByteArray("bookyear = 2024") << QString();
    QTest::newRow("top level an array") << QByteArray("[]") << QString();
    QTest::newRow("bookyear a number") << QByteArray(R"({"bookyear":2024})") << u"bookyear"_s;
    QTest::newRow("dossiers an object") << QByteArray(R"({"dossiers":{}})") << u"dossiers"_s;
    QTest::newRow("size as text") << QByteArray(R"({"columnWidthSKU":"120"})")
                                  << u"columnWidthSKU"_s;
    QTest::newRow("selection not a UUID")
        << QByteArray(R"({"selectedTemplateID":"x"})") << u"selectedTemplateID"_s;
    QTest::newRow("legacy apiKey a number") << QByteArray(R"({"apiKey":1})") << u"apiKey"_s;
    QTest::newRow("legacy port with a fraction")
        << QByteArray(R"({"printerPort":9100.5})") << u"printerPort"_s;
    QTest::newRow("record in a list") << QByteArray(R"({"dossiers":[)" + kDossier + R"(,
        {"id":"0F8FAD5B-D9CB-469F-A165-70867728950F","name":"D","apiKey":null}]})")
                                      << u"dossiers[1]: \"apiKey\""_s;
    QTest::newRow("template record")
        << QByteArray(R"({"templates":[{"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"T"}]})")
        << u"templates[0]: \"zplContent\""_s;
    QTest::newRow("printer not an object") << QByteArray(R"({"printers":[1]})") << u"printers[0]"_s;
}

void TestSettingsData::unreadableDocuments()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, mentioned);
    QString error;
    QVERIFY(!SettingsData::read(json, &error));
    QVERIFY(!error.isEmpty());
    QVERIFY2(error.contains(mentioned), qPrintable(error));
}

void TestSettingsData::firstFailingKeyDecidesTheError()
{
    // "printers" is read before "templates", whatever the order in the text.
    QString error;
    QVERIFY(!SettingsData::read(R"({"templates":5,"printers":"none","bookyear":"2024"})", &error));
    QVERIFY2(error.contains(u"\"printers\""_s), qPrintable(error));
    QVERIFY2(!error.contains(u"templates"_s), qPrintable(error));
}

QTEST_GUILESS_MAIN(TestSettingsData)
#include "TestSettingsData.moc"

void TestSettingsData::writerFollowsEveryChangeBetweenSaves()
{
    // One writer across a run of saves, as the store uses it: each text must
    // equal a fresh write of the same document, whatever changed in between.
    SettingsWriter writer;
    SettingsData data = fullDocument();
    const auto check = [&](const char* step) {
        QVERIFY2(writer.write(data) == data.write(), step);
    };
    check("first save");
    check("nothing changed");
    data.dossiers[1].apiKey = u"nieuw"_s;
    check("one field of the last dossier");
    data.printers[0].port = 9100;
    check("a printer's port");
    data.templates[0].printerID.reset();
    check("a template's printer taken away");
    data.dossiers.prepend(Dossier{QUuid::createUuid(), u"Voorop"_s, u"k0"_s});
    check("a dossier inserted in front");
    data.templates.removeFirst();
    check("the first template deleted");
    data.printers.clear();
    check("all printers deleted");
    data.printers = fullDocument().printers;
    check("printers back");
}

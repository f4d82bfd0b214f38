#include "model/SettingsData.h"

#include <QDate>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArray kID = R"("id":"0F8FAD5B-D9CB-469F-A165-70867728950E")";

QByteArray inList(const QByteArray& key, const QByteArray& record)
{
    return "{\"" + key + "\":[{" + kID + "," + record + "}]}";
}

} // namespace

// The records and the document they travel in: reading, the written form and
// what makes a file unreadable.
class TestSettingsData : public QObject
{
    Q_OBJECT

private slots:
    void defaultTemplateIsExactlyTheLabelText();
    void emptyObjectReadsAsDefaults();
    void writtenFormIsSortedWithoutLegacyKeys();
    void unreadableDocuments_data();
    void unreadableDocuments();
};

void TestSettingsData::defaultTemplateIsExactlyTheLabelText()
{
    const QByteArray expected = "^XA\n"
                                "^FO50,50^A0N,50,50^FD{{ARTIKELNR}}^FS\n"
                                "^FO50,120^A0N,40,40^FD{{NAAM}}^FS\n"
                                "^FO50,180^A0N,35,35^FDE {{PRIJS}}^FS\n"
                                "^XZ";
    QCOMPARE(expected.size(), 116);
    QCOMPARE(expected.count('\n'), 4);
    QCOMPARE(LabelTemplate::defaultTemplate().zplContent.toUtf8(), expected);
    QCOMPARE(LabelTemplate::defaultTemplate().name, u"Standaard Etiket"_s);
    QCOMPARE(Dossier::defaultDossier().name, u"Standaard Dossier"_s);
}

void TestSettingsData::emptyObjectReadsAsDefaults()
{
    // Null and unknown keys are as good as missing ones.
    for (const char* json : {"{}", R"({"templates":[],"extra":{"a":[1]}})",
                             R"({"templates":null,"selectedDossierID":null})"}) {
        const auto data = SettingsData::read(json, nullptr);
        QVERIFY2(data, json);
        QCOMPARE(data->bookyear, QString::number(QDate::currentDate().year()));
        QVERIFY(data->dossiers.isEmpty() && data->printers.isEmpty());
        QCOMPARE(data->templates, QList<LabelTemplate>{LabelTemplate::defaultTemplate()});
        QVERIFY(!data->selectedDossierID && !data->selectedTemplateID);
        const QList<double> sizes{data->settingsWindowWidth, data->settingsWindowHeight,
                                  data->columnWidthCheckbox, data->columnWidthSKU,
                                  data->columnWidthName,     data->columnWidthPrice,
                                  data->columnWidthBarcode};
        QCOMPARE(sizes, (QList<double>{1100, 700, 30, 120, 300, 100, 130}));
    }
}

void TestSettingsData::writtenFormIsSortedWithoutLegacyKeys()
{
    SettingsData data;
    data.selectedDossierID = QUuid::fromString(u"0f8fad5b-d9cb-469f-a165-70867728950e");
    data.selectedTemplateID = QUuid::createUuid();
    data.templates = {LabelTemplate{QUuid::createUuid(), u"T"_s, u"z"_s, {}, u"10.0.0.1"_s, 9101}};
    data.legacyApiKey = u"old-key"_s;
    data.legacyPrinterIP = u"192.168.1.50"_s;
    const QByteArray bytes = data.write();
    QStringList topLevelKeys;
    static const QRegularExpression kTopLevelKey(u"^    \"(\\w+)\": "_s,
                                                 QRegularExpression::MultilineOption);
    for (auto it = kTopLevelKey.globalMatch(QString::fromUtf8(bytes)); it.hasNext();)
        topLevelKeys << it.next().captured(1);
    QCOMPARE(topLevelKeys.join(u' '),
             u"bookyear columnWidthBarcode columnWidthCheckbox columnWidthName columnWidthPrice "
             u"columnWidthSKU dossiers printers selectedDossierID selectedTemplateID "
             u"settingsWindowHeight settingsWindowWidth templates"_s);
    for (const char* absent : {"printerIP", "printerPort", "printerID", "old-key"})
        QVERIFY2(!bytes.contains(absent), absent);
    QVERIFY(bytes.contains("\"selectedDossierID\": \"0F8FAD5B-D9CB-469F-A165-70867728950E\""));
    data.selectedDossierID.reset();
    data.selectedTemplateID.reset();
    QVERIFY(!data.write().contains("selected"));
}

void TestSettingsData::unreadableDocuments_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("mentioned");

    QTest::newRow("zero bytes") << QByteArray() << QString();
    QTest::newRow("not JSON") << QByteArray("bookyear = 2024") << QString();
    QTest::newRow("bookyear a number") << QByteArray(R"({"bookyear":2024})") << u"bookyear"_s;
    QTest::newRow("size as text") << QByteArray(R"({"columnWidthSKU":"120"})")
                                  << u"columnWidthSKU"_s;

    // Keys are read in a fixed order, whatever the order in the text.
    QTest::newRow("first failing key decides")
        << QByteArray(R"({"templates":5,"printers":"none"})") << u"\"printers\""_s;
    QTest::newRow("printer not an object") << QByteArray(R"({"printers":[1]})") << u"printers[0]"_s;
    QTest::newRow("port as text") << inList("printers", R"("name":"P","ipAddress":"h","port":"1")")
                                  << u"\"port\""_s;
    QTest::newRow("apiKey null") << inList("dossiers", R"("name":"D","apiKey":null)")
                                 << u"dossiers[0]: \"apiKey\""_s;
    QTest::newRow("id with braces")
        << QByteArray(R"({"dossiers":[{"id":"{0F8FAD5B-D9CB-469F-A165-70867728950E}",)"
                      R"("name":"D","apiKey":""}]})")
        << u"\"id\""_s;

    QTest::newRow("zplContent missing")
        << inList("templates", R"("name":"T")") << u"templates[0]: \"zplContent\""_s;
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

QTEST_GUILESS_MAIN(TestSettingsData)
#include "TestSettingsData.moc"

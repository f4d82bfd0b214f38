#include "model/SettingsData.h"

#include <QDate>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QByteArray inList(const QByteArray& key, const QByteArray& record)
{
    const QByteArray id = R"("id":"0F8FAD5B-D9CB-469F-A165-70867728950E")";
    return "{\"" + key + "\":[{" + id + "," + record + "}]}";
}

} // namespace

// That a written document reads back, hard strings and sizes included, and
// keeps no value of the old layout, the settings_document fuzz replay proves.
class TestSettingsData : public QObject
{
    Q_OBJECT

private slots:
    void emptyObjectReadsAsDefaults()
    {
        QCOMPARE(LabelTemplate::defaultTemplate().zplContent.toUtf8(),
                 "^XA\n^FO50,50^A0N,50,50^FD{{ARTIKELNR}}^FS\n^FO50,120^A0N,40,40^FD{{NAAM}}^FS\n"
                 "^FO50,180^A0N,35,35^FDE {{PRIJS}}^FS\n^XZ");
        QCOMPARE(LabelTemplate::defaultTemplate().name, u"Standaard Etiket"_s);
        QCOMPARE(Dossier::defaultDossier().name, u"Standaard Dossier"_s);
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

    void writtenFormHasSortedKeysAndPlainNumbers()
    {
        const QUuid id = QUuid::fromString(u"0f8fad5b-d9cb-469f-a165-70867728950e"_s);
        SettingsData data;
        data.bookyear = u"2026"_s;
        data.dossiers = {Dossier{id, u"D"_s, u"k"_s}};
        data.templates = {};
        data.selectedTemplateID = id;
        data.settingsWindowWidth = 100000;
        data.columnWidthName = 123.5;
        QCOMPARE(data.write(), QByteArray(R"({
    "bookyear": "2026",
    "columnWidthBarcode": 130,
    "columnWidthCheckbox": 30,
    "columnWidthName": 123.5,
    "columnWidthPrice": 100,
    "columnWidthSKU": 120,
    "dossiers": [
        {
            "apiKey": "k",
            "id": "0F8FAD5B-D9CB-469F-A165-70867728950E",
            "name": "D"
        }
    ],
    "printers": [
    ],
    "selectedTemplateID": "0F8FAD5B-D9CB-469F-A165-70867728950E",
    "settingsWindowHeight": 700,
    "settingsWindowWidth": 100000,
    "templates": [
    ]
}
)"));
    }

    void unreadableDocuments_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("mentioned");
        QTest::newRow("not JSON") << QByteArray("bookyear = 2024") << QString();
        QTest::newRow("bookyear a number") << QByteArray(R"({"bookyear":2024})") << u"bookyear"_s;
        QTest::newRow("apiKey null")
            << inList("dossiers", R"("name":"D","apiKey":null)") << u"dossiers[0]: \"apiKey\""_s;
        QTest::newRow("id with braces")
            << QByteArray(R"({"dossiers":[{"id":"{0F8FAD5B-D9CB-469F-A165-70867728950E}",)"
                          R"("name":"D","apiKey":""}]})")
            << u"\"id\""_s;
        QTest::newRow("zplContent missing")
            << inList("templates", R"("name":"T")") << u"templates[0]: \"zplContent\""_s;
    }

    void unreadableDocuments()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, mentioned);
        QString error;
        QVERIFY(!SettingsData::read(json, &error));
        QVERIFY2(!error.isEmpty() && error.contains(mentioned), qPrintable(error));
    }
};

QTEST_GUILESS_MAIN(TestSettingsData)
#include "tst_SettingsData.moc"

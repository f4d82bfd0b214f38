#include "model/Dossier.h"
#include "model/LabelTemplate.h"
#include "model/Printer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString kPrinterIDText = u"0F8FAD5B-D9CB-469F-A165-70867728950E"_s;

QJsonValue parse(const QByteArray& json)
{
    return QJsonDocument::fromJson("[" + json + "]").array().at(0);
}

} // namespace

class TestSettingsRecords : public QObject
{
    Q_OBJECT

private slots:
    void uuidsAreWrittenUpperCaseAndReadInEitherCase();
    void templateOptionalsAndLegacyFields();
    void unreadableRecords_data();
    void unreadableRecords();
    void equalityAndHashCoverEveryField();
    void defaultRecords();
};

void TestSettingsRecords::uuidsAreWrittenUpperCaseAndReadInEitherCase()
{
    const QUuid id = QUuid::fromString(kPrinterIDText);
    const Printer printer{id, u"P"_s, u"h"_s, 9100};
    QCOMPARE(printer.toJson().value(u"id"_s).toString(), kPrinterIDText);

    const QByteArray lower = R"({"id":")" + kPrinterIDText.toLower().toUtf8() +
                             R"(","name":"P","ipAddress":"h","port":9100})";
    const auto read = Printer::fromJson(parse(lower), nullptr);
    QVERIFY(read);
    QCOMPARE(read->id, id);
}

void TestSettingsRecords::templateOptionalsAndLegacyFields()
{
    const auto legacy = LabelTemplate::fromJson(
        parse(R"({"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"T","zplContent":"z",
                  "printerID":null,"printerIP":"192.168.1.50","printerPort":9101})"),
        nullptr);
    QVERIFY(legacy);
    QVERIFY(!legacy->printerID);
    QCOMPARE(legacy->printerIP, u"192.168.1.50"_s);
    QCOMPARE(legacy->printerPort, 9101);

    // Neither the absent printer nor the legacy fields are written.
    QCOMPARE(legacy->toJson().keys(), (QStringList{u"id"_s, u"name"_s, u"zplContent"_s}));

    const auto bare = LabelTemplate::fromJson(
        parse(R"({"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"T","zplContent":"z"})"),
        nullptr);
    QVERIFY(bare);
    QVERIFY(!bare->printerID && !bare->printerIP && !bare->printerPort);
}

void TestSettingsRecords::unreadableRecords_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("failingKey");

    const QByteArray id = R"("id":"0F8FAD5B-D9CB-469F-A165-70867728950E")";
    QTest::newRow("port as text") << u"printer"_s
                                  << "{" + id + R"(,"name":"P","ipAddress":"h","port":"9100"})"
                                  << u"port"_s;
    QTest::newRow("port with a fraction")
        << u"printer"_s << "{" + id + R"(,"name":"P","ipAddress":"h","port":9100.5})" << u"port"_s;
    QTest::newRow("port missing") << u"printer"_s << "{" + id + R"(,"name":"P","ipAddress":"h"})"
                                  << u"port"_s;
    QTest::newRow("apiKey null") << u"dossier"_s << "{" + id + R"(,"name":"D","apiKey":null})"
                                 << u"apiKey"_s;
    QTest::newRow("id missing") << u"dossier"_s << QByteArray(R"({"name":"D","apiKey":""})")
                                << u"id"_s;
    QTest::newRow("id not a UUID")
        << u"dossier"_s << QByteArray(R"({"id":"not-a-uuid","name":"D","apiKey":""})") << u"id"_s;
    QTest::newRow("id with braces")
        << u"dossier"_s
        << QByteArray(R"({"id":"{0F8FAD5B-D9CB-469F-A165-70867728950E}","name":"D","apiKey":""})")
        << u"id"_s;
    QTest::newRow("name a number")
        << u"dossier"_s << "{" + id + R"(,"name":5,"apiKey":""})" << u"name"_s;
    QTest::newRow("printerID a number")
        << u"template"_s << "{" + id + R"(,"name":"T","zplContent":"z","printerID":7})"
        << u"printerID"_s;
    QTest::newRow("printerPort as text")
        << u"template"_s << "{" + id + R"(,"name":"T","zplContent":"z","printerPort":"9100"})"
        << u"printerPort"_s;
    QTest::newRow("zplContent null")
        << u"template"_s << "{" + id + R"(,"name":"T","zplContent":null})" << u"zplContent"_s;
    QTest::newRow("not an object") << u"printer"_s << QByteArray(R"("printer")") << QString();
}

void TestSettingsRecords::unreadableRecords()
{
    QFETCH(QString, kind);
    QFETCH(QByteArray, json);
    QFETCH(QString, failingKey);

    const QJsonValue value = parse(json);
    QVERIFY2(!value.isUndefined(), json.constData());
    QString error;
    bool read = true;
    if (kind == u"printer")
        read = Printer::fromJson(value, &error).has_value();
    else if (kind == u"dossier")
        read = Dossier::fromJson(value, &error).has_value();
    else
        read = LabelTemplate::fromJson(value, &error).has_value();
    QVERIFY(!read);
    QVERIFY(!error.isEmpty());
    if (!failingKey.isEmpty())
        QVERIFY2(error.contains(u'"' + failingKey + u'"'), qPrintable(error));
}

void TestSettingsRecords::equalityAndHashCoverEveryField()
{
    const Dossier dossier{QUuid::createUuid(), u"A"_s, u"k"_s};
    Dossier renamed = dossier;
    QCOMPARE(renamed, dossier);
    QCOMPARE(qHash(renamed), qHash(dossier));
    renamed.name = u"B"_s;
    QVERIFY(renamed != dossier);
    QVERIFY(qHash(renamed) != qHash(dossier));

    const Printer printer{QUuid::createUuid(), u"P"_s, u"h"_s, 9100};
    Printer otherPort = printer;
    otherPort.port = 9101;
    QVERIFY(otherPort != printer);
    QVERIFY(qHash(otherPort) != qHash(printer));

    // An absent legacy field differs from a present empty one.
    const LabelTemplate labelTemplate{QUuid::createUuid(), u"T"_s, u"z"_s, {}, {}, {}};
    LabelTemplate withLegacy = labelTemplate;
    withLegacy.printerIP = QString();
    QVERIFY(withLegacy != labelTemplate);
    QVERIFY(qHash(withLegacy) != qHash(labelTemplate));
}

void TestSettingsRecords::defaultRecords()
{
    // Fixed ids (the same records on every start) are checked through the store's defaults.
    QVERIFY(!Dossier::defaultDossier().id.isNull());
    QCOMPARE(Dossier::defaultDossier().name, u"Standaard Dossier"_s);
    QVERIFY(Dossier::defaultDossier().apiKey.isEmpty());

    const LabelTemplate& labelTemplate = LabelTemplate::defaultTemplate();
    QCOMPARE(labelTemplate.name, u"Standaard Etiket"_s);
    QVERIFY(!labelTemplate.printerID && !labelTemplate.printerIP && !labelTemplate.printerPort);
}

QTEST_GUILESS_MAIN(TestSettingsRecords)
#include "TestSettingsRecords.moc"

#include "services/Product.h"

#include "services/ProductAPIResponse.h"

#include <QJsonDocument>
#include <QSet>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

std::optional<Product> decodeProduct(const QByteArray& json, QString* error = nullptr)
{
    return Product::fromJson(QJsonDocument::fromJson("[" + json + "]").array().at(0), error);
}

} // namespace

class ProductTest : public QObject
{
    Q_OBJECT

private slots:
    void decodesOnlyStrictTypes_data();
    void decodesOnlyStrictTypes();
    void absentAndEmptyTextsDiffer();
    void envelope_data();
    void envelope();
    void equalityAndHashing();
    void encodingLeavesAbsentMembersOut();
};

void ProductTest::decodesOnlyStrictTypes_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("decodes");

    QTest::newRow("ID only") << QByteArray(R"({"ID":7})") << true;
    QTest::newRow("ID integral double") << QByteArray(R"({"ID":7.0})") << true;
    QTest::newRow("ID largest int64") << QByteArray(R"({"ID":9223372036854775807})") << true;
    QTest::newRow("extra keys") << QByteArray(R"({"ID":1,"Stock":3,"sku":5})") << true;
    QTest::newRow("integer price") << QByteArray(R"({"ID":1,"SellPrice1WithVat":12})") << true;
    QTest::newRow("nulls") << QByteArray(R"({"ID":1,"Name":null,"Active":null})") << true;

    QTest::newRow("ID missing") << QByteArray(R"({"Name":"x"})") << false;
    QTest::newRow("ID null") << QByteArray(R"({"ID":null})") << false;
    QTest::newRow("ID fraction") << QByteArray(R"({"ID":7.5})") << false;
    QTest::newRow("ID string") << QByteArray(R"({"ID":"7"})") << false;
    QTest::newRow("ID beyond int64") << QByteArray(R"({"ID":1e20})") << false;
    QTest::newRow("price as text") << QByteArray(R"({"ID":1,"SellPrice1WithVat":"12"})") << false;
    QTest::newRow("active as number") << QByteArray(R"({"ID":1,"Active":1})") << false;
    QTest::newRow("sku as number") << QByteArray(R"({"ID":1,"Sku":5})") << false;
    QTest::newRow("not an object") << QByteArray(R"([1])") << false;
}

void ProductTest::decodesOnlyStrictTypes()
{
    QFETCH(QByteArray, json);
    QFETCH(bool, decodes);
    QString error;
    const std::optional<Product> product = decodeProduct(json, &error);
    QCOMPARE(product.has_value(), decodes);
    QCOMPARE(error.isEmpty(), decodes);
}

void ProductTest::absentAndEmptyTextsDiffer()
{
    const std::optional<Product> bare = decodeProduct(R"({"ID":7,"Name":null})");
    QVERIFY(bare);
    QCOMPARE(bare->id(), 7);
    QCOMPARE(bare->displayName(), u"Unknown"_s);
    QCOMPARE(bare->sku(), QString());
    QCOMPARE(bare->barcode(), QString());
    QCOMPARE(bare->sortablePrice(), 0.0);
    QVERIFY(!bare->Active);

    const std::optional<Product> empty =
        decodeProduct(R"({"ID":7,"Name":"","SellPrice1WithVat":12,"Active":false})");
    QVERIFY(empty);
    QVERIFY(empty->Name);
    QCOMPARE(empty->displayName(), QString());
    QCOMPARE(empty->sortablePrice(), 12.0);
    QCOMPARE(empty->Active, false);
    QVERIFY(*bare != *empty);

    const std::optional<Product> huge = decodeProduct(R"({"ID":9223372036854775807})");
    QVERIFY(huge);
    QCOMPARE(huge->ID, std::numeric_limits<qint64>::max());
}

void ProductTest::envelope_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("decodes");
    QTest::addColumn<int>("products"); // -1: no "data"

    QTest::newRow("empty object") << QByteArray("{}") << true << -1;
    QTest::newRow("null data") << QByteArray(R"({"data":null,"records":null})") << true << -1;
    QTest::newRow("empty data") << QByteArray(R"({"data":[]})") << true << 0;
    QTest::newRow("unknown keys") << QByteArray(R"({"data":[{"ID":1}],"page":{"n":1}})") << true
                                  << 1;
    QTest::newRow("one bad product fails all")
        << QByteArray(R"({"data":[{"ID":1},{"ID":"2"},{"ID":3}]})") << false << 0;
    QTest::newRow("records fraction") << QByteArray(R"({"records":2.5})") << false << 0;
    QTest::newRow("error not text") << QByteArray(R"({"error":5})") << false << 0;
    QTest::newRow("data not a list") << QByteArray(R"({"data":{"ID":1}})") << false << 0;
    QTest::newRow("top level list") << QByteArray(R"([{"ID":1}])") << false << 0;
    QTest::newRow("not JSON") << QByteArray("Service Unavailable") << false << 0;
    QTest::newRow("empty body") << QByteArray() << false << 0;
}

void ProductTest::envelope()
{
    QFETCH(QByteArray, body);
    QFETCH(bool, decodes);
    QFETCH(int, products);
    QString error;
    const std::optional<ProductAPIResponse> response = ProductAPIResponse::decode(body, &error);
    QCOMPARE(response.has_value(), decodes);
    if (!decodes) {
        QVERIFY(!error.isEmpty());
        return;
    }
    QCOMPARE(response->data.has_value(), products >= 0);
    if (response->data)
        QCOMPARE(response->data->size(), products);
}

void ProductTest::equalityAndHashing()
{
    Product plusZero;
    plusZero.ID = 1;
    plusZero.SellPrice1WithVat = 0.0;
    Product minusZero = plusZero;
    minusZero.SellPrice1WithVat = -0.0;
    QCOMPARE(plusZero, minusZero);
    QCOMPARE(qHash(plusZero), qHash(minusZero));

    Product noPrice = plusZero;
    noPrice.SellPrice1WithVat.reset();
    QVERIFY(noPrice != plusZero);

    Product renamed = plusZero;
    renamed.Name = u"Ander"_s;
    QVERIFY(renamed != plusZero);
    QCOMPARE(renamed.id(), plusZero.id());

    const QSet<Product> set{plusZero, minusZero, noPrice, renamed};
    QCOMPARE(set.size(), 3);
}

void ProductTest::encodingLeavesAbsentMembersOut()
{
    Product bare;
    bare.ID = 5;
    QCOMPARE(bare.toJson().keys(), QStringList{u"ID"_s});

    Product full;
    full.ID = 9007199254740993; // not representable as a double
    full.Sku = u"S"_s;
    full.Name = u""_s;
    full.Description = u"D"_s;
    full.SellPrice1WithVat = 2.25;
    full.BarCode = u"B"_s;
    full.Active = true;
    const QByteArray json = QJsonDocument(full.toJson()).toJson();
    QCOMPARE(Product::fromJson(QJsonDocument::fromJson(json).object(), nullptr), full);
}

QTEST_GUILESS_MAIN(ProductTest)
#include "ProductTest.moc"

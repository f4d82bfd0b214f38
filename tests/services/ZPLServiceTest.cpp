#include "services/ZPLService.h"

#include <QLocale>
#include <QtTest>
#include <clocale>
#include <string>

using namespace Qt::StringLiterals;

namespace {

Product fullProduct()
{
    Product product;
    product.ID = 42;
    product.Sku = u"SKU-9"_s;
    product.Name = u"Zeep"_s;
    product.Description = u"Lavendel, 250 ml"_s;
    product.SellPrice1WithVat = 3.5;
    product.BarCode = u"8711111111111"_s;
    return product;
}

Product withPrice(std::optional<double> price)
{
    Product product;
    product.SellPrice1WithVat = price;
    return product;
}

} // namespace

class ZPLServiceTest : public QObject
{
    Q_OBJECT

private slots:
    void fillsTemplates_data();
    void fillsTemplates();
    void pricesUseAPointWhateverTheLocale();
    void everyListedPlaceholderIsFilled();
    void previewUsesTheSampleValues();
    void validationMessagesInOrder_data();
    void validationMessagesInOrder();

private:
    ZPLService m_service;
};

void ZPLServiceTest::fillsTemplates_data()
{
    QTest::addColumn<Product>("product");
    QTest::addColumn<QString>("zplTemplate");
    QTest::addColumn<QString>("expected");

    const Product full = fullProduct();
    Product bare;
    bare.ID = 7;
    Product emptyTexts = bare;
    emptyTexts.Name = u""_s;
    emptyTexts.Sku = u""_s;

    QTest::newRow("all five")
        << full << u"^XA{{ARTIKELNR}}|{{NAAM}}|{{PRIJS}}|{{OMSCHRIJVING}}|{{BARCODE}}^XZ"_s
        << u"^XASKU-9|Zeep|3.50|Lavendel, 250 ml|8711111111111^XZ"_s;
    QTest::newRow("no placeholders") << full << u"^XA^FDvast^FS^XZ"_s << u"^XA^FDvast^FS^XZ"_s;
    QTest::newRow("repeated") << full << u"{{NAAM}}-{{NAAM}}"_s << u"Zeep-Zeep"_s;
    QTest::newRow("absent fields")
        << bare << u"[{{ARTIKELNR}}|{{NAAM}}|{{PRIJS}}|{{BARCODE}}]"_s << u"[|Unknown|-|]"_s;
    QTest::newRow("present but empty") << emptyTexts << u"[{{ARTIKELNR}}|{{NAAM}}]"_s << u"[|]"_s;
    QTest::newRow("lower case untouched")
        << full << u"{{naam}} {{Naam}} {{NAAM}}"_s << u"{{naam}} {{Naam}} Zeep"_s;
    QTest::newRow("unknown token untouched")
        << full << u"{{PRIJS_EXCL}} {{ PRIJS }}"_s << u"{{PRIJS_EXCL}} {{ PRIJS }}"_s;
    QTest::newRow("values verbatim") << [] {
        Product product = fullProduct();
        product.Name = u"  Crème ^FS brûlée\n"_s;
        return product;
    }() << u"^FD{{NAAM}}^FS"_s << u"^FD  Crème ^FS brûlée\n^FS"_s;

    // Each step works on the result of the one before.
    Product skuNamesName = full;
    skuNamesName.Sku = u"{{NAAM}}"_s;
    QTest::newRow("sku holding a later placeholder")
        << skuNamesName << u"{{ARTIKELNR}}"_s << u"Zeep"_s;
    Product nameNamesSku = full;
    nameNamesSku.Name = u"{{ARTIKELNR}}"_s;
    QTest::newRow("name holding an earlier placeholder")
        << nameNamesSku << u"{{NAAM}}"_s << u"{{ARTIKELNR}}"_s;

    QTest::newRow("price rounds up") << withPrice(19.999) << u"{{PRIJS}}"_s << u"20.00"_s;
    QTest::newRow("price zero") << withPrice(0.0) << u"{{PRIJS}}"_s << u"0.00"_s;
    QTest::newRow("price negative") << withPrice(-3.0) << u"{{PRIJS}}"_s << u"-3.00"_s;
    QTest::newRow("price one decimal") << withPrice(12.5) << u"{{PRIJS}}"_s << u"12.50"_s;
    QTest::newRow("price large, no grouping")
        << withPrice(1234567.891) << u"{{PRIJS}}"_s << u"1234567.89"_s;
    QTest::newRow("price absent") << withPrice(std::nullopt) << u"{{PRIJS}}"_s << u"-"_s;
}

void ZPLServiceTest::fillsTemplates()
{
    QFETCH(Product, product);
    QFETCH(QString, zplTemplate);
    QFETCH(QString, expected);
    QCOMPARE(m_service.generateZPL(product, zplTemplate), expected);
}

void ZPLServiceTest::pricesUseAPointWhateverTheLocale()
{
    const QLocale previousLocale;
    const std::string previousC = std::setlocale(LC_NUMERIC, nullptr);
    QLocale::setDefault(QLocale(QLocale::Dutch, QLocale::Netherlands));
    // Use a comma-decimal C locale as well when the system has one.
    for (const char* name : {"nl_NL.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8"}) {
        if (std::setlocale(LC_NUMERIC, name))
            break;
    }

    const QString filled = m_service.generateZPL(withPrice(1234.5), u"{{PRIJS}}"_s);
    const QString rounded = m_service.generateZPL(withPrice(19.999), u"{{PRIJS}}"_s);

    std::setlocale(LC_NUMERIC, previousC.c_str());
    QLocale::setDefault(previousLocale);
    QCOMPARE(filled, u"1234.50"_s);
    QCOMPARE(rounded, u"20.00"_s);
}

void ZPLServiceTest::everyListedPlaceholderIsFilled()
{
    const auto& table = ZPLService::placeholders();
    QCOMPARE(table.size(), 5);
    for (auto it = table.cbegin(); it != table.cend(); ++it) {
        QVERIFY(!it.value().isEmpty());
        QVERIFY2(m_service.generateZPL(fullProduct(), it.key()) != it.key(), qPrintable(it.key()));
        QVERIFY2(m_service.previewZPL(it.key()) != it.key(), qPrintable(it.key()));
    }
}

void ZPLServiceTest::previewUsesTheSampleValues()
{
    QCOMPARE(
        m_service.previewZPL(
            u"^XA{{ARTIKELNR}}|{{NAAM}}|{{PRIJS}}|{{OMSCHRIJVING}}|{{BARCODE}}|{{prijs}}^XZ"_s),
        u"^XATEST-001|Voorbeeld Product|19,99|Voorbeeld omschrijving|1234567890123|{{prijs}}^XZ"_s);
}

void ZPLServiceTest::validationMessagesInOrder_data()
{
    const QString noStart = u"Ontbreekt ^XA (etiket start)"_s;
    const QString noEnd = u"Ontbreekt ^XZ (etiket einde)"_s;
    const QString noPlaceholder =
        u"Geen placeholders gevonden. Gebruik {{ARTIKELNR}}, {{NAAM}}, of {{PRIJS}}"_s;

    QTest::addColumn<QString>("zplTemplate");
    QTest::addColumn<QStringList>("errors");
    QTest::newRow("empty") << QString() << QStringList{noStart, noEnd, noPlaceholder};
    QTest::newRow("frame only") << u"^XA^XZ"_s << QStringList{noPlaceholder};
    QTest::newRow("barcode alone suffices") << u"^XA{{BARCODE}}^XZ"_s << QStringList{};
    QTest::newRow("description alone suffices") << u"^XA{{OMSCHRIJVING}}^XZ"_s << QStringList{};
    QTest::newRow("order of commands irrelevant") << u"^XZ{{NAAM}}^XA"_s << QStringList{};
    QTest::newRow("lower case commands") << u"^xa{{NAAM}}^xz"_s << QStringList{noStart, noEnd};
    QTest::newRow("lower case placeholder") << u"^XA{{naam}}^XZ"_s << QStringList{noPlaceholder};
    QTest::newRow("end missing") << u"^XA{{PRIJS}}"_s << QStringList{noEnd};
}

void ZPLServiceTest::validationMessagesInOrder()
{
    QFETCH(QString, zplTemplate);
    QFETCH(QStringList, errors);
    const ZPLService::Validation validation = m_service.validateTemplate(zplTemplate);
    QCOMPARE(validation.errors, errors);
    QCOMPARE(validation.isValid, errors.isEmpty());
}

QTEST_GUILESS_MAIN(ZPLServiceTest)
#include "ZPLServiceTest.moc"

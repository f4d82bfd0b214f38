#include "services/ZPLService.h"

#include <QLocale>
#include <QtTest>
#include <clocale>

using namespace Qt::StringLiterals;

namespace {

Product product(std::optional<QString> sku, std::optional<QString> name,
                std::optional<double> price = 3.5)
{
    return {42, std::move(sku), std::move(name), u"Lavendel, 250 ml"_s, price, u"8711111111111"_s,
            {}};
}

} // namespace

class ZPLServiceTest : public QObject
{
    Q_OBJECT

private slots:
    // Prices use a point and no grouping, whatever Qt's locale or the C library's
    // (which the application takes from the environment) say.
    void initTestCase()
    {
        QLocale::setDefault(QLocale(QLocale::Dutch, QLocale::Netherlands));
        for (const char* name : {"nl_NL.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8"}) {
            if (std::setlocale(LC_NUMERIC, name))
                break;
        }
    }
    void fillsTemplates_data()
    {
        QTest::addColumn<Product>("product");
        QTest::addColumn<QString>("zplTemplate");
        QTest::addColumn<QString>("expected");
        const Product zeep = product(u"SKU-9"_s, u"Zeep"_s);
        Product bare;
        bare.ID = 7;

        QTest::newRow("all five")
            << zeep << u"^XA{{ARTIKELNR}}|{{NAAM}}|{{PRIJS}}|{{OMSCHRIJVING}}|{{BARCODE}}^XZ"_s
            << u"^XASKU-9|Zeep|3.50|Lavendel, 250 ml|8711111111111^XZ"_s;
        QTest::newRow("absent fields")
            << bare << u"[{{ARTIKELNR}}|{{NAAM}}|{{PRIJS}}|{{BARCODE}}]"_s << u"[|Unknown|-|]"_s;
        QTest::newRow("present but empty")
            << product(u""_s, u""_s) << u"[{{ARTIKELNR}}|{{NAAM}}]"_s << u"[|]"_s;
        QTest::newRow("other spellings untouched")
            << zeep << u"{{naam}} {{ PRIJS }} {{PRIJS_EXCL}}"_s
            << u"{{naam}} {{ PRIJS }} {{PRIJS_EXCL}}"_s;
        QTest::newRow("values verbatim") << product({}, u"  Crème ^FS brûlée\n"_s)
                                         << u"^FD{{NAAM}}^FS"_s << u"^FD  Crème ^FS brûlée\n^FS"_s;
        // Each step works on the result of the one before.
        QTest::newRow("sku holding a later placeholder")
            << product(u"{{NAAM}}"_s, u"Zeep"_s) << u"{{ARTIKELNR}}"_s << u"Zeep"_s;
        QTest::newRow("name holding an earlier placeholder")
            << product(u"S"_s, u"{{ARTIKELNR}}"_s) << u"{{NAAM}}"_s << u"{{ARTIKELNR}}"_s;
        QTest::newRow("price rounds up") << product({}, {}, 19.999) << u"{{PRIJS}}"_s << u"20.00"_s;
        QTest::newRow("price large, no grouping")
            << product({}, {}, 1234567.891) << u"{{PRIJS}}"_s << u"1234567.89"_s;
    }

    void fillsTemplates()
    {
        QFETCH(Product, product);
        QFETCH(QString, zplTemplate);
        QFETCH(QString, expected);
        QCOMPARE(m_service.generateZPL(product, zplTemplate).value_or(u"<geen>"_s), expected);
    }

    void previewFillsTheSampleValues()
    {
        QCOMPARE(
            m_service
                .previewZPL(
                    u"^XA{{ARTIKELNR}}|{{NAAM}}|{{PRIJS}}|{{OMSCHRIJVING}}|{{BARCODE}}|{{prijs}}^XZ"_s)
                .value(),
            u"^XATEST-001|Voorbeeld Product|19,99|Voorbeeld omschrijving|1234567890123|{{prijs}}^XZ"_s);
    }

    void validationMessagesInOrder_data()
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
        QTest::newRow("order of commands irrelevant")
            << u"^XZ{{OMSCHRIJVING}}^XA"_s << QStringList{};
        QTest::newRow("lower case commands") << u"^xa{{NAAM}}^xz"_s << QStringList{noStart, noEnd};
        QTest::newRow("lower case placeholder")
            << u"^XA{{naam}}^XZ"_s << QStringList{noPlaceholder};
    }

    void validationMessagesInOrder()
    {
        QFETCH(QString, zplTemplate);
        QFETCH(QStringList, errors);
        const ZPLService::Validation validation = m_service.validateTemplate(zplTemplate);
        QCOMPARE(validation.errors, errors);
        QCOMPARE(validation.isValid, errors.isEmpty());
    }

private:
    ZPLService m_service;
};

QTEST_GUILESS_MAIN(ZPLServiceTest)
#include "tst_ZPLService.moc"

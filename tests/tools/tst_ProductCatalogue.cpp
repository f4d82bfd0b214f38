#include "ProductCatalogue.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Independent of the catalogue's own helper: weights 1 and 3 from the left.
bool isValidEan13(const QString& code)
{
    if (code.size() != 13)
        return false;
    int sum = 0;
    for (int i = 0; i < 13; ++i) {
        if (!code[i].isDigit())
            return false;
        sum += code[i].digitValue() * (i % 2 == 0 ? 1 : 3);
    }
    return sum % 10 == 0;
}

bool hasNonAscii(const QString& text)
{
    return std::any_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() > 127; });
}

} // namespace

class ProductCatalogueTest : public QObject
{
    Q_OBJECT

private slots:
    void sameProductsEveryTimeAndAcrossSizes();
    void checkDigitOfKnownCodes();
    void barcodesAreValidAndKeysUnique();
    void showsTheProgramsFallbacksAndNumericSort();
    void pagesFollowOffsetAndLimit();
    void largeCatalogueForLoadTests();
};

void ProductCatalogueTest::sameProductsEveryTimeAndAcrossSizes()
{
    const ProductCatalogue first;
    const ProductCatalogue second;
    const ProductCatalogue large(5000);
    QCOMPARE(first.size(), ProductCatalogue::kDefaultSize);
    for (qsizetype i = 0; i < first.size(); ++i) {
        QCOMPARE(first.product(i), second.product(i));
        QCOMPARE(first.product(i), large.product(i));
    }
    // A sample of fields pinned down, so a change of the generator shows up here.
    const Product sample = first.product(5);
    QCOMPARE(sample.ID, 1006);
    QCOMPARE(sample.Sku, u"KEU-6"_s);
    QCOMPARE(sample.Name, u"Café-kopje met schotel antraciet"_s);
    QCOMPARE(sample.BarCode, u"8712345000059"_s);
    QCOMPARE(sample.SellPrice1WithVat, 6.95);
}

void ProductCatalogueTest::checkDigitOfKnownCodes()
{
    QCOMPARE(ProductCatalogue::ean13CheckDigit(u"400638133393"), 1);
    QCOMPARE(ProductCatalogue::ean13CheckDigit(u"871234500000"), 4);
    QCOMPARE(ProductCatalogue::ean13CheckDigit(u"978020137962"), 4);
}

void ProductCatalogueTest::barcodesAreValidAndKeysUnique()
{
    const ProductCatalogue catalogue;
    QSet<qint64> ids;
    QSet<QString> skus, names, barcodes;
    const auto unique = [](QSet<QString>& seen, const std::optional<QString>& value) {
        if (!value)
            return true;
        const qsizetype before = seen.size();
        seen.insert(*value);
        return seen.size() > before;
    };
    for (qsizetype i = 0; i < catalogue.size(); ++i) {
        const Product product = catalogue.product(i);
        QVERIFY(!ids.contains(product.ID));
        ids.insert(product.ID);
        QVERIFY2(unique(skus, product.Sku), qPrintable(*product.Sku));
        QVERIFY2(unique(names, product.Name), qPrintable(*product.Name));
        QVERIFY2(unique(barcodes, product.BarCode), qPrintable(*product.BarCode));
        if (product.BarCode) {
            QVERIFY2(isValidEan13(*product.BarCode), qPrintable(*product.BarCode));
            QVERIFY2(product.BarCode->startsWith(u"87"_s), qPrintable(*product.BarCode));
        }
    }
    QVERIFY(barcodes.size() > catalogue.size() * 9 / 10);
}

void ProductCatalogueTest::showsTheProgramsFallbacksAndNumericSort()
{
    const ProductCatalogue catalogue;
    int withoutName = 0, withoutPrice = 0, withoutSku = 0, bare = 0, inactive = 0, accented = 0,
        integralPrice = 0;
    QMap<QString, QSet<int>> digitCounts; // article number prefix -> lengths of its digit run
    static const QRegularExpression skuPattern(u"^([A-Z]+)-(\\d+)$"_s);
    for (qsizetype i = 0; i < catalogue.size(); ++i) {
        const Product p = catalogue.product(i);
        withoutName += !p.Name;
        withoutPrice += !p.SellPrice1WithVat;
        withoutSku += !p.Sku;
        bare += !p.Name && !p.Sku && !p.SellPrice1WithVat && !p.BarCode && !p.Description;
        inactive += p.Active == false;
        accented += p.Name && hasNonAscii(*p.Name);
        integralPrice +=
            p.SellPrice1WithVat && *p.SellPrice1WithVat == std::floor(*p.SellPrice1WithVat);
        if (p.Sku) {
            const QRegularExpressionMatch match = skuPattern.match(*p.Sku);
            QVERIFY2(match.hasMatch(), qPrintable(*p.Sku));
            digitCounts[match.captured(1)].insert(match.captured(2).size());
        }
    }
    QVERIFY(withoutName >= 3);
    QVERIFY(withoutPrice >= 3);
    QVERIFY(withoutSku >= 3);
    QVERIFY(bare >= 1);
    QVERIFY(inactive >= 1);
    QVERIFY(accented >= 30);
    QVERIFY(integralPrice >= 1);
    // At least one prefix runs through one, two and three digits: 9 < 10 < 100
    // only when sorted by number.
    QVERIFY(std::any_of(digitCounts.cbegin(), digitCounts.cend(), [](const QSet<int>& lengths) {
        return lengths == QSet<int>{1, 2, 3};
    }));
}

void ProductCatalogueTest::pagesFollowOffsetAndLimit()
{
    const ProductCatalogue catalogue(120);
    const QList<Product> middle = catalogue.page(50, 20);
    QCOMPARE(middle.size(), 20);
    QCOMPARE(middle.constFirst(), catalogue.product(50));
    QCOMPARE(middle.constLast(), catalogue.product(69));
    QCOMPARE(catalogue.page(110, 1000).size(), 10);
    QVERIFY(catalogue.page(120, 10).isEmpty());
    QVERIFY(catalogue.page(0, 0).isEmpty());
    QVERIFY(catalogue.page(-1, 10).isEmpty());
    QCOMPARE(catalogue.page(0, std::numeric_limits<qint64>::max()).size(), 120);
    QVERIFY(ProductCatalogue(0).page(0, 10).isEmpty());
}

void ProductCatalogueTest::largeCatalogueForLoadTests()
{
    const ProductCatalogue catalogue(100'000);
    QCOMPARE(catalogue.size(), 100'000);
    const QList<Product> tail = catalogue.page(99'990, 1000);
    QCOMPARE(tail.size(), 10);
    QCOMPARE(tail.constLast().ID, ProductCatalogue::kFirstID + 99'999);
    QSet<QString> barcodes;
    for (qsizetype i = 0; i < catalogue.size(); i += 7) {
        const Product p = catalogue.product(i);
        if (p.BarCode) {
            QVERIFY(isValidEan13(*p.BarCode));
            barcodes.insert(*p.BarCode);
        }
    }
    // Sampled codes are distinct too: the item number does not wrap below 100,000.
    QVERIFY(barcodes.size() > 100'000 / 7 * 9 / 10);
}

QTEST_GUILESS_MAIN(ProductCatalogueTest)
#include "tst_ProductCatalogue.moc"

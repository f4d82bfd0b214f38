#include "ProductWindowFixture.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/main/ProductSortProxy.h"
#include "views/main/ProductTableModel.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QApplication>
#include <QCoroTask>
#include <QFontDatabase>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;
using Fixture = ProductWindowFixture;
using Key = ProductSortProxy::SortKey;
using Tester = QAbstractItemModelTester;

Q_DECLARE_METATYPE(ProductSortProxy::SortKey)

namespace {

constexpr int kSKU = ProductTableModel::kSKUColumn;
constexpr int kName = ProductTableModel::kNameColumn;
constexpr int kPrice = ProductTableModel::kPriceColumn;
constexpr int kBarcode = ProductTableModel::kBarcodeColumn;

} // namespace

// The view model's products as table rows and their sorting, with Qt's model
// checker watching every reset, sort and check change.
struct Models
{
    Fixture fixture;
    std::unique_ptr<AppSettings> settings = fixture.makeConfiguredSettings();
    std::unique_ptr<ProductListViewModel> viewModel = fixture.makeViewModel();
    ProductTableModel table{*viewModel};
    ProductSortProxy proxy{table}; // takes the locale when made
    Tester tableTester{&table, Tester::FailureReportingMode::QtTest};
    Tester proxyTester{&proxy, Tester::FailureReportingMode::QtTest};
};

class ProductTableModelTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void cellsShowTheProductTexts();
    void checkCellsReportTheirStateToScreenReaders();
    void sortsArticleNumbersLikeAFileBrowser_data();
    void sortsArticleNumbersLikeAFileBrowser();
    void keysDecideInTurnEachInItsOwnOrder_data();
    void keysDecideInTurnEachInItsOwnOrder();
    void sortingFollowsNewRowsFromALoadOrASearch();

private:
    void load(const QList<Product>& products);
    QStringList column(int column) const;

    std::unique_ptr<Models> m;
};

void ProductTableModelTest::init()
{
    m = std::make_unique<Models>();
    QVERIFY(m->fixture.isReady());
    m->viewModel->setSettings(m->settings.get());
}

void ProductTableModelTest::cleanup()
{
    m.reset();
    QLocale::setDefault(QLocale::c());
}

void ProductTableModelTest::load(const QList<Product>& products)
{
    m->fixture.serveProducts(products);
    QCoro::waitFor(m->viewModel->fetchProducts());
    QVERIFY(!m->viewModel->errorMessage());
}

QStringList ProductTableModelTest::column(int column) const
{
    QStringList texts;
    for (int row = 0; row < m->proxy.rowCount(); ++row)
        texts.append(m->proxy.index(row, column).data().toString());
    return texts;
}

void ProductTableModelTest::cellsShowTheProductTexts()
{
    // The headers stand before any row does.
    QStringList headers;
    for (int column = 0; column < m->proxy.columnCount(); ++column)
        headers << m->proxy.headerData(column, Qt::Horizontal).toString();
    QCOMPARE(headers, (QStringList{u""_s, u"Artikel nr."_s, u"Omschrijving"_s, u"Verkoop incl."_s,
                                   u"Barcode"_s}));
    load({Fixture::product(1, u"A-1"_s, u"Hamer"_s, 12.5, u"8712345678906"_s),
          Fixture::product(2, {}, {}, std::nullopt),
          Fixture::product(3, u"N"_s, u"Korting"_s, -3)});
    QCOMPARE(column(kSKU), (QStringList{u""_s, u"A-1"_s, u"N"_s}));
    QCOMPARE(column(kName), (QStringList{u"Unknown"_s, u"Hamer"_s, u"Korting"_s}));
    QCOMPARE(column(kPrice), (QStringList{u"€ -"_s, u"€ 12.50"_s, u"€ -3.00"_s}));
    QCOMPARE(column(kBarcode), (QStringList{u""_s, u"8712345678906"_s, u""_s}));
    // Prices to the right; article numbers and barcodes in the desktop's fixed-pitch font.
    QStringList looks;
    for (int column : {kSKU, kName, kPrice, kBarcode}) {
        const QModelIndex cell = m->proxy.index(0, column);
        looks << u"%1 %2"_s.arg(cell.data(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask)
                     .arg(cell.data(Qt::FontRole).value<QFont>().family());
    }
    const QString fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    const QString body = QApplication::font().family();
    QCOMPARE(looks,
             (QStringList{u"1 "_s + fixed, u"1 "_s + body, u"2 "_s + body, u"1 "_s + fixed}));
}

void ProductTableModelTest::checkCellsReportTheirStateToScreenReaders()
{
    // Displayed as A, B, C: the products' rows in the view model differ from the table's.
    load({Fixture::product(1, u"B"_s, u"Een"_s), Fixture::product(2, u"A"_s, u"Twee"_s),
          Fixture::product(3, u"C"_s, u"Drie"_s)});
    QTableView view;
    view.setModel(&m->proxy);
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&view);
    QVERIFY(table && table->tableInterface());
    // Each check cell: its accessible name, its check state, and what a screen reader hears.
    const auto states = [table] {
        QStringList states;
        for (int row = 0; row < 3; ++row) {
            QAccessibleInterface* cell = table->tableInterface()->cellAt(row, 0);
            states << u"%1 %2 %3"_s.arg(cell->text(QAccessible::Name))
                          .arg(cell->state().checkable)
                          .arg(cell->state().checked);
        }
        return states;
    };
    QCOMPARE(states(), (QStringList{u"Twee 1 0"_s, u"Een 1 0"_s, u"Drie 1 0"_s}));
    m->viewModel->toggleChecked(m->viewModel->products().at(0));
    QCOMPARE(states(), (QStringList{u"Twee 1 0"_s, u"Een 1 1"_s, u"Drie 1 0"_s}));
}

void ProductTableModelTest::sortsArticleNumbersLikeAFileBrowser_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("skus");
    QTest::addColumn<QString>("sorted");
    // The tests run in the C locale, which has no language of its own.
    QTest::newRow("no language") << QLocale::c() << u"100 9 b-2  10 B-10 a-1 A-3"_s
                                 << u" 9 10 100 a-1 A-3 b-2 B-10"_s;
    QTest::newRow("Dutch") << QLocale(QLocale::Dutch, QLocale::Netherlands)
                           << u"Ü-20 u-3 V-1 U-100"_s << u"u-3 Ü-20 U-100 V-1"_s;
}

void ProductTableModelTest::sortsArticleNumbersLikeAFileBrowser()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, skus);
    QFETCH(QString, sorted);
    QLocale::setDefault(locale);
    init();
    QList<Product> products;
    for (const QString& sku : skus.split(u' '))
        products.append(Fixture::product(products.size() + 1, sku, u"x"_s));
    load(products);
    QCOMPARE(column(kSKU).join(u' '), sorted);
}

void ProductTableModelTest::keysDecideInTurnEachInItsOwnOrder_data()
{
    QTest::addColumn<QList<Key>>("keys");
    QTest::addColumn<QList<int>>("clicks"); // header clicks after the keys are set
    QTest::addColumn<QString>("skus");      // A to E are products 2, 1, 3, 4, 5
    QTest::newRow("name up, price down")
        << QList<Key>{{kName, Qt::AscendingOrder}, {kPrice, Qt::DescendingOrder}} << QList<int>()
        << u"BECDA"_s;
    QTest::newRow("ties left keep the service order, descending too")
        << QList<Key>{{kName, Qt::DescendingOrder}} << QList<int>() << u"ADBCE"_s;
    QTest::newRow("the check column is skipped")
        << QList<Key>{{ProductTableModel::kCheckColumn, Qt::DescendingOrder},
                      {kName, Qt::AscendingOrder}}
        << QList<int>() << u"BCEAD"_s;
    // A click puts its column first, ascending, or reverses the first; earlier keys
    // stay behind as tie-breakers, each in its own direction.
    QTest::newRow("clicks: name, name, price")
        << QList<Key>{{kSKU, Qt::AscendingOrder}} << QList<int>{kName, kName, kPrice} << u"ACDBE"_s;
}

void ProductTableModelTest::keysDecideInTurnEachInItsOwnOrder()
{
    QFETCH(QList<Key>, keys);
    QFETCH(QList<int>, clicks);
    QFETCH(QString, skus);
    // Names, prices and barcodes each repeat, so every key leaves ties for the next.
    load({Fixture::product(1, u"B"_s, u"Appel"_s, 2.0, u"3"_s),
          Fixture::product(2, u"A"_s, u"Peer"_s, 1.0, u"1"_s),
          Fixture::product(3, u"C"_s, u"Appel"_s, 1.0, u"2"_s),
          Fixture::product(4, u"D"_s, u"Peer"_s, 2.0, u"1"_s),
          Fixture::product(5, u"E"_s, u"Appel"_s, 2.0, u"1"_s)});
    // Shown in another order first: ties fall back on the service order, not on this one.
    m->proxy.setSortOrder({{kSKU, Qt::DescendingOrder}, {kName, Qt::AscendingOrder}});
    QCOMPARE(column(kSKU).join(QString()), u"EDCBA"_s);
    m->proxy.setSortOrder(keys);
    for (int column : clicks)
        m->proxy.promoteColumn(column);
    QCOMPARE(column(kSKU).join(QString()), skus);
}

void ProductTableModelTest::sortingFollowsNewRowsFromALoadOrASearch()
{
    load({Fixture::product(1, u"3"_s, u"x een"_s, 10.0), Fixture::product(2, u"1"_s, u"y twee"_s),
          Fixture::product(3, u"2"_s, u"y drie"_s, std::nullopt),
          Fixture::product(4, u"4"_s, u"y vier"_s, -1.0)});
    m->proxy.promoteColumn(kName);
    QCOMPARE(column(kSKU), (QStringList{u"3"_s, u"2"_s, u"1"_s, u"4"_s}));
    // Fewer rows, at other positions: the keys must follow their products.
    m->viewModel->setSearchText(u"y"_s);
    QCOMPARE(column(kName), (QStringList{u"y drie"_s, u"y twee"_s, u"y vier"_s}));
    // A missing price sorts as 0.
    m->proxy.promoteColumn(kPrice);
    QCOMPARE(column(kPrice), (QStringList{u"€ -1.00"_s, u"€ -"_s, u"€ 1.00"_s}));
    m->viewModel->setSearchText(QString());
    QCOMPARE(column(kPrice), (QStringList{u"€ -1.00"_s, u"€ -"_s, u"€ 1.00"_s, u"€ 10.00"_s}));

    // A new load under a name sort: names that sort the other way than the old ones did.
    m->proxy.promoteColumn(kName);
    load({Fixture::product(5, u"B"_s, u"nieuw z"_s), Fixture::product(6, u"C"_s, u"nieuw y"_s)});
    QCOMPARE(column(kSKU), (QStringList{u"C"_s, u"B"_s}));
}

QTEST_MAIN(ProductTableModelTest)
#include "tst_ProductTableModel.moc"

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
#include <QItemSelectionModel>
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
    void headerClicksPromoteAndReverse();
    void keysDecideInTurnEachInItsOwnOrder_data();
    void keysDecideInTurnEachInItsOwnOrder();
    void selectionFollowsItsProductThroughAResort();
    void sortingFollowsNewRowsFromALoadOrASearch();

private:
    void load(const QList<Product>& products);
    QStringList column(int column) const;
    QList<qint64> displayedIDs() const;
    void loadTieBreakCatalogue();

    std::unique_ptr<Fixture> m_fixture;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<ProductListViewModel> m_viewModel;
    std::unique_ptr<ProductTableModel> m_table;
    std::unique_ptr<ProductSortProxy> m_proxy;
    std::unique_ptr<Tester> m_tableTester;
    std::unique_ptr<Tester> m_proxyTester;
};

void ProductTableModelTest::init()
{
    m_fixture = std::make_unique<Fixture>();
    QVERIFY(m_fixture->isReady());
    m_settings = m_fixture->makeConfiguredSettings();
    m_viewModel = m_fixture->makeViewModel();
    m_viewModel->setSettings(m_settings.get());
    m_table = std::make_unique<ProductTableModel>(*m_viewModel);
    m_proxy = std::make_unique<ProductSortProxy>(*m_table);
    // Every test then also checks that resets, sorts and check changes keep the models sound.
    m_tableTester = std::make_unique<Tester>(m_table.get(), Tester::FailureReportingMode::QtTest);
    m_proxyTester = std::make_unique<Tester>(m_proxy.get(), Tester::FailureReportingMode::QtTest);
}

void ProductTableModelTest::cleanup()
{
    m_proxyTester.reset();
    m_tableTester.reset();
    m_proxy.reset();
    m_table.reset();
    m_viewModel.reset();
    m_settings.reset();
    m_fixture.reset();
    QLocale::setDefault(QLocale::c());
}

void ProductTableModelTest::load(const QList<Product>& products)
{
    m_fixture->serveProducts(products);
    QCoro::waitFor(m_viewModel->fetchProducts());
    QVERIFY(!m_viewModel->errorMessage());
}

QStringList ProductTableModelTest::column(int column) const
{
    QStringList texts;
    for (int row = 0; row < m_proxy->rowCount(); ++row)
        texts.append(m_proxy->index(row, column).data().toString());
    return texts;
}

QList<qint64> ProductTableModelTest::displayedIDs() const
{
    QList<qint64> ids;
    for (int row = 0; row < m_proxy->rowCount(); ++row)
        ids.append(m_proxy->productAt(row).ID);
    return ids;
}

// Names, prices and barcodes each repeat, so every key leaves ties for the next.
void ProductTableModelTest::loadTieBreakCatalogue()
{
    load({Fixture::product(1, u"B"_s, u"Appel"_s, 2.0, u"3"_s),
          Fixture::product(2, u"A"_s, u"Peer"_s, 1.0, u"1"_s),
          Fixture::product(3, u"C"_s, u"Appel"_s, 1.0, u"2"_s),
          Fixture::product(4, u"D"_s, u"Peer"_s, 2.0, u"1"_s),
          Fixture::product(5, u"E"_s, u"Appel"_s, 2.0, u"1"_s)});
}

void ProductTableModelTest::cellsShowTheProductTexts()
{
    // The headers stand before any row does.
    QStringList headers;
    for (int column = 0; column < m_proxy->columnCount(); ++column)
        headers << m_proxy->headerData(column, Qt::Horizontal).toString();
    QCOMPARE(headers, (QStringList{u""_s, u"Artikel nr."_s, u"Omschrijving"_s, u"Verkoop incl."_s,
                                   u"Barcode"_s}));
    load({Fixture::product(1, u"A-1"_s, u"Hamer"_s, 12.5, u"8712345678906"_s),
          Fixture::product(2, {}, {}, std::nullopt),
          Fixture::product(3, u"N"_s, u"Korting"_s, -3)});
    QCOMPARE(column(kSKU), (QStringList{u""_s, u"A-1"_s, u"N"_s}));
    QCOMPARE(column(kName), (QStringList{u"Unknown"_s, u"Hamer"_s, u"Korting"_s}));
    QCOMPARE(column(kPrice), (QStringList{u"€ -"_s, u"€ 12.50"_s, u"€ -3.00"_s}));
    QCOMPARE(column(kBarcode), (QStringList{u""_s, u"8712345678906"_s, u""_s}));
    const auto cell = [this](int column, int role) {
        return m_proxy->index(0, column).data(role);
    };
    QCOMPARE(cell(kPrice, Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask,
             int(Qt::AlignRight));
    QCOMPARE(cell(kName, Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask,
             int(Qt::AlignLeft));
    // The cells ask for the desktop's fixed-pitch font, whichever font fontconfig then picks.
    const QString fixedFamily = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    QCOMPARE(cell(kSKU, Qt::FontRole).value<QFont>().family(), fixedFamily);
    QCOMPARE(cell(kBarcode, Qt::FontRole).value<QFont>().family(), fixedFamily);
    QCOMPARE(cell(kName, Qt::FontRole).value<QFont>().family(), QApplication::font().family());
}

void ProductTableModelTest::checkCellsReportTheirStateToScreenReaders()
{
    // Displayed as A, B, C: the products' rows in the view model differ from the table's.
    load({Fixture::product(1, u"B"_s, u"Een"_s), Fixture::product(2, u"A"_s, u"Twee"_s),
          Fixture::product(3, u"C"_s, u"Drie"_s)});
    QTableView view;
    view.setModel(m_proxy.get());
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&view);
    QVERIFY(table && table->tableInterface());
    // Each check cell: its accessible name, its check state, and what a screen reader hears.
    const auto states = [&] {
        QStringList states;
        for (int row = 0; row < m_proxy->rowCount(); ++row) {
            const QModelIndex index = m_proxy->index(row, ProductTableModel::kCheckColumn);
            const QAccessible::State state = table->tableInterface()->cellAt(row, 0)->state();
            states.append(u"%1 %2 %3 %4"_s
                              .arg(table->tableInterface()->cellAt(row, 0)->text(QAccessible::Name))
                              .arg(index.data(Qt::CheckStateRole).toInt())
                              .arg(int(state.checkable))
                              .arg(int(state.checked)));
        }
        return states;
    };
    QCOMPARE(states(), (QStringList{u"Twee 0 1 0"_s, u"Een 0 1 0"_s, u"Drie 0 1 0"_s}));
    m_viewModel->toggleChecked(m_viewModel->products().at(0));
    QCOMPARE(states(), (QStringList{u"Twee 0 1 0"_s, u"Een 2 1 1"_s, u"Drie 0 1 0"_s}));
}

void ProductTableModelTest::sortsArticleNumbersLikeAFileBrowser_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QStringList>("skus");
    QTest::addColumn<QStringList>("sorted");
    // The tests run in the C locale, which has no language of its own.
    QTest::newRow("no language") << QLocale::c()
                                 << QStringList{u"100"_s, u"9"_s,    u"b-2"_s, u""_s,
                                                u"10"_s,  u"B-10"_s, u"a-1"_s, u"A-3"_s}
                                 << QStringList{u""_s,    u"9"_s,   u"10"_s,  u"100"_s,
                                                u"a-1"_s, u"A-3"_s, u"b-2"_s, u"B-10"_s};
    QTest::newRow("Dutch") << QLocale(QLocale::Dutch, QLocale::Netherlands)
                           << QStringList{u"Ü-20"_s, u"u-3"_s, u"V-1"_s, u"U-100"_s}
                           << QStringList{u"u-3"_s, u"Ü-20"_s, u"U-100"_s, u"V-1"_s};
}

void ProductTableModelTest::sortsArticleNumbersLikeAFileBrowser()
{
    QFETCH(QLocale, locale);
    QFETCH(QStringList, skus);
    QFETCH(QStringList, sorted);
    QLocale::setDefault(locale);
    m_proxy = std::make_unique<ProductSortProxy>(*m_table); // takes the locale when made
    QList<Product> products;
    for (const QString& sku : skus)
        products.append(Fixture::product(products.size() + 1, sku, u"x"_s));
    load(products);
    QCOMPARE(column(kSKU), sorted);
}

void ProductTableModelTest::headerClicksPromoteAndReverse()
{
    load({Fixture::product(1, u"3"_s, u"Appel"_s, 2.0), Fixture::product(2, u"1"_s, u"Peer"_s, 1.0),
          Fixture::product(3, u"2"_s, u"Appel"_s, 3.0)});
    QCOMPARE(column(kSKU), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
    m_proxy->promoteColumn(kName);
    // Equal names fall back on the article number, the earlier key.
    QCOMPARE(column(kSKU), (QStringList{u"2"_s, u"3"_s, u"1"_s}));
    m_proxy->promoteColumn(kName);
    QCOMPARE(m_proxy->sortOrder().first(), (Key{kName, Qt::DescendingOrder}));
    // The tie-breaker keeps its own direction while the first key runs backwards.
    QCOMPARE(column(kSKU), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
    m_proxy->promoteColumn(kSKU);
    QCOMPARE(m_proxy->sortOrder(),
             (QList<Key>{{kSKU, Qt::AscendingOrder}, {kName, Qt::DescendingOrder}}));
}

void ProductTableModelTest::keysDecideInTurnEachInItsOwnOrder_data()
{
    QTest::addColumn<QList<Key>>("keys");
    QTest::addColumn<QList<qint64>>("ids");
    QTest::newRow("name up, price down")
        << QList<Key>{{kName, Qt::AscendingOrder}, {kPrice, Qt::DescendingOrder}}
        << QList<qint64>{1, 5, 3, 4, 2};
    QTest::newRow("price down, barcode up, name down") << QList<Key>{{kPrice, Qt::DescendingOrder},
                                                                     {kBarcode, Qt::AscendingOrder},
                                                                     {kName, Qt::DescendingOrder}}
                                                       << QList<qint64>{4, 5, 1, 2, 3};
    QTest::newRow("ties left keep the service order, descending too")
        << QList<Key>{{kName, Qt::DescendingOrder}} << QList<qint64>{2, 4, 1, 3, 5};
    QTest::newRow("the check column is skipped")
        << QList<Key>{{ProductTableModel::kCheckColumn, Qt::DescendingOrder},
                      {kName, Qt::AscendingOrder}}
        << QList<qint64>{1, 3, 5, 2, 4};
}

void ProductTableModelTest::keysDecideInTurnEachInItsOwnOrder()
{
    QFETCH(QList<Key>, keys);
    QFETCH(QList<qint64>, ids);
    loadTieBreakCatalogue();
    // Shown in another order first: ties fall back on the service order, not on this one.
    m_proxy->setSortOrder({{kSKU, Qt::DescendingOrder}, {kName, Qt::AscendingOrder}});
    QCOMPARE(displayedIDs(), (QList<qint64>{5, 4, 3, 1, 2}));
    m_proxy->setSortOrder(keys);
    QCOMPARE(displayedIDs(), ids);
}

void ProductTableModelTest::selectionFollowsItsProductThroughAResort()
{
    loadTieBreakCatalogue();
    QItemSelectionModel selection(m_proxy.get());
    selection.setCurrentIndex(m_proxy->index(2, kName), // product 3
                              QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_proxy->setSortOrder({{kPrice, Qt::DescendingOrder}, {kBarcode, Qt::AscendingOrder}});
    QCOMPARE(displayedIDs().indexOf(3), 4);
    QCOMPARE(selection.currentIndex(), m_proxy->index(4, kName));
    QCOMPARE(selection.selectedRows(), QModelIndexList{m_proxy->index(4, 0)});
}

void ProductTableModelTest::sortingFollowsNewRowsFromALoadOrASearch()
{
    load({Fixture::product(1, u"3"_s, u"x een"_s, 10.0), Fixture::product(2, u"1"_s, u"y twee"_s),
          Fixture::product(3, u"2"_s, u"y drie"_s, std::nullopt),
          Fixture::product(4, u"4"_s, u"y vier"_s, -1.0)});
    m_proxy->promoteColumn(kName);
    QCOMPARE(column(kSKU), (QStringList{u"3"_s, u"2"_s, u"1"_s, u"4"_s}));
    // Fewer rows, at other positions: the keys must follow their products.
    m_viewModel->setSearchText(u"y"_s);
    QCOMPARE(column(kName), (QStringList{u"y drie"_s, u"y twee"_s, u"y vier"_s}));
    // A missing price sorts as 0.
    m_proxy->promoteColumn(kPrice);
    QCOMPARE(column(kPrice), (QStringList{u"€ -1.00"_s, u"€ -"_s, u"€ 1.00"_s}));
    m_viewModel->setSearchText(QString());
    QCOMPARE(column(kPrice), (QStringList{u"€ -1.00"_s, u"€ -"_s, u"€ 1.00"_s, u"€ 10.00"_s}));

    // A new load under a name sort: names that sort the other way than the old ones did.
    m_proxy->promoteColumn(kName);
    load({Fixture::product(5, u"B"_s, u"nieuw z"_s), Fixture::product(6, u"C"_s, u"nieuw y"_s)});
    QCOMPARE(column(kSKU), (QStringList{u"C"_s, u"B"_s}));
}

QTEST_MAIN(ProductTableModelTest)
#include "tst_ProductTableModel.moc"

#include "ProductSortProxy.h"
#include "ProductTableModel.h"
#include "ProductWindowFixture.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"

#include <QAbstractItemModelTester>
#include <QItemSelectionModel>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using Fixture = ProductWindowFixture;
using Key = ProductSortProxy::SortKey;

Q_DECLARE_METATYPE(ProductSortProxy::SortKey)

class ProductTableModelTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void modelsStayConsistentThroughLoadFilterCheckAndSort();
    void cellsShowTheProductTexts();
    void checkingRefreshesOnlyTheCheckColumn();
    void changedSourceRowsReachTheirSortedRows();
    void sortsArticleNumbersLikeAFileBrowser();
    void sortsLikeAFileBrowserInADutchLocaleToo();
    void equalKeysKeepTheServiceOrder();
    void headerClicksPromoteAndReverse();
    void keysDecideInTurnEachInItsOwnOrder_data();
    void keysDecideInTurnEachInItsOwnOrder();
    void selectionAndCurrentRowFollowTheirProduct_data();
    void selectionAndCurrentRowFollowTheirProduct();
    void priceSortsByNumberWithMissingAsZero();
    void keysFollowANewLoad();
    void keysFollowTheFilter();

private:
    void load(const QList<Product>& products);
    QStringList column(int column) const;
    QList<qint64> displayedIDs() const;
    int displayedRow(qint64 id) const;
    // The rows of a dataChanged, which must cover the check column only; -1 otherwise.
    static std::pair<int, int> checkColumnRows(const QList<QVariant>& dataChanged);
    void loadTieBreakCatalogue();

    std::unique_ptr<Fixture> m_fixture;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<ProductListViewModel> m_viewModel;
    std::unique_ptr<ProductTableModel> m_table;
    std::unique_ptr<ProductSortProxy> m_proxy;
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
}

void ProductTableModelTest::cleanup()
{
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
    QSignalSpy loaded(m_viewModel.get(), &ProductListViewModel::productsChanged);
    m_viewModel->fetchProducts();
    QVERIFY(loaded.wait(5000));
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

int ProductTableModelTest::displayedRow(qint64 id) const
{
    return int(displayedIDs().indexOf(id));
}

std::pair<int, int> ProductTableModelTest::checkColumnRows(const QList<QVariant>& dataChanged)
{
    const QModelIndex topLeft = dataChanged.at(0).toModelIndex();
    const QModelIndex bottomRight = dataChanged.at(1).toModelIndex();
    if (topLeft.column() != ProductTableModel::kCheckColumn ||
        bottomRight.column() != ProductTableModel::kCheckColumn)
        return {-1, -1};
    return {topLeft.row(), bottomRight.row()};
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

void ProductTableModelTest::modelsStayConsistentThroughLoadFilterCheckAndSort()
{
    QAbstractItemModelTester tableTester(m_table.get(),
                                         QAbstractItemModelTester::FailureReportingMode::QtTest);
    QAbstractItemModelTester proxyTester(m_proxy.get(),
                                         QAbstractItemModelTester::FailureReportingMode::QtTest);
    load({Fixture::product(1, u"B-2"_s, u"Beitel"_s), Fixture::product(2, u"A-1"_s, u"Hamer"_s),
          Fixture::product(3, u"C-3"_s, u"Zaag"_s)});
    QCOMPARE(m_proxy->rowCount(), 3);
    m_viewModel->setSearchText(u"a"_s);
    m_viewModel->toggleChecked(m_viewModel->products().at(1));
    m_proxy->promoteColumn(ProductTableModel::kNameColumn);
    m_proxy->promoteColumn(ProductTableModel::kNameColumn);
    m_viewModel->setSearchText(u"zzz"_s);
    QCOMPARE(m_proxy->rowCount(), 0);
    m_viewModel->setSearchText({});
    load({Fixture::product(4, u"D"_s, u"Nieuw"_s)});
    QCOMPARE(m_proxy->rowCount(), 1);
}

void ProductTableModelTest::cellsShowTheProductTexts()
{
    Product unnamed = Fixture::product(2, {}, {}, std::nullopt);
    load({Fixture::product(1, u"A-1"_s, u"Hamer"_s, 12.5, u"8712345678906"_s), unnamed,
          Fixture::product(3, u"N"_s, u"Korting"_s, -3)});
    QCOMPARE(column(ProductTableModel::kSKUColumn), (QStringList{u""_s, u"A-1"_s, u"N"_s}));
    QCOMPARE(column(ProductTableModel::kNameColumn),
             (QStringList{u"Unknown"_s, u"Hamer"_s, u"Korting"_s}));
    QCOMPARE(column(ProductTableModel::kPriceColumn),
             (QStringList{u"€ -"_s, u"€ 12.50"_s, u"€ -3.00"_s}));
    QCOMPARE(column(ProductTableModel::kBarcodeColumn),
             (QStringList{u""_s, u"8712345678906"_s, u""_s}));
    QStringList headers;
    for (int column = 0; column < m_proxy->columnCount(); ++column)
        headers << m_proxy->headerData(column, Qt::Horizontal).toString();
    QCOMPARE(headers, (QStringList{u""_s, u"Artikel nr."_s, u"Omschrijving"_s, u"Verkoop incl."_s,
                                   u"Barcode"_s}));
    const auto alignment = [this](int column) {
        return m_proxy->index(0, column).data(Qt::TextAlignmentRole).toInt() &
               Qt::AlignHorizontal_Mask;
    };
    QCOMPARE(alignment(ProductTableModel::kPriceColumn), int(Qt::AlignRight));
    QCOMPARE(alignment(ProductTableModel::kNameColumn), int(Qt::AlignLeft));
    const QFont skuFont =
        m_proxy->index(0, ProductTableModel::kSKUColumn).data(Qt::FontRole).value<QFont>();
    QVERIFY(skuFont.fixedPitch() || QFontInfo(skuFont).fixedPitch());
}

void ProductTableModelTest::checkingRefreshesOnlyTheCheckColumn()
{
    // Displayed as A, B, C: the table's rows 0 and 1 trade places in the proxy.
    load({Fixture::product(1, u"B"_s, u"Een"_s), Fixture::product(2, u"A"_s, u"Twee"_s),
          Fixture::product(3, u"C"_s, u"Drie"_s)});
    QSignalSpy resets(m_table.get(), &QAbstractItemModel::modelReset);
    QSignalSpy changes(m_table.get(), &QAbstractItemModel::dataChanged);
    QSignalSpy proxyChanges(m_proxy.get(), &QAbstractItemModel::dataChanged);
    QSignalSpy layouts(m_proxy.get(), &QAbstractItemModel::layoutChanged);

    m_viewModel->toggleChecked(m_viewModel->products().at(0));

    QCOMPARE(resets.count(), 0);
    QCOMPARE(layouts.count(), 0);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(checkColumnRows(changes.first()).second, 2);
    QCOMPARE(proxyChanges.count(), 1);
    const auto [proxyTop, proxyBottom] = checkColumnRows(proxyChanges.first());
    QVERIFY(proxyTop <= 1 && proxyBottom >= 1);
    QCOMPARE(proxyChanges.first().at(2).value<QList<int>>(), QList<int>{Qt::CheckStateRole});
    QCOMPARE(m_proxy->index(0, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QCOMPARE(m_proxy->index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QCOMPARE(m_proxy->index(2, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
}

void ProductTableModelTest::changedSourceRowsReachTheirSortedRows()
{
    loadTieBreakCatalogue();
    m_proxy->setSortOrder({{ProductTableModel::kNameColumn, Qt::AscendingOrder}});
    QCOMPARE(displayedIDs(), (QList<qint64>{1, 3, 5, 2, 4}));
    QSignalSpy changes(m_proxy.get(), &QAbstractItemModel::dataChanged);

    // The table's rows 1 and 2 (products 2 and 3) are displayed at rows 3 and 1.
    emit m_table->dataChanged(m_table->index(1, ProductTableModel::kCheckColumn),
                              m_table->index(2, ProductTableModel::kCheckColumn));

    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.first().at(0).toModelIndex().model(), m_proxy.get());
    QCOMPARE(checkColumnRows(changes.first()), (std::pair{1, 3}));
}

void ProductTableModelTest::sortsArticleNumbersLikeAFileBrowser()
{
    // The tests run in the C locale, which has no language of its own.
    load({Fixture::product(1, u"100"_s, u"a"_s), Fixture::product(2, u"9"_s, u"b"_s),
          Fixture::product(3, u"b-2"_s, u"c"_s), Fixture::product(4, u""_s, u"d"_s),
          Fixture::product(5, u"10"_s, u"e"_s), Fixture::product(6, u"B-10"_s, u"f"_s),
          Fixture::product(7, u"a-1"_s, u"g"_s), Fixture::product(8, u"A-3"_s, u"h"_s),
          Fixture::product(9, {}, u"i"_s)});
    QCOMPARE(column(ProductTableModel::kSKUColumn),
             (QStringList{u""_s, u""_s, u"9"_s, u"10"_s, u"100"_s, u"a-1"_s, u"A-3"_s, u"b-2"_s,
                          u"B-10"_s}));
    // Products without an article number keep their service order among themselves.
    QCOMPARE(column(ProductTableModel::kNameColumn).mid(0, 2), (QStringList{u"d"_s, u"i"_s}));
}

void ProductTableModelTest::sortsLikeAFileBrowserInADutchLocaleToo()
{
    QLocale::setDefault(QLocale(QLocale::Dutch, QLocale::Netherlands));
    load({Fixture::product(1, u"Ü-20"_s, u"a"_s), Fixture::product(2, u"u-3"_s, u"b"_s),
          Fixture::product(3, u"V-1"_s, u"c"_s), Fixture::product(4, u"U-100"_s, u"d"_s)});
    QCOMPARE(column(ProductTableModel::kSKUColumn),
             (QStringList{u"u-3"_s, u"Ü-20"_s, u"U-100"_s, u"V-1"_s}));
}

void ProductTableModelTest::equalKeysKeepTheServiceOrder()
{
    load({Fixture::product(1, u"X"_s, u"eerste"_s), Fixture::product(2, u"A"_s, u"tweede"_s),
          Fixture::product(3, u"x"_s, u"derde"_s), Fixture::product(4, u"X"_s, u"vierde"_s)});
    QCOMPARE(column(ProductTableModel::kNameColumn),
             (QStringList{u"tweede"_s, u"eerste"_s, u"derde"_s, u"vierde"_s}));
    m_proxy->promoteColumn(ProductTableModel::kSKUColumn); // now descending
    QCOMPARE(column(ProductTableModel::kNameColumn),
             (QStringList{u"eerste"_s, u"derde"_s, u"vierde"_s, u"tweede"_s}));
}

void ProductTableModelTest::headerClicksPromoteAndReverse()
{
    load({Fixture::product(1, u"3"_s, u"Appel"_s, 2.0), Fixture::product(2, u"1"_s, u"Peer"_s, 1.0),
          Fixture::product(3, u"2"_s, u"Appel"_s, 3.0)});
    QCOMPARE(m_proxy->sortOrder(),
             (QList<Key>{{ProductTableModel::kSKUColumn, Qt::AscendingOrder}}));

    m_proxy->promoteColumn(ProductTableModel::kNameColumn);
    QCOMPARE(m_proxy->sortOrder().first(),
             (Key{ProductTableModel::kNameColumn, Qt::AscendingOrder}));
    // Equal names fall back on the article number, the earlier key.
    QCOMPARE(column(ProductTableModel::kSKUColumn), (QStringList{u"2"_s, u"3"_s, u"1"_s}));

    m_proxy->promoteColumn(ProductTableModel::kNameColumn);
    QCOMPARE(m_proxy->sortOrder().first(),
             (Key{ProductTableModel::kNameColumn, Qt::DescendingOrder}));
    // The tie-breaker keeps its own direction while the first key runs backwards.
    QCOMPARE(column(ProductTableModel::kSKUColumn), (QStringList{u"1"_s, u"2"_s, u"3"_s}));

    m_proxy->promoteColumn(ProductTableModel::kCheckColumn);
    QCOMPARE(m_proxy->sortOrder().first(),
             (Key{ProductTableModel::kNameColumn, Qt::DescendingOrder}));

    m_proxy->promoteColumn(ProductTableModel::kSKUColumn);
    QCOMPARE(m_proxy->sortOrder(),
             (QList<Key>{{ProductTableModel::kSKUColumn, Qt::AscendingOrder},
                         {ProductTableModel::kNameColumn, Qt::DescendingOrder}}));
    QCOMPARE(column(ProductTableModel::kSKUColumn), (QStringList{u"1"_s, u"2"_s, u"3"_s}));

    // The item model's own sort call puts the column in front in the given order.
    m_proxy->sort(ProductTableModel::kPriceColumn, Qt::DescendingOrder);
    QCOMPARE(m_proxy->sortOrder(),
             (QList<Key>{{ProductTableModel::kPriceColumn, Qt::DescendingOrder},
                         {ProductTableModel::kSKUColumn, Qt::AscendingOrder},
                         {ProductTableModel::kNameColumn, Qt::DescendingOrder}}));
    QCOMPARE(column(ProductTableModel::kSKUColumn), (QStringList{u"2"_s, u"3"_s, u"1"_s}));
}

void ProductTableModelTest::keysDecideInTurnEachInItsOwnOrder_data()
{
    constexpr int name = ProductTableModel::kNameColumn;
    constexpr int price = ProductTableModel::kPriceColumn;
    constexpr int barcode = ProductTableModel::kBarcodeColumn;
    QTest::addColumn<QList<Key>>("keys");
    QTest::addColumn<QList<qint64>>("ids");
    QTest::newRow("name up, price down")
        << QList<Key>{{name, Qt::AscendingOrder}, {price, Qt::DescendingOrder}}
        << QList<qint64>{1, 5, 3, 4, 2};
    QTest::newRow("name down, price up")
        << QList<Key>{{name, Qt::DescendingOrder}, {price, Qt::AscendingOrder}}
        << QList<qint64>{2, 4, 3, 1, 5};
    QTest::newRow("price down, barcode up, name down") << QList<Key>{{price, Qt::DescendingOrder},
                                                                     {barcode, Qt::AscendingOrder},
                                                                     {name, Qt::DescendingOrder}}
                                                       << QList<qint64>{4, 5, 1, 2, 3};
    QTest::newRow("price up, barcode down")
        << QList<Key>{{price, Qt::AscendingOrder}, {barcode, Qt::DescendingOrder}}
        << QList<qint64>{3, 2, 1, 4, 5};
    QTest::newRow("ties left keep the service order, descending too")
        << QList<Key>{{name, Qt::DescendingOrder}} << QList<qint64>{2, 4, 1, 3, 5};
    QTest::newRow("the check column is skipped")
        << QList<Key>{{ProductTableModel::kCheckColumn, Qt::DescendingOrder},
                      {name, Qt::AscendingOrder}}
        << QList<qint64>{1, 3, 5, 2, 4};
}

void ProductTableModelTest::keysDecideInTurnEachInItsOwnOrder()
{
    QFETCH(QList<Key>, keys);
    QFETCH(QList<qint64>, ids);
    loadTieBreakCatalogue();
    // Displayed in another order first: ties fall back on the service order, not on this one.
    m_proxy->setSortOrder({{ProductTableModel::kSKUColumn, Qt::DescendingOrder}});
    QCOMPARE(displayedIDs(), (QList<qint64>{5, 4, 3, 1, 2}));

    m_proxy->setSortOrder(keys);
    QCOMPARE(displayedIDs(), ids);
}

void ProductTableModelTest::selectionAndCurrentRowFollowTheirProduct_data()
{
    QTest::addColumn<QList<Key>>("keys");
    QTest::addColumn<int>("movesTo");
    QTest::newRow("name") << QList<Key>{{ProductTableModel::kNameColumn, Qt::AscendingOrder}} << 1;
    QTest::newRow("price down, barcode")
        << QList<Key>{{ProductTableModel::kPriceColumn, Qt::DescendingOrder},
                      {ProductTableModel::kBarcodeColumn, Qt::AscendingOrder}}
        << 4;
    QTest::newRow("barcode") << QList<Key>{{ProductTableModel::kBarcodeColumn, Qt::AscendingOrder}}
                             << 3;
}

void ProductTableModelTest::selectionAndCurrentRowFollowTheirProduct()
{
    QFETCH(QList<Key>, keys);
    QFETCH(int, movesTo);
    QAbstractItemModelTester tester(m_proxy.get(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest);
    loadTieBreakCatalogue();
    QItemSelectionModel selection(m_proxy.get());
    constexpr qint64 kFollowed = 3; // row 2 by article number
    QCOMPARE(displayedRow(kFollowed), 2);
    selection.setCurrentIndex(m_proxy->index(2, ProductTableModel::kNameColumn),
                              QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    const QPersistentModelIndex price = m_proxy->index(2, ProductTableModel::kPriceColumn);
    QSignalSpy layouts(m_proxy.get(), &QAbstractItemModel::layoutChanged);

    m_proxy->setSortOrder(keys);

    QCOMPARE(displayedRow(kFollowed), movesTo);
    QCOMPARE(layouts.count(), 1);
    QCOMPARE(layouts.first().at(1).value<QAbstractItemModel::LayoutChangeHint>(),
             QAbstractItemModel::VerticalSortHint);
    QCOMPARE(selection.currentIndex(), m_proxy->index(movesTo, ProductTableModel::kNameColumn));
    const QModelIndexList selected = selection.selectedRows();
    QCOMPARE(selected.size(), 1);
    QCOMPARE(selected.first().row(), movesTo);
    QCOMPARE(price.row(), movesTo);
    QCOMPARE(price.column(), int(ProductTableModel::kPriceColumn));
}

void ProductTableModelTest::priceSortsByNumberWithMissingAsZero()
{
    load({Fixture::product(1, u"a"_s, u"a"_s, 10.0), Fixture::product(2, u"b"_s, u"b"_s, 9.5),
          Fixture::product(3, u"c"_s, u"c"_s, std::nullopt),
          Fixture::product(4, u"d"_s, u"d"_s, -1.0), Fixture::product(5, u"e"_s, u"e"_s, 0.0)});
    m_proxy->promoteColumn(ProductTableModel::kPriceColumn);
    QCOMPARE(column(ProductTableModel::kPriceColumn),
             (QStringList{u"€ -1.00"_s, u"€ -"_s, u"€ 0.00"_s, u"€ 9.50"_s, u"€ 10.00"_s}));
}

void ProductTableModelTest::keysFollowANewLoad()
{
    QAbstractItemModelTester tester(m_proxy.get(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest);
    load({Fixture::product(1, u"2"_s, u"oud b"_s), Fixture::product(2, u"1"_s, u"oud c"_s),
          Fixture::product(3, u"3"_s, u"oud a"_s)});
    QCOMPARE(column(ProductTableModel::kSKUColumn), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
    m_proxy->promoteColumn(ProductTableModel::kNameColumn);
    QCOMPARE(column(ProductTableModel::kSKUColumn), (QStringList{u"3"_s, u"2"_s, u"1"_s}));
    const QPersistentModelIndex old = m_proxy->index(2, ProductTableModel::kNameColumn);

    // Fewer rows, and names that sort the other way than the old ones did.
    load({Fixture::product(4, u"B"_s, u"nieuw z"_s), Fixture::product(5, u"C"_s, u"nieuw y"_s)});
    QVERIFY(!old.isValid());
    QCOMPARE(column(ProductTableModel::kSKUColumn), (QStringList{u"C"_s, u"B"_s}));
    m_proxy->promoteColumn(ProductTableModel::kSKUColumn);
    QCOMPARE(column(ProductTableModel::kSKUColumn), (QStringList{u"B"_s, u"C"_s}));
    m_viewModel->setSearchText(u"c"_s);
    QCOMPARE(column(ProductTableModel::kSKUColumn), (QStringList{u"C"_s}));
    QCOMPARE(m_proxy->mapFromSource(m_table->index(0, ProductTableModel::kSKUColumn)).row(), 0);
}

void ProductTableModelTest::keysFollowTheFilter()
{
    // Filtered rows sit at other positions than their products do in the
    // loaded list; the keys worked out before the filter must follow the products.
    load({Fixture::product(1, u"3"_s, u"x een"_s), Fixture::product(2, u"1"_s, u"y twee"_s),
          Fixture::product(3, u"2"_s, u"y drie"_s)});
    QCOMPARE(column(ProductTableModel::kSKUColumn), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
    m_viewModel->setSearchText(u"y"_s);
    QCOMPARE(column(ProductTableModel::kSKUColumn), (QStringList{u"1"_s, u"2"_s}));
    m_proxy->promoteColumn(ProductTableModel::kNameColumn);
    QCOMPARE(column(ProductTableModel::kNameColumn), (QStringList{u"y drie"_s, u"y twee"_s}));
    m_viewModel->setSearchText(QString());
    QCOMPARE(column(ProductTableModel::kNameColumn),
             (QStringList{u"x een"_s, u"y drie"_s, u"y twee"_s}));
}

QTEST_MAIN(ProductTableModelTest)
#include "tst_ProductTableModel.moc"

#include "ContentView.h"
#include "CustomToolbar.h"
#include "ProductListView.h"
#include "ProductSortProxy.h"
#include "ProductTableModel.h"
#include "ProductWindowFixture.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;
using Fixture = ProductWindowFixture;
using State = ContentView::ContentState;

Q_DECLARE_METATYPE(ContentView::ContentState)

class ProductListViewTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void clickAnywhereInTheCheckCellToggles();
    void spaceBarWalksDownInDisplayedOrder();
    void spaceBarWithoutShownSelectionDoesNothing();
    void spaceInTheSearchFieldTypesNoBlankWhileTheTableIsShown();
    void selectionFollowsTheModelBothWays();
    void headerClicksSortAndTheCheckColumnDoesNot();
    void columnWidthsComeFromTheStoreAndKeepTheirMinimum();

private:
    QTableView* table() const;
    ProductListView* listView() const;
    QList<qint64> checkedInDisplayOrder() const;
    qint64 idAt(int row) const;
    // The product of the one selected row, which is also the current row; -1 otherwise.
    qint64 selectedRowID() const;
    void clickHeader(int column);

    std::unique_ptr<Fixture> m_fixture;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<ProductListViewModel> m_viewModel;
    std::unique_ptr<ContentView> m_view;
};

void ProductListViewTest::init()
{
    m_fixture = std::make_unique<Fixture>();
    QVERIFY(m_fixture->isReady());
    // Service order differs from the displayed order (article number ascending).
    m_fixture->serveProducts({Fixture::product(10, u"C-3"_s, u"Zaag"_s),
                              Fixture::product(20, u"A-1"_s, u"Hamer"_s),
                              Fixture::product(30, u"B-2"_s, u"Beitel"_s)});
    m_settings = m_fixture->makeConfiguredSettings();
    m_viewModel = m_fixture->makeViewModel();
    m_view = std::make_unique<ContentView>(*m_settings, *m_viewModel);
    m_view->resize(1000, 640);
    m_view->show();
    QTRY_COMPARE_WITH_TIMEOUT(m_view->contentState(), State::ProductList, 5000);
    QVERIFY(table());
}

void ProductListViewTest::cleanup()
{
    m_view.reset();
    m_viewModel.reset();
    m_settings.reset();
    m_fixture.reset();
}

ProductListView* ProductListViewTest::listView() const
{
    return qobject_cast<ProductListView*>(m_view->contentWidget());
}

QTableView* ProductListViewTest::table() const
{
    return listView() ? listView()->tableView() : nullptr;
}

qint64 ProductListViewTest::idAt(int row) const
{
    return table()->model()->index(row, 0).data(ProductTableModel::kProductIDRole).toLongLong();
}

qint64 ProductListViewTest::selectedRowID() const
{
    const QModelIndexList rows = table()->selectionModel()->selectedRows();
    if (rows.size() != 1 || table()->currentIndex().row() != rows.first().row())
        return -1;
    return idAt(rows.first().row());
}

QList<qint64> ProductListViewTest::checkedInDisplayOrder() const
{
    QList<qint64> checked;
    for (int row = 0; row < table()->model()->rowCount(); ++row) {
        if (m_viewModel->checkedProductIDs().contains(idAt(row)))
            checked.append(idAt(row));
    }
    return checked;
}

void ProductListViewTest::clickHeader(int column)
{
    QHeaderView* header = table()->horizontalHeader();
    const QPoint inside(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                        header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, inside);
}

void ProductListViewTest::clickAnywhereInTheCheckCellToggles()
{
    const QRect cell =
        table()->visualRect(table()->model()->index(1, ProductTableModel::kCheckColumn));
    QVERIFY(cell.width() >= 20);
    const qint64 id = idAt(1);
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell.topLeft() + QPoint(1, 1));
    QCOMPARE(m_viewModel->checkedProductIDs(), QSet<qint64>{id});
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell.center());
    QVERIFY(m_viewModel->checkedProductIDs().isEmpty());
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell.bottomRight() - QPoint(1, 1));
    QCOMPARE(m_viewModel->checkedProductIDs(), QSet<qint64>{id});

    // Other cells select, they do not tick.
    const QRect name =
        table()->visualRect(table()->model()->index(2, ProductTableModel::kNameColumn));
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, name.center());
    QCOMPARE(m_viewModel->checkedProductIDs(), QSet<qint64>{id});
    QCOMPARE(m_viewModel->selectedProductID(), idAt(2));
}

void ProductListViewTest::spaceBarWalksDownInDisplayedOrder()
{
    QCOMPARE((QList<qint64>{idAt(0), idAt(1), idAt(2)}), (QList<qint64>{20, 30, 10}));
    m_viewModel->setSelectedProductID(20);
    QTest::keyClick(table(), Qt::Key_Space);
    QCOMPARE(m_viewModel->selectedProductID(), 30);
    QTest::keyClick(table(), Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(m_viewModel->selectedProductID(), 10);
    QVERIFY(table()->selectionModel()->isRowSelected(2, {}));
    QCOMPARE(checkedInDisplayOrder(), (QList<qint64>{20, 30}));

    // On the last row the product toggles and the selection stays.
    QTest::keyClick(table(), Qt::Key_Space, Qt::AltModifier);
    QCOMPARE(m_viewModel->selectedProductID(), 10);
    QCOMPARE(checkedInDisplayOrder(), (QList<qint64>{20, 30, 10}));
    QTest::keyClick(table(), Qt::Key_Space);
    QCOMPARE(m_viewModel->selectedProductID(), 10);
    QCOMPARE(checkedInDisplayOrder(), (QList<qint64>{20, 30}));

    // The walk follows the sort order the user chose.
    clickHeader(ProductTableModel::kNameColumn); // Beitel, Hamer, Zaag
    m_viewModel->clearChecked();
    m_viewModel->setSelectedProductID(30);
    QTest::keyClick(table(), Qt::Key_Space);
    QCOMPARE(m_viewModel->selectedProductID(), 20);
}

void ProductListViewTest::spaceBarWithoutShownSelectionDoesNothing()
{
    QTest::keyClick(table(), Qt::Key_Space);
    QVERIFY(m_viewModel->checkedProductIDs().isEmpty());
    QVERIFY(!m_viewModel->selectedProductID());

    // Selected, but hidden by the search.
    m_viewModel->setSelectedProductID(10);
    m_viewModel->setSearchText(u"hamer"_s);
    QTest::keyClick(table(), Qt::Key_Space);
    QVERIFY(m_viewModel->checkedProductIDs().isEmpty());
    QCOMPARE(m_viewModel->selectedProductID(), 10);
}

void ProductListViewTest::spaceInTheSearchFieldTypesNoBlankWhileTheTableIsShown()
{
    QLineEdit* search = m_view->toolbar()->searchField();
    m_viewModel->setSelectedProductID(20);
    QTest::keyClicks(search, u"a a"_s);
    QCOMPARE(search->text(), u"aa"_s);
    QCOMPARE(m_viewModel->searchText(), u"aa"_s);
    QCOMPARE(m_viewModel->checkedProductIDs(), QSet<qint64>{20});
    QCOMPARE(m_viewModel->selectedProductID(), 10);

    // Without the table nothing takes the space bar: blanks can be typed.
    QTest::keyClicks(search, u"x"_s);
    QCOMPARE(m_view->contentState(), State::NoResults);
    QTest::keyClicks(search, u" y"_s);
    QCOMPARE(search->text(), u"aax y"_s);
    QCOMPARE(m_viewModel->checkedProductIDs(), QSet<qint64>{20});
}

void ProductListViewTest::selectionFollowsTheModelBothWays()
{
    const QRect cell =
        table()->visualRect(table()->model()->index(0, ProductTableModel::kSKUColumn));
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell.center());
    QCOMPARE(m_viewModel->selectedProductID(), 20);

    m_viewModel->setSelectedProductID(10);
    QCOMPARE(table()->selectionModel()->selectedRows().size(), 1);
    QCOMPARE(table()->selectionModel()->selectedRows().first().row(), 2);

    // Hidden by the search: nothing is shown selected, the model keeps the product.
    m_viewModel->setSearchText(u"hamer"_s);
    QVERIFY(!table()->selectionModel()->hasSelection());
    QCOMPARE(m_viewModel->selectedProductID(), 10);
    m_viewModel->setSearchText({});
    QVERIFY(table()->selectionModel()->isRowSelected(2, {}));

    QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      table()->visualRect(table()->model()->index(2, 1)).center());
    QVERIFY(!m_viewModel->selectedProductID());
}

void ProductListViewTest::headerClicksSortAndTheCheckColumnDoesNot()
{
    QHeaderView* header = table()->horizontalHeader();
    QCOMPARE(header->sortIndicatorSection(), ProductTableModel::kSKUColumn);
    QCOMPARE(header->sortIndicatorOrder(), Qt::AscendingOrder);
    m_viewModel->setSelectedProductID(30);
    QCOMPARE(selectedRowID(), 30);

    // The selected product stays selected wherever the sort puts it.
    clickHeader(ProductTableModel::kNameColumn);
    QCOMPARE((QList<qint64>{idAt(0), idAt(1), idAt(2)}), (QList<qint64>{30, 20, 10}));
    QCOMPARE(header->sortIndicatorSection(), ProductTableModel::kNameColumn);
    QCOMPARE(selectedRowID(), 30);
    clickHeader(ProductTableModel::kNameColumn);
    QCOMPARE((QList<qint64>{idAt(0), idAt(1), idAt(2)}), (QList<qint64>{10, 20, 30}));
    QCOMPARE(header->sortIndicatorOrder(), Qt::DescendingOrder);
    QCOMPARE(selectedRowID(), 30);
    QCOMPARE(m_viewModel->selectedProductID(), 30);

    clickHeader(ProductTableModel::kCheckColumn);
    QCOMPARE((QList<qint64>{idAt(0), idAt(1), idAt(2)}), (QList<qint64>{10, 20, 30}));
    QCOMPARE(header->sortIndicatorSection(), ProductTableModel::kNameColumn);
    QCOMPARE(header->sortIndicatorOrder(), Qt::DescendingOrder);

    // A new table starts again at the article number.
    m_viewModel->fetchProducts();
    QTRY_COMPARE_WITH_TIMEOUT(m_view->contentState(), State::ProductList, 5000);
    QCOMPARE((QList<qint64>{idAt(0), idAt(1), idAt(2)}), (QList<qint64>{20, 30, 10}));
}

void ProductListViewTest::columnWidthsComeFromTheStoreAndKeepTheirMinimum()
{
    QHeaderView* header = table()->horizontalHeader();
    QCOMPARE(header->sectionSize(ProductTableModel::kCheckColumn), 30);
    QCOMPARE(header->sectionSize(ProductTableModel::kSKUColumn), 120);
    QCOMPARE(header->sectionSize(ProductTableModel::kNameColumn), 300);
    QCOMPARE(header->sectionSize(ProductTableModel::kPriceColumn), 100);
    QCOMPARE(header->sectionSize(ProductTableModel::kBarcodeColumn), 130);
    QCOMPARE(header->sectionResizeMode(ProductTableModel::kCheckColumn), QHeaderView::Fixed);
    QCOMPARE(header->sectionResizeMode(ProductTableModel::kNameColumn), QHeaderView::Interactive);

    header->resizeSection(ProductTableModel::kNameColumn, 40);
    QCOMPARE(header->sectionSize(ProductTableModel::kNameColumn), 150);
    header->resizeSection(ProductTableModel::kPriceColumn, 10);
    QCOMPARE(header->sectionSize(ProductTableModel::kPriceColumn), 80);
    header->resizeSection(ProductTableModel::kNameColumn, 420);
    QCOMPARE(m_settings->columnWidthName(), 300.0);

    // The next table reads the stored widths again.
    m_settings->setColumnWidthName(260);
    m_viewModel->fetchProducts();
    QTRY_COMPARE_WITH_TIMEOUT(m_view->contentState(), State::ProductList, 5000);
    QCOMPARE(table()->horizontalHeader()->sectionSize(ProductTableModel::kNameColumn), 260);
}

QTEST_MAIN(ProductListViewTest)
#include "tst_ProductListView.moc"

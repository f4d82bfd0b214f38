#include "AppInfo.h"
#include "ContentView.h"
#include "PrintButton.h"
#include "ProductWindowFixture.h"
#include "StatusBarView.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"

#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using Fixture = ProductWindowFixture;
using State = ContentView::ContentState;

Q_DECLARE_METATYPE(ContentView::ContentState)

class StatusBarViewTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void countsTheFilteredProductsAndShowsTheVersion();
    void printControlsFollowTheChecks();
    void printButtonNeedsAConfiguredPrinter();
    void printRunSendsCheckedProductsInServiceOrder();
    void quantityFieldTakesOnlyWholeNumbers();

private:
    StatusBarView* statusBar() const { return m_view->statusBar(); }

    std::unique_ptr<Fixture> m_fixture;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<ProductListViewModel> m_viewModel;
    std::unique_ptr<ContentView> m_view;
    QList<Product> m_products;
};

void StatusBarViewTest::init()
{
    m_fixture = std::make_unique<Fixture>();
    QVERIFY(m_fixture->isReady());
    m_products = {Fixture::product(1, u"Z-9"_s, u"Zaag"_s),
                  Fixture::product(2, u"A-1"_s, u"Hamer"_s),
                  Fixture::product(3, u"M-5"_s, u"Tang"_s)};
    m_fixture->serveProducts(m_products);
    m_settings = m_fixture->makeConfiguredSettings();
    m_viewModel = m_fixture->makeViewModel();
    m_view = std::make_unique<ContentView>(*m_settings, *m_viewModel);
    m_view->resize(1000, 640);
    m_view->show();
    QTRY_COMPARE_WITH_TIMEOUT(m_view->contentState(), State::ProductList, 5000);
}

void StatusBarViewTest::cleanup()
{
    m_view.reset();
    m_viewModel.reset();
    m_settings.reset();
    m_fixture.reset();
}

void StatusBarViewTest::countsTheFilteredProductsAndShowsTheVersion()
{
    QCOMPARE(statusBar()->countLabel()->text(), u"3 producten"_s);
    m_viewModel->setSearchText(u"hamer"_s);
    QCOMPARE(statusBar()->countLabel()->text(), u"1 producten"_s);
    m_viewModel->setSearchText(u"niets"_s);
    QCOMPARE(statusBar()->countLabel()->text(), u"0 producten"_s);
    QCOMPARE(statusBar()->versionLabel()->text(), u"v"_s + AppInfo::version());
    QVERIFY(!AppInfo::version().isEmpty());
}

void StatusBarViewTest::printControlsFollowTheChecks()
{
    QVERIFY(!statusBar()->printControls()->isVisible());
    m_viewModel->toggleChecked(m_products.at(0));
    QVERIFY(statusBar()->printControls()->isVisible());
    QCOMPARE(statusBar()->printButton()->text(), u"Start afdrukken"_s);
    QCOMPARE(statusBar()->quantityField()->text(), u"1"_s);
    m_viewModel->clearChecked();
    QVERIFY(!statusBar()->printControls()->isVisible());
}

void StatusBarViewTest::printButtonNeedsAConfiguredPrinter()
{
    m_settings->updatePrinter(0, [](Printer& printer) { printer.ipAddress.clear(); });
    m_viewModel->toggleChecked(m_products.at(0));
    QVERIFY(statusBar()->printControls()->isVisible());
    QVERIFY(!statusBar()->printButton()->isEnabled());
    QTest::mouseClick(statusBar()->printButton(), Qt::LeftButton);
    QTest::qWait(100);
    QCOMPARE(m_fixture->sink().connectionCount(), 0);

    m_settings->updatePrinter(0, [](Printer& printer) { printer.ipAddress = u"127.0.0.1"_s; });
    QVERIFY(statusBar()->printButton()->isEnabled());
}

void StatusBarViewTest::printRunSendsCheckedProductsInServiceOrder()
{
    // Ticked in another order than the service's and shown sorted by article number.
    m_viewModel->toggleChecked(m_products.at(2));
    m_viewModel->toggleChecked(m_products.at(1));
    m_viewModel->toggleChecked(m_products.at(0));
    QLineEdit* quantity = statusBar()->quantityField();
    quantity->setText(u"2"_s);
    emit quantity->editingFinished();
    QCOMPARE(m_viewModel->printQuantity(), 2);

    PrintButton* print = statusBar()->printButton();
    QTest::mouseClick(print, Qt::LeftButton);
    QVERIFY(statusBar()->isPrinting());
    QVERIFY(!print->isEnabled());
    QVERIFY(print->isBusy());
    QTRY_VERIFY_WITH_TIMEOUT(!statusBar()->isPrinting(), 10000);
    QVERIFY(print->isEnabled());
    QVERIFY(!print->isBusy());

    QList<QByteArray> expected;
    for (const Product& product : m_products)
        expected << Fixture::expectedLabel(product) << Fixture::expectedLabel(product);
    QTRY_COMPARE_WITH_TIMEOUT(m_fixture->sink().jobs().size(), 6, 5000);
    QCOMPARE(m_fixture->sink().jobs(), expected);
    QCOMPARE(m_fixture->sink().jobs().first(), QByteArray("^XA^FDZ-9|Zaag^FS^XZ"));

    QVERIFY(statusBar()->successRow()->isVisible());
    QCOMPARE(statusBar()->successLabel()->text(), u"Etiket geprint voor M-5"_s);
    QCOMPARE(m_viewModel->checkedProductIDs().size(), 3);
}

void StatusBarViewTest::quantityFieldTakesOnlyWholeNumbers()
{
    m_viewModel->toggleChecked(m_products.at(0));
    QLineEdit* quantity = statusBar()->quantityField();
    QCOMPARE(quantity->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);

    quantity->setFocus();
    quantity->selectAll();
    QTest::keyClicks(quantity, u"3x"_s);
    QTest::keyClick(quantity, Qt::Key_Return);
    QCOMPARE(m_viewModel->printQuantity(), 1);
    QCOMPARE(quantity->text(), u"1"_s);

    quantity->selectAll();
    QTest::keyClicks(quantity, u"12"_s);
    QTest::keyClick(quantity, Qt::Key_Return);
    QCOMPARE(m_viewModel->printQuantity(), 12);

    // No bounds: the view writes what was typed.
    quantity->selectAll();
    QTest::keyClicks(quantity, u"-4"_s);
    QTest::keyClick(quantity, Qt::Key_Enter);
    QCOMPARE(m_viewModel->printQuantity(), -4);

    quantity->selectAll();
    QTest::keyClicks(quantity, u"1.5"_s);
    QTest::keyClick(quantity, Qt::Key_Return);
    QCOMPARE(m_viewModel->printQuantity(), -4);
    QCOMPARE(quantity->text(), u"-4"_s);

    m_viewModel->setPrintQuantity(7);
    QCOMPARE(quantity->text(), u"7"_s);
}

QTEST_MAIN(StatusBarViewTest)
#include "tst_StatusBarView.moc"

#include "ContentView.h"
#include "NoResultsView.h"
#include "ProductListView.h"
#include "ProductWindowFixture.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"

#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Fixture = ProductWindowFixture;
using State = ContentView::ContentState;

Q_DECLARE_METATYPE(ContentView::ContentState)

class ContentViewTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void unconfiguredStoreShowsConfigurationAndLoadsNothing();
    void loadingThenTableThenSearchStates();
    void configurationNeededHidesARunningLoad();
    void emptyStateRefreshStartsALoad();
    void appearingWithProductsLoadedDoesNotReload();
    void errorAlertShowsTheMessageAndOkClearsIt();
    void errorAlertOverTheTableAndClosedByAnotherWindow();

private:
    std::unique_ptr<ContentView> makeView();
    QMessageBox* waitForAlert(ContentView& view);

    std::unique_ptr<Fixture> m_fixture;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<ProductListViewModel> m_viewModel;
};

void ContentViewTest::init()
{
    m_fixture = std::make_unique<Fixture>();
    QVERIFY(m_fixture->isReady());
    m_settings = m_fixture->makeConfiguredSettings();
    m_viewModel = m_fixture->makeViewModel();
}

void ContentViewTest::cleanup()
{
    m_viewModel.reset();
    m_settings.reset();
    m_fixture.reset();
}

std::unique_ptr<ContentView> ContentViewTest::makeView()
{
    auto view = std::make_unique<ContentView>(*m_settings, *m_viewModel);
    view->resize(1000, 640);
    view->show();
    return view;
}

QMessageBox* ContentViewTest::waitForAlert(ContentView& view)
{
    const bool shown = QTest::qWaitFor(
        [&view] { return view.errorAlert() && view.errorAlert()->isVisible(); }, 5000);
    return shown ? view.errorAlert() : nullptr;
}

void ContentViewTest::unconfiguredStoreShowsConfigurationAndLoadsNothing()
{
    m_settings->updateDossier(0, [](Dossier& dossier) { dossier.apiKey.clear(); });
    auto view = makeView();
    QCOMPARE(view->contentState(), State::ConfigurationNeeded);
    QCOMPARE(m_viewModel->settings(), m_settings.get());
    QTest::qWait(100);
    QCOMPARE(m_fixture->productRequestCount(), 0);
    QVERIFY(!view->findChild<ProductListView*>());
}

void ContentViewTest::loadingThenTableThenSearchStates()
{
    m_fixture->serveProducts(
        {Fixture::product(1, u"A-1"_s, u"Hamer"_s), Fixture::product(2, u"B-2"_s, u"Zaag"_s)},
        200ms);
    auto view = makeView();
    QCOMPARE(view->contentState(), State::Loading);
    QTRY_COMPARE_WITH_TIMEOUT(view->contentState(), State::ProductList, 5000);
    QCOMPARE(m_fixture->productRequestCount(), 1);
    QVERIFY(qobject_cast<ProductListView*>(view->contentWidget()));

    m_viewModel->setSearchText(u"zzz"_s);
    QCOMPARE(view->contentState(), State::NoResults);
    auto* noResults = qobject_cast<NoResultsView*>(view->contentWidget());
    QVERIFY(noResults);
    QCOMPARE(noResults->headlineText(), u"Geen resultaten voor \"zzz\""_s);
    m_viewModel->setSearchText(u"zzzz"_s);
    QCOMPARE(noResults->headlineText(), u"Geen resultaten voor \"zzzz\""_s);

    m_viewModel->setSearchText(u"hamer"_s);
    QCOMPARE(view->contentState(), State::ProductList);

    // A reload hides the table behind the loading view, even with products known.
    m_viewModel->fetchProducts();
    QCOMPARE(view->contentState(), State::Loading);
    QTRY_COMPARE_WITH_TIMEOUT(view->contentState(), State::ProductList, 5000);
}

void ContentViewTest::configurationNeededHidesARunningLoad()
{
    m_fixture->serveProducts({Fixture::product(1, u"A"_s, u"Hamer"_s)}, 300ms);
    auto view = makeView();
    QCOMPARE(view->contentState(), State::Loading);
    m_settings->updateDossier(0, [](Dossier& dossier) { dossier.apiKey.clear(); });
    QVERIFY(m_viewModel->isLoading());
    QCOMPARE(view->contentState(), State::ConfigurationNeeded);
    QTRY_VERIFY_WITH_TIMEOUT(!m_viewModel->isLoading(), 5000);
    QCOMPARE(view->contentState(), State::ConfigurationNeeded);
}

void ContentViewTest::emptyStateRefreshStartsALoad()
{
    auto view = makeView();
    QTRY_COMPARE_WITH_TIMEOUT(view->contentState(), State::Empty, 5000);
    QCOMPARE(m_fixture->productRequestCount(), 1);
    // A search over no products has no results; clearing it is empty again.
    m_viewModel->setSearchText(u"abc"_s);
    QCOMPARE(view->contentState(), State::NoResults);
    m_viewModel->setSearchText({});
    QCOMPARE(view->contentState(), State::Empty);

    m_fixture->serveProducts({Fixture::product(1, u"A"_s, u"Hamer"_s)});
    auto* refresh = view->contentWidget()->findChild<QPushButton*>(u"refreshButton"_s);
    QVERIFY(refresh);
    QCOMPARE(refresh->text(), u"Vernieuwen"_s);
    QTest::mouseClick(refresh, Qt::LeftButton);
    QCOMPARE(view->contentState(), State::Loading);
    QTRY_COMPARE_WITH_TIMEOUT(view->contentState(), State::ProductList, 5000);
    QCOMPARE(m_fixture->productRequestCount(), 2);
}

void ContentViewTest::appearingWithProductsLoadedDoesNotReload()
{
    m_fixture->serveProducts({Fixture::product(1, u"A"_s, u"Hamer"_s)});
    auto first = makeView();
    QTRY_COMPARE_WITH_TIMEOUT(first->contentState(), State::ProductList, 5000);
    auto second = makeView();
    QCOMPARE(second->contentState(), State::ProductList);
    first->hide();
    first->show();
    QTest::qWait(100);
    QCOMPARE(m_fixture->productRequestCount(), 1);
}

void ContentViewTest::errorAlertShowsTheMessageAndOkClearsIt()
{
    m_fixture->serveStatus(401);
    auto view = makeView();
    QMessageBox* alert = waitForAlert(*view);
    QVERIFY(alert);
    QCOMPARE(alert->windowTitle(), u"Fout"_s);
    QCOMPARE(alert->text(), u"Serverfout: Ongeldige API key"_s);
    QCOMPARE(alert->buttons().size(), 1);
    QAbstractButton* ok = alert->buttons().first();
    QCOMPARE(ok->text(), u"OK"_s);
    QCOMPARE(alert->windowModality(), Qt::WindowModal);

    QTest::mouseClick(ok, Qt::LeftButton);
    QVERIFY(!m_viewModel->errorMessage());
    QTRY_VERIFY(!view->errorAlert());
    QTRY_VERIFY(view->findChildren<QMessageBox*>().isEmpty());
}

void ContentViewTest::errorAlertOverTheTableAndClosedByAnotherWindow()
{
    m_fixture->serveProducts({Fixture::product(1, u"A"_s, u"Hamer"_s)});
    auto first = makeView();
    auto second = makeView();
    QTRY_COMPARE_WITH_TIMEOUT(first->contentState(), State::ProductList, 5000);

    // A failed reload keeps the products; the alert comes up over the table.
    m_fixture->serveStatus(500);
    m_viewModel->fetchProducts();
    QMessageBox* firstAlert = waitForAlert(*first);
    QMessageBox* secondAlert = waitForAlert(*second);
    QVERIFY(firstAlert && secondAlert);
    QCOMPARE(firstAlert->text(), u"Serverfout: HTTP 500"_s);
    QCOMPARE(first->contentState(), State::ProductList);

    QTest::mouseClick(secondAlert->buttons().first(), Qt::LeftButton);
    QVERIFY(!m_viewModel->errorMessage());
    QTRY_VERIFY(!first->errorAlert());
    QTRY_VERIFY(first->findChildren<QMessageBox*>().isEmpty());
}

QTEST_MAIN(ContentViewTest)
#include "tst_ContentView.moc"

#include "AboutWindow.h"
#include "ContentView.h"
#include "CustomTitleBar.h"
#include "MainWindow.h"
#include "ProductListView.h"
#include "ProductTableModel.h"
#include "ProductWindowFixture.h"
#include "views/settings/SettingsWindow.h"
#include "StampixApp.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;
using Fixture = ProductWindowFixture;
using State = ContentView::ContentState;

Q_DECLARE_METATYPE(ContentView::ContentState)

namespace {

QStringList actionTexts(const QMenu* menu)
{
    QStringList texts;
    for (const QAction* action : menu->actions())
        texts.append(action->isSeparator() ? u"--"_s : action->text());
    return texts;
}

bool isSettingsWindow(const QWidget* widget)
{
    return qobject_cast<const SettingsWindow*>(widget) != nullptr;
}

ProductListView* productList(MainWindow* window)
{
    return qobject_cast<ProductListView*>(window->contentView()->contentWidget());
}

} // namespace

class StampixAppTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void firstWindowBuildsTheSharedObjectsAndMenus();
    void addedCommandsReachEveryWindow();
    void printSelectedLabelPrintsExactlyOneLabel();
    void refreshWithoutConfigurationReportsIt();
    void newWindowSharesProductsSelectionAndChecks();
    void settingsAndAboutWindowsAreSingleInstances();

private:
    MainWindow* openConfiguredWindow();

    std::unique_ptr<Fixture> m_fixture;
    std::unique_ptr<StampixApp> m_app;
    QList<Product> m_products;
};

void StampixAppTest::init()
{
    m_fixture = std::make_unique<Fixture>();
    QVERIFY(m_fixture->isReady());
    m_products = {Fixture::product(1, u"B-2"_s, u"Beitel"_s),
                  Fixture::product(2, u"A-1"_s, u"Hamer"_s)};
    m_fixture->serveProducts(m_products);
    m_app = std::make_unique<StampixApp>(m_fixture->server().baseUrl());
}

void StampixAppTest::cleanup()
{
    m_app.reset();
    m_fixture.reset();
}

MainWindow* StampixAppTest::openConfiguredWindow()
{
    MainWindow* window = m_app->openMainWindow();
    // Choosing a dossier, as in the settings window, makes the open window load.
    m_fixture->configure(*m_app->settings());
    return window;
}

void StampixAppTest::firstWindowBuildsTheSharedObjectsAndMenus()
{
    QVERIFY(!m_app->settings());
    QVERIFY(!m_app->productListViewModel());
    MainWindow* window = m_app->openMainWindow();
    QVERIFY(m_app->settings());
    QVERIFY(m_app->productListViewModel());
    QCOMPARE(m_app->productListViewModel()->settings(), m_app->settings());
    QCOMPARE(window->windowTitle(), u"Stampix"_s);
    QVERIFY(window->isVisible());
    QCOMPARE(window->contentView()->titleBar()->isVisible(), MainWindow::usesCustomTitleBar());
    QCOMPARE(window->contentView()->contentState(), State::ConfigurationNeeded);

    QVERIFY(m_app->updaterViewModel());

    QCOMPARE(actionTexts(window->menu(MainWindow::Menu::File)),
             (QStringList{u"New Window"_s, u"Import Settings..."_s, u"Export Settings..."_s,
                          u"--"_s, u"Quit"_s}));
    QCOMPARE(actionTexts(window->menu(MainWindow::Menu::View)),
             (QStringList{u"Refresh Products"_s, u"--"_s, u"Print Selected Label"_s}));
    QCOMPARE(actionTexts(window->menu(MainWindow::Menu::Settings)),
             (QStringList{u"Settings..."_s, u"--"_s, u"Check for Updates..."_s}));
    QCOMPARE(actionTexts(window->menu(MainWindow::Menu::Help)),
             QStringList{u"About Stampix (v1.0)"_s});
    QCOMPARE(m_app->refreshProductsAction()->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_R));
    QCOMPARE(m_app->printSelectedLabelAction()->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_P));
    QCOMPARE(m_app->newWindowAction()->shortcut(), QKeySequence(QKeySequence::New));
    QCOMPARE(m_app->importSettingsAction()->shortcut(),
             QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_I));
    QCOMPARE(m_app->exportSettingsAction()->shortcut(),
             QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E));
    QCOMPARE(m_app->settingsAction()->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Comma));
    QVERIFY(m_app->checkForUpdatesAction()->shortcut().isEmpty());
    QCOMPARE(window->menuBar()->actions().size(), 4);

    // Opening more windows builds nothing new.
    AppSettings* settings = m_app->settings();
    m_app->openMainWindow();
    QCOMPARE(m_app->settings(), settings);
    QCOMPARE(m_app->mainWindows().size(), 2);
}

void StampixAppTest::addedCommandsReachEveryWindow()
{
    MainWindow* first = m_app->openMainWindow();
    QAction extra(u"Extra"_s);
    m_app->addMenuAction(StampixApp::Menu::File, &extra);
    MainWindow* second = m_app->openMainWindow();
    for (MainWindow* window : {first, second}) {
        QCOMPARE(actionTexts(window->menu(MainWindow::Menu::File)),
                 (QStringList{u"New Window"_s, u"Import Settings..."_s, u"Export Settings..."_s,
                              u"Extra"_s, u"--"_s, u"Quit"_s}));
        QVERIFY(window->menu(MainWindow::Menu::Settings)->menuAction()->isVisible());
        QVERIFY(window->menu(MainWindow::Menu::Help)->menuAction()->isVisible());
    }
}

void StampixAppTest::settingsAndAboutWindowsAreSingleInstances()
{
    m_app->openMainWindow();
    m_app->settingsAction()->trigger();
    QPointer<SettingsWindow> settings = m_app->settingsWindow();
    QVERIFY(settings);
    QVERIFY(settings->isVisible());
    QCOMPARE(settings->windowTitle(), u"Settings"_s);
    m_app->settingsAction()->trigger();
    QCOMPARE(m_app->settingsWindow(), settings.data());
    const QWidgetList topLevels = QApplication::topLevelWidgets();
    QCOMPARE(std::count_if(topLevels.begin(), topLevels.end(), &isSettingsWindow), 1);

    m_app->aboutAction()->trigger();
    QPointer<AboutWindow> about = m_app->aboutWindow();
    QVERIFY(about && about->isVisible());
    m_app->aboutAction()->trigger();
    QCOMPARE(m_app->aboutWindow(), about.data());

    // Closed windows open anew.
    settings->close();
    QTRY_VERIFY(!settings);
    m_app->settingsAction()->trigger();
    QVERIFY(m_app->settingsWindow());
}

void StampixAppTest::printSelectedLabelPrintsExactlyOneLabel()
{
    MainWindow* window = openConfiguredWindow();
    QTRY_COMPARE_WITH_TIMEOUT(window->contentView()->contentState(), State::ProductList, 5000);
    ProductListViewModel* model = m_app->productListViewModel();
    QAction* print = m_app->printSelectedLabelAction();
    QVERIFY(!print->isEnabled());

    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window, Qt::Key_P, Qt::ControlModifier);
    QTest::qWait(100);
    QCOMPARE(m_fixture->sink().connectionCount(), 0);

    model->setPrintQuantity(5);
    model->toggleChecked(m_products.at(0));
    model->toggleChecked(m_products.at(1));
    model->setSelectedProductID(1);
    QVERIFY(print->isEnabled());
    QTest::keyClick(window, Qt::Key_P, Qt::ControlModifier);
    QTRY_COMPARE_WITH_TIMEOUT(m_fixture->sink().jobs().size(), 1, 5000);
    QTest::qWait(200);
    QCOMPARE(m_fixture->sink().jobs(), QList<QByteArray>{Fixture::expectedLabel(m_products.at(0))});
    QTRY_COMPARE(model->successMessage(), std::optional(u"Etiket geprint voor B-2"_s));

    model->setSelectedProductID(std::nullopt);
    QVERIFY(!print->isEnabled());
}

void StampixAppTest::refreshWithoutConfigurationReportsIt()
{
    MainWindow* window = m_app->openMainWindow();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window, Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(m_app->productListViewModel()->errorMessage(),
             std::optional(u"Selecteer een dossier met API key in Instellingen"_s));
    QCOMPARE(m_fixture->productRequestCount(), 0);

    m_fixture->configure(*m_app->settings());
    QTRY_COMPARE_WITH_TIMEOUT(m_fixture->productRequestCount(), 1, 5000);
    m_app->refreshProductsAction()->trigger();
    QTRY_COMPARE_WITH_TIMEOUT(m_fixture->productRequestCount(), 2, 5000);
}

void StampixAppTest::newWindowSharesProductsSelectionAndChecks()
{
    MainWindow* first = openConfiguredWindow();
    QTRY_COMPARE_WITH_TIMEOUT(first->contentView()->contentState(), State::ProductList, 5000);
    ProductListViewModel* model = m_app->productListViewModel();
    model->setSelectedProductID(1);
    model->toggleChecked(m_products.at(1));

    m_app->newWindowAction()->trigger();
    QCOMPARE(m_app->mainWindows().size(), 2);
    MainWindow* second = m_app->mainWindows().last();
    QVERIFY(second != first);
    QCOMPARE(second->contentView()->contentState(), State::ProductList);
    QTableView* table = productList(second)->tableView();
    QCOMPARE(table->model()->rowCount(), 2);
    // Sorted by article number: A-1 (ID 2) first, B-2 (ID 1) second.
    QVERIFY(table->selectionModel()->isRowSelected(1, {}));
    QCOMPARE(table->model()->index(0, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QCOMPARE(table->model()->index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QCOMPARE(m_fixture->productRequestCount(), 1);
}

QTEST_MAIN(StampixAppTest)
#include "tst_StampixApp.moc"

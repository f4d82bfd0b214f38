#include "ProductWindowFixture.h"
#include "TestHome.h"
#include "labelrender/LabelRenderer.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/common/LabelPictureButton.h"
#include "views/common/LabelPreviewView.h"
#include "views/common/SaveErrorLabel.h"
#include "views/common/SymbolIcons.h"
#include "views/main/ContentView.h"
#include "views/main/CustomToolbar.h"
#include "views/main/PrintButton.h"
#include "views/main/ProductListView.h"
#include "views/main/ProductTableModel.h"
#include "views/main/StatusBarView.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Fixture = ProductWindowFixture;
using State = ContentView::ContentState;

// The product window: its states, its alert, the toolbar, the table and the status bar.
class ProductWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void statesFollowTheLoadAndTheSearch();
    void appearingAndAlerts_data();
    void appearingAndAlerts();
    void onlyAnotherDossierReloads();
    void printBadgeAndReloadButtons();
    void aFailedSaveShowsUntilASaveSucceeds();
    void clickAnywhereInTheCheckCellToggles();
    void spaceBar_data();
    void spaceBar();
    void spaceInTheSearchFieldTypesNoBlankWhileTheTableIsShown();
    void columnWidthsComeFromTheStoreAndKeepTheirMinimum();
    void tabAndScreenReadersReachEveryControl();
    void labelPreviewFollowsSelectionTemplateAndEdits();

private:
    void showWindow(int status = 200, std::chrono::milliseconds delay = 0ms);
    void showTable();
    void showCheckedTable();
    QTableView* table() const;
    qint64 idAt(int row) const;

    std::unique_ptr<Fixture> m_fixture;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<ProductListViewModel> m_viewModel;
    std::unique_ptr<ContentView> m_view;
    // Service order differs from the displayed order (article number ascending).
    const QList<Product> m_products{Fixture::product(10, u"C-3"_s, u"Zaag"_s),
                                    Fixture::product(20, u"A-1"_s, u"Hamer"_s),
                                    Fixture::product(30, u"B-2"_s, u"Beitel"_s)};
};

void ProductWindowTest::init()
{
    m_fixture = std::make_unique<Fixture>();
    QVERIFY(m_fixture->isReady());
    m_settings = m_fixture->makeConfiguredSettings();
    m_viewModel = m_fixture->makeViewModel();
}

void ProductWindowTest::cleanup()
{
    m_view.reset();
    m_viewModel.reset();
    m_settings.reset();
    m_fixture.reset();
}

void ProductWindowTest::showWindow(int status, std::chrono::milliseconds delay)
{
    m_fixture->serveProducts(m_products, delay);
    if (status != 200)
        m_fixture->serveStatus(status);
    m_view = std::make_unique<ContentView>(*m_settings, *m_viewModel);
    m_view->resize(1000, 640);
    m_view->show();
}

void ProductWindowTest::showTable()
{
    showWindow();
    QTRY_COMPARE_WITH_TIMEOUT(m_view->contentState(), State::ProductList, 5000);
}

// Every control of the window is there: the table, the badge and the print controls.
void ProductWindowTest::showCheckedTable()
{
    showTable();
    for (const Product& product : m_products)
        m_viewModel->toggleChecked(product);
}

void ProductWindowTest::statesFollowTheLoadAndTheSearch()
{
    showWindow(200, 200ms);
    QCOMPARE(m_view->contentState(), State::Loading);
    QTRY_COMPARE_WITH_TIMEOUT(m_view->contentState(), State::ProductList, 5000);
    m_viewModel->setSearchText(u"zzz"_s);
    m_viewModel->setSearchText(u"<b>zzz"_s);
    QCOMPARE(m_view->contentState(), State::NoResults);
    QCOMPARE(m_view->contentWidget()->findChild<QLabel*>()->text(),
             u"Geen resultaten voor \"<b>zzz\""_s);
    QCOMPARE(m_view->contentWidget()->findChild<QLabel*>()->textFormat(), Qt::PlainText);

    // A reload hides the table, even with products known; no API key hides the reload.
    m_viewModel->fetchProducts();
    QCOMPARE(m_view->contentState(), State::Loading);
    m_settings->updateDossier(0, [](Dossier& dossier) { dossier.apiKey.clear(); });
    QCOMPARE(m_view->contentState(), State::ConfigurationNeeded);
    QTRY_VERIFY_WITH_TIMEOUT(!m_viewModel->isLoading(), 5000);
    QCOMPARE(m_view->contentState(), State::ConfigurationNeeded);
#ifndef Q_OS_MACOS
    QCOMPARE(m_view->contentWidget()->findChild<QLabel*>(u"hint"_s)->text(),
             u"Configureer een dossier met API key in Instellingen (Ctrl+,)"_s);
#endif
}

void ProductWindowTest::appearingAndAlerts_data()
{
    QTest::addColumn<bool>("configured");
    QTest::addColumn<bool>("failFirst");
    QTest::addColumn<bool>("failReload");
    QTest::addColumn<bool>("restore"); // from minimised, else hidden and shown again
    QTest::addColumn<int>("requests");
    QTest::newRow("unconfigured") << false << false << false << false << 0;
    QTest::newRow("loaded, shown again") << true << false << false << false << 1;
    QTest::newRow("first load failed, shown again") << true << true << false << false << 2;
    QTest::newRow("first load failed, restored") << true << true << false << true << 1;
    // A failed reload keeps the products; the alert comes up over the table.
    QTest::newRow("reload failed, restored") << true << false << true << true << 2;
}

void ProductWindowTest::appearingAndAlerts()
{
    QFETCH(bool, configured);
    QFETCH(bool, failFirst);
    QFETCH(bool, failReload);
    QFETCH(bool, restore);
    QFETCH(int, requests);
    if (!configured)
        m_settings->updateDossier(0, [](Dossier& dossier) { dossier.apiKey.clear(); });
    showWindow(failFirst ? 500 : 200);
    QTRY_VERIFY_WITH_TIMEOUT(!m_viewModel->isLoading(), 5000);
    if (failReload) {
        m_fixture->serveStatus(500);
        m_viewModel->fetchProducts();
    }
    if (failFirst || failReload) {
        QTRY_VERIFY_WITH_TIMEOUT(m_view->errorAlert() && m_view->errorAlert()->isVisible(), 5000);
        QMessageBox* alert = m_view->errorAlert();
        QCOMPARE(alert->windowTitle(), u"Fout"_s);
        QCOMPARE(alert->text(), u"Serverfout: HTTP 500"_s);
        QCOMPARE(alert->buttons().size(), 1);
        QCOMPARE(m_view->contentState(), failReload ? State::ProductList : State::Empty);
        QTest::mouseClick(alert->buttons().first(), Qt::LeftButton);
        QVERIFY(!m_viewModel->errorMessage());
        QTRY_VERIFY(m_view->findChildren<QMessageBox*>().isEmpty());
    }
    QCOMPARE(m_viewModel->settings(), m_settings.get());

    if (restore) {
        m_view->setWindowState(Qt::WindowMinimized);
        m_view->setWindowState(Qt::WindowNoState);
    } else {
        m_view->hide();
        m_view->show();
    }
    QTest::qWait(100);
    QTRY_VERIFY_WITH_TIMEOUT(!m_viewModel->isLoading(), 5000);
    QCOMPARE(m_fixture->productRequestCount(), requests);
    QCOMPARE(bool(m_view->errorAlert()), failFirst && !restore);
    // With no products and no alert, "Vernieuwen" loads again.
    if (m_view->contentState() == State::Empty && !m_view->errorAlert()) {
        QTest::mouseClick(m_view->contentWidget()->findChild<QPushButton*>(u"refreshButton"_s),
                          Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(m_fixture->productRequestCount(), requests + 1, 5000);
    }
}

void ProductWindowTest::onlyAnotherDossierReloads()
{
    showWindow();
    const Dossier second{QUuid::createUuid(), {}, u"key-2"_s};
    const QUuid first = m_settings->dossiers().at(0).id;
    m_settings->setDossiers({m_settings->dossiers().at(0), second});
    QComboBox* picker = m_view->toolbar()->dossierPicker();
    QTest::keyClick(picker, Qt::Key_Down);
    QCOMPARE(m_settings->selectedDossierID(), second.id);
    QTRY_COMPARE_WITH_TIMEOUT(m_fixture->productRequestCount(), 2, 5000);
    emit picker->activated(picker->currentIndex());
    m_settings->setSelectedDossierID(second.id);
    // A change made elsewhere, for example in the settings window, reloads.
    m_settings->setSelectedDossierID(first);
    QCOMPARE(picker->currentIndex(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(m_fixture->productRequestCount(), 3, 5000);
    QTest::qWait(150);
    QCOMPARE(m_fixture->productRequestCount(), 3);

    // A dossier without a key still starts a load, which tells the user why not.
    const Dossier keyless;
    m_settings->setDossiers({m_settings->dossiers().at(0), second, keyless});
    m_settings->setSelectedDossierID(keyless.id);
    QTRY_VERIFY_WITH_TIMEOUT(m_view->errorAlert() && m_view->errorAlert()->isVisible(), 5000);
    QCOMPARE(m_view->errorAlert()->text(), u"Selecteer een dossier met API key in Instellingen"_s);
    QCOMPARE(m_fixture->productRequestCount(), 3);
}

void ProductWindowTest::printBadgeAndReloadButtons()
{
    m_settings->updatePrinter(0, [](Printer& printer) { printer.ipAddress.clear(); });
    showCheckedTable();
    PrintButton* print = m_view->statusBar()->printButton();
    QVERIFY(print->isVisible() && !print->isEnabled());
    m_settings->updatePrinter(0, [](Printer& printer) { printer.ipAddress = u"127.0.0.1"_s; });
    QTest::mouseClick(print, Qt::LeftButton);
    QVERIFY(!print->isEnabled() && print->isBusy());
    QTRY_VERIFY_WITH_TIMEOUT(!m_view->statusBar()->isPrinting(), 10000);
    QVERIFY(print->isEnabled() && !print->isBusy());

    // The reload symbol follows a palette change (the print fill is a style sheet,
    // which Theme refreshes).
    CustomToolbar* toolbar = m_view->toolbar();
    const QPalette original = QApplication::palette();
    const auto restore = qScopeGuard([&original] { QApplication::setPalette(original); });
    QPalette dark = original;
    dark.setColor(QPalette::WindowText, QColor(236, 236, 236));
    QApplication::setPalette(dark);
    QTRY_COMPARE(
        toolbar->reloadButton()->icon().pixmap(16).toImage(),
        SymbolIcons::tinted(u"arrow.clockwise", QColor(236, 236, 236), 16).pixmap(16).toImage());

    QTest::mouseClick(toolbar->clearCheckedButton(), Qt::LeftButton);
    QVERIFY(!toolbar->checkedBadge()->isVisible() && !print->isVisible());
    m_fixture->serveProducts(m_products, 200ms);
    QTest::mouseClick(toolbar->reloadButton(), Qt::LeftButton);
    QVERIFY(!toolbar->reloadButton()->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(toolbar->reloadButton()->isEnabled(), 5000);
}

// The line says why on a row of its own (its text is tested with the settings
// window): the status row stays as it is, even in the narrowest window.
void ProductWindowTest::aFailedSaveShowsUntilASaveSucceeds()
{
    showCheckedTable();
    m_view->resize(600, 640);
    StatusBarView* status = m_view->statusBar();
    QTest::mouseClick(status->printButton(), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(!status->isPrinting(), 10000);
    QVERIFY(status->successRow()->isVisible() && !status->saveErrorLabel()->isVisible());
    const auto geometries = [status] {
        return QList<QRect>{status->countLabel()->geometry(), status->successRow()->geometry(),
                            status->printControls()->geometry(),
                            status->versionLabel()->geometry()};
    };
    QTest::qWait(50);
    const QList<QRect> before = geometries();
    for (bool blocked : {true, false}) {
        QVERIFY(blocked ? TestHome::blockFile(m_settings->settingsFilePath())
                        : TestHome::unblockFile(m_settings->settingsFilePath()));
        m_settings->setColumnWidthName(blocked ? 280 : 290);
        m_settings->savePendingChanges();
        QCOMPARE(status->saveErrorLabel()->isVisible(), blocked);
        QTest::qWait(20);
        QCOMPARE(geometries(), before);
    }
}

void ProductWindowTest::tabAndScreenReadersReachEveryControl()
{
    showCheckedTable();
    StatusBarView* status = m_view->statusBar();
    QTest::mouseClick(status->printButton(), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(!status->isPrinting(), 10000);
    CustomToolbar* bar = m_view->toolbar();
    // In visual order, each with what a screen reader says; the pickers are
    // named by the labels beside them.
    const QList<std::tuple<QWidget*, QString, QAccessible::Role>> stops{
        {bar->dossierPicker(), u"Dossier:"_s, QAccessible::ComboBox},
        {bar->templatePicker(), u"Etiket:"_s, QAccessible::ComboBox},
        {bar->searchField(), u"Zoeken"_s, QAccessible::EditableText},
        {bar->clearCheckedButton(), u"Selectie wissen"_s, QAccessible::Button},
        {bar->reloadButton(), u"Vernieuwen"_s, QAccessible::Button},
        {table(), u"Producten"_s, QAccessible::Table},
        {status->quantityField(), u"Aantal"_s, QAccessible::EditableText},
        {status->printButton(), u"Start afdrukken"_s, QAccessible::Button}};
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    std::get<0>(stops.first())->setFocus(Qt::TabFocusReason);
    for (qsizetype i = 1; i <= stops.size(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const auto& [widget, name, role] = stops.at(i % stops.size());
        QCOMPARE(QApplication::focusWidget(), widget);
        QAccessibleInterface* item = QAccessible::queryAccessibleInterface(widget);
        const auto labels = item->relations(QAccessible::Label);
        QCOMPARE((labels.isEmpty() ? item : labels.first().first)->text(QAccessible::Name), name);
        QCOMPARE(item->role(), role);
    }
    for (qsizetype i = stops.size() - 1; i >= 0; --i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), std::get<0>(stops.at(i)));
    }
    // Read, though Tab does not stop there.
    QStringList read;
    for (QLabel* label : m_view->findChildren<QLabel*>()) {
        QAccessibleInterface* item = QAccessible::queryAccessibleInterface(label);
        if (label->isVisible() && item->role() == QAccessible::StaticText)
            read << item->text(QAccessible::Name);
    }
    QVERIFY(read.contains(u"3 geselecteerd"_s) && read.contains(u"Etiket geprint voor B-2"_s));
}

QTableView* ProductWindowTest::table() const
{
    auto* list = qobject_cast<ProductListView*>(m_view->contentWidget());
    return list ? list->tableView() : nullptr;
}

qint64 ProductWindowTest::idAt(int row) const
{
    return table()->model()->index(row, 0).data(ProductTableModel::kProductIDRole).toLongLong();
}

void ProductWindowTest::clickAnywhereInTheCheckCellToggles()
{
    showTable();
    const QRect cell =
        table()->visualRect(table()->model()->index(1, ProductTableModel::kCheckColumn));
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell.topLeft() + QPoint(1, 1));
    QCOMPARE(m_viewModel->checkedProductIDs(), QSet<qint64>{idAt(1)});
    // Other cells select, they do not tick.
    const QPoint nextCell = cell.center() + QPoint(cell.width(), 0);
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, nextCell);
    QCOMPARE(m_viewModel->checkedProductIDs().size(), 1);
    QCOMPARE(m_viewModel->selectedProductID(), idAt(1));
    // Two quick clicks are two toggles: a widget gets press, release, double-click, release.
    QSignalSpy toggles(m_viewModel.get(), &ProductListViewModel::checkedProductIDsChanged);
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseRelease(table()->viewport(), Qt::LeftButton, {}, cell.center());
    QCOMPARE(toggles.size(), 2);
    QCOMPARE(m_viewModel->checkedProductIDs(), QSet<qint64>{idAt(1)});
}

void ProductWindowTest::spaceBar_data()
{
    // Displayed by article number: 20, 30 (B-2), 10 (C-3).
    QTest::addColumn<qint64>("selected"); // 0: none
    QTest::addColumn<QString>("search");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<qint64>("checked"); // 0: none
    QTest::addColumn<qint64>("selectedAfter");
    QTest::newRow("moves down") << 20LL << QString() << 0 << 20LL << 30LL;
    QTest::newRow("last row stays") << 10LL << QString() << int(Qt::AltModifier) << 10LL << 10LL;
    QTest::newRow("no selection") << 0LL << QString() << 0 << 0LL << 0LL;
    QTest::newRow("selection hidden") << 10LL << u"hamer"_s << 0 << 0LL << 10LL;
}

void ProductWindowTest::spaceBar()
{
    QFETCH(qint64, selected);
    QFETCH(QString, search);
    QFETCH(int, modifiers);
    QFETCH(qint64, checked);
    QFETCH(qint64, selectedAfter);
    showTable();
    if (selected)
        m_viewModel->setSelectedProductID(selected);
    m_viewModel->setSearchText(search);
    QTest::keyClick(table(), Qt::Key_Space, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(m_viewModel->checkedProductIDs(), checked ? QSet<qint64>{checked} : QSet<qint64>());
    QCOMPARE(m_viewModel->selectedProductID().value_or(0), selectedAfter);
    if (selectedAfter && search.isEmpty())
        QCOMPARE(idAt(table()->selectionModel()->selectedRows().value(0).row()), selectedAfter);
}

void ProductWindowTest::spaceInTheSearchFieldTypesNoBlankWhileTheTableIsShown()
{
    showTable();
    QLineEdit* search = m_view->toolbar()->searchField();
    m_viewModel->setSelectedProductID(20);
    QTest::keyClicks(search, u"a a"_s);
    QCOMPARE(m_viewModel->checkedProductIDs(), QSet<qint64>{20});
    QCOMPARE(m_viewModel->selectedProductID(), 10);

    // Without the table nothing takes the space bar: blanks can be typed.
    QTest::keyClicks(search, u"x"_s);
    QCOMPARE(m_view->contentState(), State::NoResults);
    QTest::keyClicks(search, u" y"_s);
    QCOMPARE(search->text(), u"aax y"_s);
}

void ProductWindowTest::columnWidthsComeFromTheStoreAndKeepTheirMinimum()
{
    showTable();
    QHeaderView* header = table()->horizontalHeader();
    for (int column : {0, 1, 2, 3})
        QCOMPARE(header->sectionSize(column), (QList<int>{30, 120, 300, 100}).at(column));
    // The last column fills the rest of the window; that width is never stored.
    QCOMPARE(header->length(), table()->viewport()->width());
    QVERIFY(header->sectionSize(ProductTableModel::kBarcodeColumn) > 130);
    QCOMPARE(m_settings->columnWidthBarcode(), 130.0);

    header->resizeSection(ProductTableModel::kNameColumn, 40);
    QCOMPARE(header->sectionSize(ProductTableModel::kNameColumn), 150);
    header->resizeSection(ProductTableModel::kPriceColumn, 10);
    QCOMPARE(header->sectionSize(ProductTableModel::kPriceColumn), 80);
    header->resizeSection(ProductTableModel::kNameColumn, 420);
    QCOMPARE(header->length(), table()->viewport()->width());

    // The next table reads the stored widths again.
    m_settings->setColumnWidthName(260);
    m_viewModel->fetchProducts();
    QTRY_COMPARE_WITH_TIMEOUT(m_view->contentState(), State::ProductList, 5000);
    header = table()->horizontalHeader();
    QCOMPARE(header->sectionSize(ProductTableModel::kNameColumn), 260);

    // Header clicks sort; the check column does not, and must not show that it does.
    const auto click = [header](int column) {
        const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    };
    click(ProductTableModel::kNameColumn);
    click(ProductTableModel::kNameColumn);
    QCOMPARE(idAt(0), 10); // Zaag
    click(ProductTableModel::kCheckColumn);
    QCOMPARE(idAt(0), 10);
    QCOMPARE(header->sortIndicatorSection(), ProductTableModel::kNameColumn);
    QCOMPARE(header->sortIndicatorOrder(), Qt::DescendingOrder);
}

void ProductWindowTest::labelPreviewFollowsSelectionTemplateAndEdits()
{
    LabelTemplate accented;
    accented.name = u"Klein"_s;
    accented.zplContent = u"^XA^PW400^LL200^FO10,10^A0N,30^FDé {{NAAM}}^FS^XZ"_s;
    m_settings->setTemplates({m_settings->templates().at(0), accented});
    showTable();
    QVERIFY(!m_view->isLabelPreviewShown());
    m_view->setLabelPreviewShown(true);
    LabelPreviewView* preview = m_view->labelPreview();
    QVERIFY(m_view->isLabelPreviewShown() && !preview->isVisible());
    QCOMPARE(m_view->labelPreviewSubtitle()->text(),
             u"Selecteer een product om het etiket te zien."_s);

    // The label exactly as printing fills and the printer draws it.
    const auto printed = [this](const Product& product) {
        const QString zpl =
            ZPLService().generateZPL(product, m_settings->selectedTemplate()->zplContent).value();
        return LabelRenderer().render(zpl).labels.at(0).image;
    };
    const QImage& shown = preview->picture()->image();
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {},
                      table()->visualRect(table()->model()->index(1, 1)).center());
    QVERIFY(preview->isVisible());
    QCOMPARE(shown, printed(m_products.at(2)));

    QComboBox* picker = m_view->toolbar()->templatePicker();
    picker->setCurrentIndex(1);
    emit picker->activated(1);
    QCOMPARE(shown, printed(m_products.at(2)));

    m_settings->updateTemplate(1, [](LabelTemplate& t) { t.zplContent.replace(u"é"_s, u"e"_s); });
    QCOMPARE(shown, printed(m_products.at(2)));

    // Thirty warnings: twenty are shown, and how many more there are.
    m_settings->updateTemplate(1, [](LabelTemplate& t) {
        t.zplContent = u"^XA^PW400^LL200"_s + u"^FO500,0^FD{{NAAM}}^FS"_s.repeated(30) + u"^XZ"_s;
    });
    QStringList rows;
    for (const QLabel* label : preview->findChildren<QLabel*>())
        rows << label->text();
    QCOMPARE(rows.filter(u"begint buiten de etiketbreedte"_s).size(), 20);
    QVERIFY(rows.contains(u"en %1 meer"_s.arg(preview->warnings().size() - 20)));

    // A label too large to fill says so in place of the picture.
    m_settings->updateTemplate(1, [](LabelTemplate& t) {
        t.zplContent = u"^XA^FD{{NAAM}}"_s + QString(ZPLService::kMaxLabelBytes, u'x');
    });
    QVERIFY(!preview->picture()->isVisible());
    QCOMPARE(preview->sizeText(), ZPLService::labelTooLargeMessage());

    m_viewModel->setSelectedProductID(std::nullopt);
    QVERIFY(!preview->isVisible());
    m_view->setLabelPreviewShown(false);
    QVERIFY(!m_view->isLabelPreviewShown() && !preview->isVisible());
}

QTEST_MAIN(ProductWindowTest)
#include "tst_ProductWindow.moc"

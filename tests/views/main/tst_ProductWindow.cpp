#include "ProductWindowFixture.h"
#include "labelrender/LabelRenderer.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/common/LabelPictureButton.h"
#include "views/common/LabelPreviewView.h"
#include "views/common/SaveErrorLabel.h"
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
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
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

    void statesFollowTheLoadTheDossierAndTheSearch();
    void appearingAndAlerts_data();
    void appearingAndAlerts();
    void printRunStatusRowAndTabOrder();
    void spaceBar_data();
    void spaceBar();
    void columnsAndClicks();
    void labelPreviewFollowsSelectionTemplateAndEdits();

private:
    void showWindow(int status = 200, std::chrono::milliseconds delay = 0ms);
    void showTable();
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

QTableView* ProductWindowTest::table() const
{
    auto* list = qobject_cast<ProductListView*>(m_view->contentWidget());
    return list ? list->tableView() : nullptr;
}

qint64 ProductWindowTest::idAt(int row) const
{
    return table()->model()->index(row, 0).data(ProductTableModel::kProductIDRole).toLongLong();
}

void ProductWindowTest::statesFollowTheLoadTheDossierAndTheSearch()
{
    showWindow(200, 200ms);
    QCOMPARE(m_view->contentState(), State::Loading);
    QTRY_COMPARE_WITH_TIMEOUT(m_view->contentState(), State::ProductList, 5000);
    m_settings->setDossiers(
        {m_settings->dossiers().at(0), {QUuid::createUuid(), {}, u"key-2"_s}, {}});
    // Another dossier reloads, and a reload hides the table even with products known.
    QComboBox* picker = m_view->toolbar()->dossierPicker();
    QTest::keyClick(picker, Qt::Key_Down);
    QCOMPARE(m_settings->selectedDossierID(), m_settings->dossiers().at(1).id);
    QCOMPARE(m_view->contentState(), State::Loading);
    QTRY_COMPARE_WITH_TIMEOUT(m_fixture->productRequestCount(), 2, 5000);
    emit picker->activated(picker->currentIndex()); // the same one again: no load
    // So does a change made elsewhere, for example in the settings window.
    m_settings->setSelectedDossierID(m_settings->dossiers().at(0).id);
    QCOMPARE(picker->currentIndex(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(m_view->contentState(), State::ProductList, 5000);
    QCOMPARE(m_fixture->productRequestCount(), 3);

    // Every keystroke searches; once the table is gone, blanks can be typed.
    QTest::keyClicks(m_view->toolbar()->searchField(), u"<b> z"_s);
    QCOMPARE(m_view->contentState(), State::NoResults);
    const QLabel* headline = m_view->contentWidget()->findChild<QLabel*>();
    QCOMPARE(headline->text(), u"Geen resultaten voor \"<b> z\""_s);
    QCOMPARE(headline->textFormat(), Qt::PlainText);

    // A dossier without a key hides a running load, and still loads to say why not.
    m_viewModel->fetchProducts();
    m_settings->setSelectedDossierID(m_settings->dossiers().at(2).id);
    QVERIFY(m_viewModel->isLoading() && m_view->contentState() == State::ConfigurationNeeded);
    QTRY_VERIFY_WITH_TIMEOUT(m_view->errorAlert(), 5000);
}

void ProductWindowTest::appearingAndAlerts_data()
{
    QTest::addColumn<int>("firstStatus"); // 0: no API key, nothing loads
    QTest::addColumn<bool>("restore");    // from minimised, else hidden and shown again
    QTest::addColumn<int>("requests");
    QTest::newRow("unconfigured") << 0 << false << 0;
    QTest::newRow("loaded, shown again") << 200 << false << 1;
    QTest::newRow("first load failed, shown again") << 500 << false << 2;
    QTest::newRow("first load failed, restored") << 500 << true << 1;
}

void ProductWindowTest::appearingAndAlerts()
{
    QFETCH(int, firstStatus);
    QFETCH(bool, restore);
    QFETCH(int, requests);
    const bool failFirst = firstStatus == 500;
    if (!firstStatus)
        m_settings->updateDossier(0, [](Dossier& dossier) { dossier.apiKey.clear(); });
    showWindow(qMax(firstStatus, 200));
    QTRY_VERIFY_WITH_TIMEOUT(!m_viewModel->isLoading(), 5000);
    if (failFirst) {
        QTRY_VERIFY_WITH_TIMEOUT(m_view->errorAlert() && m_view->errorAlert()->isVisible(), 5000);
        QMessageBox* alert = m_view->errorAlert();
        QCOMPARE(alert->windowTitle() + u' ' + alert->text(), u"Fout Serverfout: HTTP 500"_s);
        QCOMPARE(m_view->contentState(), State::Empty);
        QTest::mouseClick(alert->buttons().first(), Qt::LeftButton);
        QVERIFY(!m_viewModel->errorMessage());
    }
    QCOMPARE(m_viewModel->settings(), m_settings.get());

    if (restore)
        m_view->setWindowState(Qt::WindowMinimized);
    else
        m_view->hide();
    m_view->setWindowState(Qt::WindowNoState);
    m_view->show();
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

void ProductWindowTest::printRunStatusRowAndTabOrder()
{
    m_settings->updatePrinter(0, [](Printer& printer) { printer.ipAddress.clear(); });
    showTable();
    for (const Product& product : m_products)
        m_viewModel->toggleChecked(product);
    m_view->resize(600, 640); // the narrowest window
    StatusBarView* status = m_view->statusBar();
    PrintButton* print = status->printButton();
    QVERIFY(print->isVisible() && !print->isEnabled());
    m_settings->updatePrinter(0, [](Printer& printer) { printer.ipAddress = u"127.0.0.1"_s; });
    QTest::mouseClick(print, Qt::LeftButton);
    QVERIFY(!print->isEnabled() && print->isBusy());
    QTRY_VERIFY_WITH_TIMEOUT(print->isEnabled() && !print->isBusy(), 10000);

    // Tab in visual order, with what a screen reader says (the pickers: their labels).
    CustomToolbar* bar = m_view->toolbar();
    const QList<std::tuple<QWidget*, QString, QAccessible::Role>> stops{
        {bar->dossierPicker(), u"Dossier:"_s, QAccessible::ComboBox},
        {bar->templatePicker(), u"Etiket:"_s, QAccessible::ComboBox},
        {bar->searchField(), u"Zoeken"_s, QAccessible::EditableText},
        {bar->clearCheckedButton(), u"Selectie wissen"_s, QAccessible::Button},
        {bar->reloadButton(), u"Vernieuwen"_s, QAccessible::Button},
        {table(), u"Producten"_s, QAccessible::Table},
        {status->quantityField(), u"Aantal"_s, QAccessible::EditableText},
        {print, u"Start afdrukken"_s, QAccessible::Button}};
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

    // A failed save shows on a row of its own until a save succeeds.
    const auto geometries = [status] {
        return QList<QRect>{status->countLabel()->geometry(), status->printControls()->geometry()};
    };
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

    QTest::mouseClick(bar->clearCheckedButton(), Qt::LeftButton);
    QVERIFY(!bar->checkedBadge()->isVisible() && !print->isVisible());
    m_fixture->serveStatus(500);
    QTest::mouseClick(bar->reloadButton(), Qt::LeftButton);
    QVERIFY(!bar->reloadButton()->isEnabled());
    // A failed reload keeps the products; the alert comes up over the table.
    QTRY_VERIFY_WITH_TIMEOUT(m_view->errorAlert(), 5000);
    QVERIFY(bar->reloadButton()->isEnabled() && m_view->contentState() == State::ProductList);
}

void ProductWindowTest::spaceBar_data()
{
    // Displayed by article number: 20, 30 (B-2), 10 (C-3).
    QTest::addColumn<qint64>("selected"); // 0: none
    QTest::addColumn<QString>("search");  // typed; then the space goes to the search field
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<qint64>("checked"); // 0: none
    QTest::addColumn<qint64>("selectedAfter");
    QTest::newRow("moves down") << 20LL << QString() << 0 << 20LL << 30LL;
    QTest::newRow("last row stays") << 10LL << QString() << int(Qt::AltModifier) << 10LL << 10LL;
    QTest::newRow("no selection") << 0LL << QString() << 0 << 0LL << 0LL;
    QTest::newRow("selection hidden") << 10LL << u"hamer"_s << 0 << 0LL << 10LL;
    QTest::newRow("in the search field") << 20LL << u"a"_s << 0 << 20LL << 10LL;
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
    QLineEdit* field = m_view->toolbar()->searchField();
    QTest::keyClicks(field, search);
    QWidget* target = search.isEmpty() ? static_cast<QWidget*>(table()) : field;
    QTest::keyClick(target, Qt::Key_Space, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(field->text(), search);
    QCOMPARE(m_viewModel->checkedProductIDs(), checked ? QSet<qint64>{checked} : QSet<qint64>());
    QCOMPARE(m_viewModel->selectedProductID().value_or(0), selectedAfter);
    if (checked)
        QCOMPARE(idAt(table()->selectionModel()->selectedRows().value(0).row()), selectedAfter);
}

void ProductWindowTest::columnsAndClicks()
{
    showTable();
    // Anywhere in the check cell ticks; a quick second click (a double-click) again.
    const QPoint corner =
        table()->visualRect(table()->model()->index(1, 0)).topLeft() + QPoint(1, 1);
    QSignalSpy toggles(m_viewModel.get(), &ProductListViewModel::checkedProductIDsChanged);
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, corner);
    QCOMPARE(m_viewModel->checkedProductIDs(), QSet<qint64>{idAt(1)});
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, corner);
    QTest::mouseRelease(table()->viewport(), Qt::LeftButton, {}, corner);
    QCOMPARE(toggles.size(), 2);
    QVERIFY(m_viewModel->checkedProductIDs().isEmpty());

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

    // The next table reads the stored widths again.
    m_settings->setColumnWidthName(260);
    m_viewModel->fetchProducts();
    QTRY_COMPARE_WITH_TIMEOUT(m_view->contentState(), State::ProductList, 5000);
    header = table()->horizontalHeader();
    QCOMPARE(header->sectionSize(ProductTableModel::kNameColumn), 260);

    // Header clicks sort; the check column does not, and must not show that it does.
    for (int column : {ProductTableModel::kNameColumn, ProductTableModel::kCheckColumn}) {
        const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
        QCOMPARE(idAt(0), 30); // Beitel
    }
    QCOMPARE(header->sortIndicatorSection(), ProductTableModel::kNameColumn);
    QCOMPARE(header->sortIndicatorOrder(), Qt::AscendingOrder);
}

void ProductWindowTest::labelPreviewFollowsSelectionTemplateAndEdits()
{
    LabelTemplate accented;
    accented.zplContent = u"^XA^PW400^LL200^FO10,10^A0N,30^FDé {{NAAM}}^FS^XZ"_s;
    m_settings->setTemplates({m_settings->templates().at(0), accented});
    showTable();
    m_view->setLabelPreviewShown(true);
    LabelPreviewView* preview = m_view->labelPreview();
    QVERIFY(m_view->isLabelPreviewShown() && !preview->isVisible());
    QCOMPARE(m_view->labelPreviewSubtitle()->text(),
             u"Selecteer een product om het etiket te zien."_s);

    // The label exactly as printing fills and the printer draws it.
    const auto printed = [this] {
        const QString zpl = m_settings->selectedTemplate()->zplContent;
        return LabelRenderer()
            .render(*ZPLService().generateZPL(m_products[2], zpl))
            .labels[0]
            .image;
    };
    const QImage& shown = preview->picture()->image();
    // A click on a name selects the product without ticking it.
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {},
                      table()->visualRect(table()->model()->index(1, 1)).center());
    QVERIFY(preview->isVisible() && m_viewModel->checkedProductIDs().isEmpty());
    QCOMPARE(shown, printed());

    QTest::keyClick(m_view->toolbar()->templatePicker(), Qt::Key_Down);
    QCOMPARE(m_settings->selectedTemplateID(), accented.id);
    QCOMPARE(shown, printed());
    m_settings->updateTemplate(1, [](LabelTemplate& t) { t.zplContent.replace(u"é"_s, u"e"_s); });
    QCOMPARE(shown, printed());

    m_viewModel->setSelectedProductID(std::nullopt);
    QVERIFY(!preview->isVisible());
}

QTEST_MAIN(ProductWindowTest)
#include "tst_ProductWindow.moc"
